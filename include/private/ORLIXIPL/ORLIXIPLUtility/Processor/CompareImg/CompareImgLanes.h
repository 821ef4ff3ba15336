// When two pixels differ, a vector at a time; included by the kernels of CompareImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/WidenToDouble.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgPixel.h"

namespace orlix::imaproc::util {

/// Adds up counts of up to 16, 32 or 64 bits: each step adds neighbours into lanes of twice the width.
template <class TCount, unsigned long nbBytes>
ORLIX_SIMD_INLINE unsigned long sumLanes(const simd::Lanes<TCount, nbBytes / sizeof(TCount)>& counts)
{
    if constexpr (sizeof(TCount) == sizeof(unsigned long)) {
        unsigned long sum = 0;
        for (unsigned long lane = 0; lane < nbBytes / sizeof(TCount); ++lane) {
            sum += counts[lane];
        }
        return sum;
    } else {
        using Wider = std::conditional_t<sizeof(TCount) == 1, unsigned short,
                                         std::conditional_t<sizeof(TCount) == 2, unsigned int, unsigned long>>;
        constexpr int nbBits = 8 * sizeof(TCount);
        simd::Lanes<Wider, nbBytes / sizeof(Wider)> pairs;
        __builtin_memcpy(&pairs, &counts, nbBytes);
        return sumLanes<Wider, nbBytes>((pairs & ((Wider(1) << nbBits) - 1)) + (pairs >> nbBits));
    }
}

/// Unsigned integer of the width of T.
template <class T>
using CountOf =
    std::conditional_t<sizeof(T) == 1, unsigned char, std::conditional_t<sizeof(T) == 2, unsigned short, unsigned int>>;

/// Counts elements for which `differ(i)`, a mask of lanes of the width of T, holds, in steps of one register. Returns
/// how many; `nbElements` is a multiple of a register's lanes.
template <class T, eInstructionSet::domain ISA, class TDiffer>
ORLIX_SIMD_INLINE unsigned long countInLanes(unsigned long nbElements, const TDiffer& differ)
{
    constexpr unsigned long nbBytes = simd::Register<ISA>::s_nbBytes;
    constexpr unsigned long nbLanes = nbBytes / sizeof(T);
    using Count = CountOf<T>;
    constexpr unsigned long nbTurns = sizeof(T) == 4 ? 1UL << 30 : (1UL << 8 * sizeof(T)) - 1; // no lane overflows
    unsigned long nbDifferent = 0;
    for (unsigned long i = 0; i < nbElements;) {
        const unsigned long end = nbElements - i > nbTurns * nbLanes ? i + nbTurns * nbLanes : nbElements;
        simd::Lanes<Count, nbLanes> counts{};
        for (; i < end; i += nbLanes) {
            simd::Lanes<Count, nbLanes> mask;
            const auto found = differ(i);
            __builtin_memcpy(&mask, &found, nbBytes);
            counts -= mask;
        }
        if (simd::isAnySet<ISA>(counts)) {
            nbDifferent += sumLanes<Count, nbBytes>(counts);
        }
    }
    return nbDifferent;
}

template <class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE unsigned long countExactly(const T* first, const T* second, unsigned long nbElements)
{
    constexpr unsigned long nbLanes = simd::Register<ISA>::s_nbBytes / sizeof(T);
    return countInLanes<T, ISA>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
        return simd::loadLanes<T, nbLanes>(first + i) != simd::loadLanes<T, nbLanes>(second + i);
    });
}

/// Differences of 8 and 16-bit elements are compared in their own width, which holds them all, after limits outside of
/// it have been dealt with.
template <class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE unsigned long countAbsolutely(const T* first, const T* second, unsigned long nbElements,
                                                const CompareImgLvl3::Limits& limits)
{
    constexpr unsigned long nbLanes = simd::Register<ISA>::s_nbBytes / sizeof(T);
    using Bits = std::conditional_t<std::is_same_v<T, float>, float, CountOf<T>>;
    using Compared = std::conditional_t<sizeof(T) == 4, typename ComparisonOf<T>::Difference, Bits>;
    const auto limit = absoluteLimitOf<T>(limits);
    if constexpr (sizeof(T) < 4) {
        if (limit < 0) {
            return nbElements;
        }
        if (limit >= (1 << 8 * sizeof(T)) - 1) {
            return 0;
        }
    }
    const Compared bound = static_cast<Compared>(limit);
    return countInLanes<T, ISA>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
        const auto a = simd::loadLanes<T, nbLanes>(first + i);
        const auto b = simd::loadLanes<T, nbLanes>(second + i);
        const auto x = simd::loadLanes<Bits, nbLanes>(reinterpret_cast<const Bits*>(first + i));
        const auto y = simd::loadLanes<Bits, nbLanes>(reinterpret_cast<const Bits*>(second + i));
        const simd::Lanes<Bits, nbLanes> bits = a > b ? x - y : y - x;
        simd::Lanes<Compared, nbLanes> difference;
        __builtin_memcpy(&difference, &bits, sizeof(difference));
        return difference > bound;
    });
}

/// The relative test of 8 and 16-bit elements, whose differences and magnitudes are unsigned 16-bit numbers: the
/// difference is above floor(P * magnitude / 2^32), plus the magnitude where the tolerance is 1 or more. What
/// CompareImgLvl3 makes of the tolerance decides for every possible quotient as the division does.
template <eInstructionSet::domain ISA, unsigned long nbLanes>
ORLIX_SIMD_INLINE auto exceedRelatively(const simd::Lanes<unsigned short, nbLanes>& difference,
                                        const simd::Lanes<unsigned short, nbLanes>& magnitude,
                                        const CompareImgLvl3::RelativeLimit& limit)
{
    using Numbers = simd::Lanes<unsigned short, nbLanes>;
    const Numbers zero{};
    const Numbers high = zero + limit.high;
    const Numbers low = zero + limit.low;
    const Numbers middle = high * magnitude;
    const Numbers sum = middle + simd::multiplyHigh<ISA>(low, magnitude);
    Numbers carry;
    const auto hasCarry = sum < middle;
    __builtin_memcpy(&carry, &hasCarry, sizeof(carry));
    const Numbers threshold = simd::multiplyHigh<ISA>(high, magnitude) - carry + magnitude * limit.whole;
    return difference > threshold;
}

/// Modes 2 and 3 of 8 and 16-bit elements.
template <class T, eInstructionSet::domain ISA, bool bAbsoluteToo>
ORLIX_SIMD_INLINE unsigned long countNarrowRelatively(const T* first, const T* second, unsigned long nbElements,
                                                      const CompareImgLvl3::Limits& limits)
{
    constexpr unsigned long nbBytes = simd::Register<ISA>::s_nbBytes;
    constexpr unsigned long nbLanes = nbBytes / 2;
    using Signed = std::conditional_t<std::is_signed_v<T>, short, unsigned short>;
    using Numbers = simd::Lanes<unsigned short, nbLanes>;
    const CompareImgLvl3::RelativeLimit limit = sizeof(T) == 1 ? limits.relativeOf8Bits : limits.relativeOf16Bits;
    const int absoluteLimit = static_cast<int>(absoluteLimitOf<T>(limits));
    const bool bTooFar = limit.whole > 0 && std::is_unsigned_v<T>; // no difference is above its magnitude
    if (limit.bNone || bTooFar || (bAbsoluteToo && absoluteLimit >= 0xFFFF)) {
        return 0;
    }
    // All magnitudes but 0 exceed a relative tolerance below 0, all differences an absolute one.
    const Numbers absolute = Numbers{} + static_cast<unsigned short>(absoluteLimit < 0 ? 0 : absoluteLimit);
    const bool bAnyDifference = absoluteLimit < 0;
    return countInLanes<unsigned short, ISA>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
        const auto a = simd::convertLanes<Signed, nbLanes>(simd::loadLanes<T, nbLanes>(first + i));
        const auto b = simd::convertLanes<Signed, nbLanes>(simd::loadLanes<T, nbLanes>(second + i));
        Numbers x;
        Numbers y;
        __builtin_memcpy(&x, &a, nbBytes);
        __builtin_memcpy(&y, &b, nbBytes);
        const Numbers difference = a > b ? x - y : y - x;
        const Numbers magnitudeA = a < Signed(0) ? -x : x;
        const Numbers magnitudeB = b < Signed(0) ? -y : y;
        const Numbers magnitude = magnitudeA > magnitudeB ? magnitudeA : magnitudeB;
        auto found = exceedRelatively<ISA, nbLanes>(difference, magnitude, limit);
        if (limit.bAll) {
            found = magnitude != static_cast<unsigned short>(0);
        }
        if (bAbsoluteToo && !bAnyDifference) {
            found &= difference > absolute;
        }
        return found;
    });
}

/// The quotient's test in double; lanes of magnitude 0 divide by 1 and are masked out.
template <class T, unsigned long nbLanes>
class QuotientTest
{
public:
    explicit ORLIX_SIMD_INLINE QuotientTest(double tolerance) : m_tolerance(tolerance) {}

    ORLIX_SIMD_INLINE auto operator()(const simd::Lanes<double, nbLanes>& difference,
                                      const simd::Lanes<double, nbLanes>& magnitude) const
    {
        const auto isZero = magnitude == 0.0;
        const simd::Lanes<double, nbLanes> one = simd::Lanes<double, nbLanes>{} + 1.0;
        const simd::Lanes<double, nbLanes> divisor = isZero ? one : magnitude;
        return (difference / divisor > m_tolerance) & ~isZero;
    }

private:
    double m_tolerance;
};

/// The same without a division, for tolerances from 0 on, which are floats.
///
/// A quotient d / m rounds to more than t where it is more than half a step of doubles above t: a tie goes to t, whose
/// last bit is 0. Of floats, d, m and t have 24 bits each, so that t m has 48 and d differs from it by a 2^-48th part
/// or not at all. Half a step is a 2^-53rd part: no quotient lies between, and t m is exact.
///
/// Of integers below 2^32, t m has 56 bits, and quotients do lie between. Two parts of t of 12 bits have exact products
/// with m. Where d is so near t m that it matters, what is left of d behind both is exact too: a number of at most 53
/// bits, which is compared with half a step times m, a power of 2 times m. Where d is farther away, what rounding adds
/// to the difference is far too little for either. Zero magnitudes have differences of zero, which exceed nothing.
template <class T, unsigned long nbLanes>
class ProductTest
{
public:
    explicit ORLIX_SIMD_INLINE ProductTest(double tolerance) : m_tolerance(tolerance)
    {
        if constexpr (!std::is_same_v<T, float>) {
            const auto bits = __builtin_bit_cast(unsigned long, tolerance);
            m_high = __builtin_bit_cast(double, bits >> 41 << 41); // 11 bits behind the first one
            m_low = tolerance - m_high;
            m_halfStep = __builtin_bit_cast(double, bits >> 52 << 52) * 0x1p-53;
        }
    }

    ORLIX_SIMD_INLINE auto operator()(const simd::Lanes<double, nbLanes>& difference,
                                      const simd::Lanes<double, nbLanes>& magnitude) const
    {
        if constexpr (std::is_same_v<T, float>) {
            return difference > m_tolerance * magnitude;
        } else {
            return difference - m_high * magnitude - m_low * magnitude > m_halfStep * magnitude;
        }
    }

private:
    double m_tolerance;
    double m_high = 0;
    double m_low = 0;
    double m_halfStep = 0;
};

/// Modes 2 and 3 of 32-bit elements; all tests in double, which holds their differences and tolerances exactly.
template <template <class, unsigned long> class TTest, class T, eInstructionSet::domain ISA, bool bAbsoluteToo>
ORLIX_SIMD_INLINE unsigned long countWideBy(const T* first, const T* second, unsigned long nbElements,
                                            const CompareImgLvl3::Limits& limits)
{
    constexpr unsigned long nbBytes = simd::Register<ISA>::s_nbBytes;
    constexpr unsigned long nbLanes = nbBytes / 4;
    constexpr unsigned long nbHalf = nbLanes / 2;
    using Difference = typename ComparisonOf<T>::Difference;
    using Magnitude = std::conditional_t<std::is_same_v<T, int>, unsigned int, Difference>;
    const double absolute = static_cast<double>(absoluteLimitOf<T>(limits));
    const TTest<T, nbHalf> isFar(limits.relative);
    using Counts = simd::Lanes<unsigned long, nbHalf>;
    using Differences = simd::Lanes<Difference, nbLanes>;
    Counts counts{};
    for (unsigned long i = 0; i < nbElements; i += nbLanes) {
        const auto a = simd::convertLanes<Difference, nbLanes>(simd::loadLanes<T, nbLanes>(first + i));
        const auto b = simd::convertLanes<Difference, nbLanes>(simd::loadLanes<T, nbLanes>(second + i));
        using Raw = std::conditional_t<std::is_same_v<T, int>, unsigned int, Difference>; // wraps where it must
        simd::Lanes<Raw, nbLanes> x;
        simd::Lanes<Raw, nbLanes> y;
        __builtin_memcpy(&x, &a, nbBytes);
        __builtin_memcpy(&y, &b, nbBytes);
        const simd::Lanes<Raw, nbLanes> difference = a > b ? x - y : y - x;
        const simd::Lanes<Magnitude, nbLanes> magnitudeA = a < Difference(0) ? -x : x;
        const simd::Lanes<Magnitude, nbLanes> magnitudeB = b < Difference(0) ? -y : y;
        const simd::Lanes<Magnitude, nbLanes> magnitude = magnitudeA > magnitudeB ? magnitudeA : magnitudeB;
        const auto count = [&]<bool bUpper>(std::bool_constant<bUpper>) ORLIX_SIMD_LAMBDA {
            const auto wideD =
                simd::widenToDouble<ISA, bUpper, Difference>(__builtin_bit_cast(Differences, difference));
            const auto wideM = simd::widenToDouble<ISA, bUpper, Magnitude>(magnitude);
            auto found = isFar(wideD, wideM);
            if constexpr (bAbsoluteToo) {
                found &= wideD > absolute;
            }
            counts -= __builtin_bit_cast(Counts, found);
        };
        count(std::false_type());
        count(std::true_type());
    }
    return sumLanes<unsigned long, nbBytes>(counts);
}

template <class T, eInstructionSet::domain ISA, bool bAbsoluteToo>
ORLIX_SIMD_INLINE unsigned long countWideRelatively(const T* first, const T* second, unsigned long nbElements,
                                                    const CompareImgLvl3::Limits& limits)
{
    // Below 0, infinite magnitudes have no quotient, but a product that infinite differences exceed.
    return limits.relative >= 0 ? countWideBy<ProductTest, T, ISA, bAbsoluteToo>(first, second, nbElements, limits)
                                : countWideBy<QuotientTest, T, ISA, bAbsoluteToo>(first, second, nbElements, limits);
}

} // namespace orlix::imaproc::util
