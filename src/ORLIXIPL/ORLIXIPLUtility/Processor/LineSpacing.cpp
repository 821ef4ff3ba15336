#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"

#include <cmath>

namespace orlix::imaproc::util {

LineSpacing toLineSpacing(double offset, float dense)
{
    const float period = static_cast<float>(offset);
    if (!(offset > 0.0) || !std::isfinite(period)) {
        return {LineSpacing::eNone, period, 0.0F};
    }
    return {period < dense ? LineSpacing::eDense : LineSpacing::eApart, period, period * 0.5F};
}

} // namespace orlix::imaproc::util
