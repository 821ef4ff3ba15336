#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/RelativeLimit.h"

namespace orlix::imaproc::util {

namespace {

struct Fraction
{
    unsigned long numerator;
    unsigned long denominator;

    /// Exact: a tolerance has 24 bits, a denominator 17.
    bool isAbove(double tolerance) const
    {
        return static_cast<double>(numerator) > tolerance * static_cast<double>(denominator);
    }
};

Fraction addTimes(const Fraction& fraction, const Fraction& other, unsigned long nbTimes)
{
    return {fraction.numerator + nbTimes * other.numerator, fraction.denominator + nbTimes * other.denominator};
}

/// How often `step` can be added to `from` so that its denominator stays within `largest` and its side of the tolerance
/// stays what it is.
unsigned long countSteps(const Fraction& from, const Fraction& step, double tolerance, unsigned long largest)
{
    unsigned long nbSteps = 0;
    unsigned long nbTooMany = (largest - from.denominator) / step.denominator + 1;
    while (nbSteps + 1 < nbTooMany) {
        const unsigned long middle = nbSteps + (nbTooMany - nbSteps) / 2;
        (addTimes(from, step, middle).isAbove(tolerance) == from.isAbove(tolerance) ? nbSteps : nbTooMany) = middle;
    }
    return nbSteps;
}

/// The largest fraction up to `tolerance`, 0 or more and below 1, whose denominator is at most `largest`: by the
/// mediants between the nearest ones on both sides.
Fraction findFractionBelow(double tolerance, unsigned long largest)
{
    Fraction below{0, 1};
    Fraction above{1, 1};
    while (below.denominator + above.denominator <= largest) {
        below = addTimes(below, above, countSteps(below, above, tolerance, largest));
        if (below.denominator + above.denominator <= largest) {
            above = addTimes(above, below, countSteps(above, below, tolerance, largest));
        }
    }
    return below;
}

} // namespace

CompareImgLvl3::RelativeLimit makeRelativeLimit(float tolerance, unsigned long largest)
{
    CompareImgLvl3::RelativeLimit limit{};
    limit.bAll = tolerance < 0;
    limit.bNone = !(tolerance < 2);
    if (limit.bAll || limit.bNone) {
        return limit;
    }
    limit.whole = tolerance >= 1 ? 1 : 0;
    const Fraction below = findFractionBelow(static_cast<double>(tolerance) - limit.whole, largest);
    const unsigned long share = ((below.numerator << 32) + below.denominator - 1) / below.denominator;
    limit.high = static_cast<unsigned short>(share >> 16);
    limit.low = static_cast<unsigned short>(share);
    return limit;
}

} // namespace orlix::imaproc::util
