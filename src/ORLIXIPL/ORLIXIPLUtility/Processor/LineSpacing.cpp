#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"

#include <cmath>

namespace orlix::imaproc::util {

namespace {

/// The largest number of single precision that is not above period - 0.5.
float lastOff(float period)
{
    const double exact = static_cast<double>(period) - 0.5; // exact, or the period itself
    const float last = static_cast<float>(exact);
    return static_cast<double>(last) > exact || last >= period ? std::nextafter(last, 0.0F) : last;
}

} // namespace

LineSpacing toLineSpacing(double offset, float dense)
{
    const float period = static_cast<float>(offset);
    if (!(offset > 0.0) || !std::isfinite(period)) {
        return {LineSpacing::eNone, period, 0.0F, 0.0F, 0.0F};
    }
    // A pixel half a period behind a line counts from the next one: with a period of 1 it is half a pixel before that.
    const float offLow = period > 1.0F ? std::nextafter(0.5F, 1.0F) : 0.5F;
    return {period < dense ? LineSpacing::eDense : LineSpacing::eApart, period, period * 0.5F, offLow, lastOff(period)};
}

float inversePeriod(const LineSpacing& spacing, unsigned long nbPixels)
{
    constexpr unsigned long mostPixels = 1UL << 20;
    constexpr float largestPeriod = 1048576.0F;
    const bool bPrecise = nbPixels <= mostPixels && spacing.period >= 1.0F && spacing.period <= largestPeriod;
    return bPrecise ? 1.0F / spacing.period : 0.0F;
}

} // namespace orlix::imaproc::util
