// What a comparison of two images found.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/PixelPosition.h"

namespace orlix::imaproc::attr {

struct CompareResultRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::CompareResult";

    bool identical = true;               ///< no pixel differs
    unsigned long nbDifferentPixels = 0; ///< pixels that fail the comparison
    unsigned long nbComparedPixels = 0;  ///< pixels visited
    PixelPosition firstDifference;       ///< x is PixelPosition::s_nowhere where no difference is recorded
    double firstValue1 = NumericLimits<double>::s_max; ///< there, in the first image
    double firstValue2 = NumericLimits<double>::s_max; ///< there, in the second image

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("identical", &CompareResultRecord::identical);
        visitor("nbDifferentPixels", &CompareResultRecord::nbDifferentPixels);
        visitor("nbComparedPixels", &CompareResultRecord::nbComparedPixels);
        visitor("firstDifference", &CompareResultRecord::firstDifference);
        visitor("firstValue1", &CompareResultRecord::firstValue1);
        visitor("firstValue2", &CompareResultRecord::firstValue2);
    }
};

class CompareResult final : public DataItemNode<CompareResult, CompareResultRecord>
{
public:
    bool hasFirstDifference() const { return firstDifference.x != PixelPosition::s_nowhere; }
    /// As new.
    void reset() { static_cast<CompareResultRecord&>(*this) = CompareResultRecord(); }
    /// Takes in the counts of `part`, and its first difference where none is recorded yet. Returns true where it took
    /// the difference. Parts come in the order in which their differences count as first.
    bool merge(const CompareResult& part)
    {
        nbDifferentPixels += part.nbDifferentPixels;
        nbComparedPixels += part.nbComparedPixels;
        identical = nbDifferentPixels == 0;
        if (hasFirstDifference() || !part.hasFirstDifference()) {
            return false;
        }
        firstDifference = part.firstDifference;
        firstValue1 = part.firstValue1;
        firstValue2 = part.firstValue2;
        return true;
    }
    /// Of the first difference, the plan that it lies in; nothing where none is recorded.
    void placeIn(const PlanIndex& plan)
    {
        if (hasFirstDifference()) {
            firstDifference.z = plan.z;
            firstDifference.c = plan.c;
            firstDifference.t = plan.t;
        }
    }
};

/// A result for each plan of an image.
using PlanIndexedCompareResult = PlanIndexedColl<CompareResult>;

} // namespace orlix::imaproc::attr
