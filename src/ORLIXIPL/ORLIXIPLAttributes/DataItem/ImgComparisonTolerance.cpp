#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

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

} // namespace

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
