// How far apart two pixels may be and still count as the same.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

/// Which differences of pixels a and b count. Any other value acts as eNoTolerance.
struct eImgComparisonToleranceMode
{
    enum domain {
        eNoTolerance = 0,       ///< a is not b
        eAbsoluteTolerance = 1, ///< |a - b| exceeds the absolute tolerance
        eRelativeTolerance = 2, ///< |a - b| / max(|a|, |b|) exceeds the relative tolerance
        eBothTolerances = 3     ///< both are exceeded
    };
    ORLIX_ENUMERATION(eImgComparisonToleranceMode, eNoTolerance);
};

struct ImgComparisonToleranceRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::ImgComparisonTolerance";

    unsigned int mode = eImgComparisonToleranceMode::eNoTolerance;
    float absoluteTolerance = 0; ///< in grey values; on integer images its fraction is dropped
    float relativeTolerance = 0; ///< 0.01 is one percent

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("mode", &ImgComparisonToleranceRecord::mode);
        visitor("absoluteTolerance", &ImgComparisonToleranceRecord::absoluteTolerance);
        visitor("relativeTolerance", &ImgComparisonToleranceRecord::relativeTolerance);
    }

    friend bool operator==(const ImgComparisonToleranceRecord&, const ImgComparisonToleranceRecord&) = default;
};

class ORLIXIPLATTRIBUTES_API ImgComparisonTolerance final
    : public DataItemNode<ImgComparisonTolerance, ImgComparisonToleranceRecord>
{
public:
    /// Why a person can't have meant these values; empty where they make sense.
    std::string findFlaw() const;
};

/// Pixels have to be equal.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonNoTolerance();
/// Differences up to `absolute` pass.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImgComparisonTolerance>
createImgComparisonAbsoluteTolerance(float absolute);
/// Differences up to `relative` times the larger absolute value pass.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImgComparisonTolerance>
createImgComparisonRelativeTolerance(float relative);
/// A difference that is within either passes.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImgComparisonTolerance> createImgComparisonTolerance(float absolute,
                                                                                                    float relative);

} // namespace orlix::imaproc::attr
