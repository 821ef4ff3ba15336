#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<ImgComparisonTolerance> g_registration;

boost::shared_ptr<const ImgComparisonTolerance> create(eImgComparisonToleranceMode mode, float absolute, float relative)
{
    const auto tolerance = boost::make_shared<ImgComparisonTolerance>();
    tolerance->mode = mode;
    tolerance->absoluteTolerance = absolute;
    tolerance->relativeTolerance = relative;
    return tolerance;
}

/// What is wrong with a tolerance that counts where `bCounts`.
std::string flawOf(const char* name, float tolerance, bool bCounts, const char* modes)
{
    if (!(tolerance >= 0 && tolerance <= NumericLimits<float>::s_max)) {
        return std::string(name) + ": expected a number from 0 to " + numberText(NumericLimits<float>::s_max) +
               ", found " + numberText(tolerance);
    }
    return tolerance == 0 || bCounts
               ? ""
               : std::string(name) + " counts in modes " + modes + " alone: give one of them with it";
}

} // namespace

std::string ImgComparisonTolerance::findFlaw() const
{
    using Mode = eImgComparisonToleranceMode;
    if (mode > Mode::eBothTolerances) {
        return "mode: expected 0 (equal), 1 (absolute), 2 (relative) or 3 (either), found " + numberText(mode);
    }
    const bool bAbsolute = mode == Mode::eAbsoluteTolerance || mode == Mode::eBothTolerances;
    const bool bRelative = mode == Mode::eRelativeTolerance || mode == Mode::eBothTolerances;
    const std::string flaw = flawOf("absoluteTolerance", absoluteTolerance, bAbsolute, "1 and 3");
    return flaw.empty() ? flawOf("relativeTolerance", relativeTolerance, bRelative, "2 and 3") : flaw;
}

boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonNoTolerance()
{
    return create(eImgComparisonToleranceMode::eNoTolerance, 0, 0);
}

boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonAbsoluteTolerance(float absolute)
{
    return create(eImgComparisonToleranceMode::eAbsoluteTolerance, absolute, 0);
}

boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonRelativeTolerance(float relative)
{
    return create(eImgComparisonToleranceMode::eRelativeTolerance, 0, relative);
}

boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonTolerance(float absolute, float relative)
{
    return create(eImgComparisonToleranceMode::eBothTolerances, absolute, relative);
}

} // namespace orlix::imaproc::attr
