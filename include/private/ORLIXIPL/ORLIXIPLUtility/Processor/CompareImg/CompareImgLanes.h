// When two pixels differ, a vector at a time; included by the kernels of CompareImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"
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
        nbDifferent += sumLanes<Count, nbBytes>(counts);
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

/// The quotient's test. Differences and magnitudes of 8 and 16-bit elements are so small, and tolerances so short, that
/// their product is exact and its comparison decides as the rounded quotient does, without a division; where the
/// magnitude is 0 it is false by itself. Elsewhere lanes of magnitude 0 divide by 1 and are masked out.
template <class T, unsigned long nbLanes>
ORLIX_SIMD_INLINE auto exceedRelatively(const simd::Lanes<double, nbLanes>& difference,
                                        const simd::Lanes<double, nbLanes>& magnitude, double tolerance)
{
    if constexpr (sizeof(T) < 4) {
        return difference > tolerance * magnitude;
    } else {
        const auto isZero = magnitude == 0.0;
        const simd::Lanes<double, nbLanes> one = magnitude * 0.0 + 1.0;
        const simd::Lanes<double, nbLanes> divisor = isZero ? one : magnitude;
        return (difference / divisor > tolerance) & ~isZero;
    }
}

/// Modes 2 and 3; all tests in double, which holds differences and tolerances of every type exactly.
template <class T, eInstructionSet::domain ISA, bool bAbsoluteToo>
ORLIX_SIMD_INLINE unsigned long countRelatively(const T* first, const T* second, unsigned long nbElements,
                                                const CompareImgLvl3::Limits& limits)
{
    constexpr unsigned long nbBytes = simd::Register<ISA>::s_nbBytes;
    constexpr unsigned long nbLanes = nbBytes / 4;
    constexpr unsigned long nbHalf = nbLanes / 2;
    using Difference = typename ComparisonOf<T>::Difference;
    using Magnitude = std::conditional_t<std::is_same_v<T, int>, unsigned int, Difference>;
    const double absolute = static_cast<double>(absoluteLimitOf<T>(limits));
    const double relative = limits.relative;
    simd::Lanes<unsigned long, nbHalf> counts{};
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
#pragma GCC unroll 2
        for (unsigned long half = 0; half < 2; ++half) {
            simd::Lanes<Difference, nbHalf> d;
            simd::Lanes<Magnitude, nbHalf> m;
            __builtin_memcpy(&d, reinterpret_cast<const char*>(&difference) + half * nbBytes / 2, nbBytes / 2);
            __builtin_memcpy(&m, reinterpret_cast<const char*>(&magnitude) + half * nbBytes / 2, nbBytes / 2);
            const auto wideD = simd::convertLanes<double, nbHalf>(d);
            const auto wideM = simd::convertLanes<double, nbHalf>(m);
            auto found = exceedRelatively<T, nbHalf>(wideD, wideM, relative);
            if constexpr (bAbsoluteToo) {
                found &= wideD > absolute;
            }
            simd::Lanes<unsigned long, nbHalf> mask;
            __builtin_memcpy(&mask, &found, nbBytes);
            counts -= mask;
        }
    }
    return sumLanes<unsigned long, nbBytes>(counts);
}

} // namespace orlix::imaproc::util
