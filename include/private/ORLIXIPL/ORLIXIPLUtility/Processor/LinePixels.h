// What the kernels share that draw lines; included by kernel files only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackArithmetic.h"
#include "ORLIX/ORLIXMath/Simd/RangeTest.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"

namespace orlix::imaproc::util {

/// So many numbers of pixels side by side, as many as a register holds; plain code takes one.
template <eInstructionSet::domain ISA>
struct LineReals
{
    static constexpr unsigned long s_nbReals = simd::Pack<ISA, float>::s_nbPerRegister;
    using Real = simd::Lanes<float, s_nbReals>;
    using Whole = simd::Lanes<int, s_nbReals>;
};
template <>
struct LineReals<eInstructionSet::eNone>
{
    using Real = float;
};

/// 2^23, from which on single precision has whole numbers alone, with the sign of `value`.
ORLIX_SIMD_INLINE float wholeFrom(float value)
{
    return __builtin_copysignf(8388608.0F, value);
}
template <class TReal>
ORLIX_SIMD_INLINE TReal wholeFrom(const TReal& value)
{
    using Whole = simd::Lanes<int, sizeof(TReal) / sizeof(float)>;
    const Whole sign = __builtin_bit_cast(Whole, value) & static_cast<int>(0x80000000);
    return __builtin_bit_cast(TReal, sign | 0x4B000000);
}

/// How far `distance` is from the line before it, where lines stand every `period` pixels, one of them at 0, and the
/// distance is `quotient` periods. The steps, each rounded to single precision, are part of what images look like: the
/// quotient to a whole number, by way of 2^23, and down to the floor of it.
template <class TReal>
ORLIX_SIMD_INLINE TReal behindLine(const TReal& distance, const TReal& quotient, float period)
{
    const TReal zero{};
    const TReal one = zero + 1.0F;
    const TReal whole = wholeFrom(quotient);
    const TReal rounded = (quotient + whole) - whole;
    const TReal floor = rounded - (quotient < rounded ? one : zero);
    return distance - floor * period;
}

/// How far `distance` is from the nearest of these lines, with its sign, in [-half, half). What lies beyond a whole
/// period for want of precision goes to its end; what is no number stays that.
template <class TReal>
ORLIX_SIMD_INLINE TReal toNearestLine(const TReal& distance, const LineSpacing& spacing)
{
    const TReal zero{};
    const TReal period = zero + spacing.period;
    const TReal exact = behindLine<TReal>(distance, distance / period, spacing.period);
    const TReal above = exact < zero ? zero : exact;
    const TReal within = above >= period ? period : above;
    return within - (within >= zero + spacing.half ? period : zero);
}

/// A pixel belongs to the line that is nearer than half a pixel; of two as near, to the one behind it.
constexpr float g_lineAbove = -0x1.fffffep-2F; ///< the smallest number above -0.5
constexpr float g_lineUpTo = 0.5F;

/// Distances that make a pixel what it is: `within` from `low` to `high`, both included, and the other one elsewhere.
struct LineRange
{
    float low;
    float high;
    unsigned char within; ///< 0 or 1
};

/// Of drawPixels: distances of all pixels are wanted.
struct EveryPixel
{};

/// Sets pixels [firstX, firstX + nbPixels) of a line to what `range` says of `distance(x)`, and writes nothing else.
/// `distance` is a lambda marked ORLIX_SIMD_LAMBDA, from the x of pixels, as LineReals or as a float, to the same.
/// `mayBeWithin`, such a lambda too, to a comparison of LineReals or to a bool, spares distances: where it is false the
/// pixel is taken to be outside the range.
template <eInstructionSet::domain ISA, class TDistance, class TMayBeWithin = EveryPixel>
ORLIX_SIMD_INLINE void drawPixels(unsigned char* pixels, unsigned long firstX, unsigned long nbPixels,
                                  const LineRange& range, const TDistance& distance,
                                  const TMayBeWithin& mayBeWithin = {})
{
    constexpr bool bEvery = std::is_same_v<TMayBeWithin, EveryPixel>;
    unsigned long i = 0;
    if constexpr (ISA != eInstructionSet::eNone) {
        using Real = typename LineReals<ISA>::Real;
        using Whole = typename LineReals<ISA>::Whole;
        constexpr unsigned long nbReals = LineReals<ISA>::s_nbReals;
        constexpr unsigned long nbRegisters = simd::Pack<ISA, float>::s_nbRegisters;
        constexpr unsigned long nbBlock = simd::Pack<ISA, unsigned char>::s_nbElements;
        constexpr unsigned long endX = (1UL << 31) - nbBlock; // lanes count in int
        const unsigned long nbLeft = firstX < endX ? endX - firstX : 0;
        const unsigned long nbInLanes = nbPixels < nbLeft ? nbPixels : nbLeft;
        const simd::RangeTest<ISA, float> isWithin(range.low, range.high);
        const simd::Pack<ISA, unsigned char> turned =
            simd::Pack<ISA, unsigned char>::broadcast(static_cast<unsigned char>(1 - range.within));
        Whole ramp;
        for (unsigned long lane = 0; lane < nbReals; ++lane) {
            ramp[lane] = static_cast<int>(lane);
        }
        const auto xOf = [=](unsigned long block, unsigned long r) ORLIX_SIMD_LAMBDA {
            const Whole x = ramp + static_cast<int>(firstX + block + r * nbReals);
            return simd::convertLanes<float, nbReals>(x);
        };
        for (; i < nbInLanes; i += nbBlock) {
            simd::Pack<ISA, unsigned char> block = turned;
            simd::Pack<ISA, float> distances;
            if constexpr (bEvery) {
#pragma GCC unroll 4
                for (unsigned long r = 0; r < nbRegisters; ++r) {
                    distances.m_registers[r] = __builtin_bit_cast(simd::Register<ISA>, Real(distance(xOf(i, r))));
                }
                block = isWithin(distances) ^ turned;
            } else {
                Whole bNear[nbRegisters];
                Whole bAnyNear{};
#pragma GCC unroll 4
                for (unsigned long r = 0; r < nbRegisters; ++r) {
                    bNear[r] = mayBeWithin(xOf(i, r));
                    bAnyNear |= bNear[r];
                }
                if (simd::isAnySet<ISA>(bAnyNear)) {
                    const Real outside = Real{} + (range.high + 1.0F);
#pragma GCC unroll 1
                    for (unsigned long r = 0; r < nbRegisters; ++r) {
                        const Real found = simd::isAnySet<ISA>(bNear[r]) ? distance(xOf(i, r)) : outside;
                        distances.m_registers[r] = __builtin_bit_cast(simd::Register<ISA>, found);
                    }
                    block = isWithin(distances) ^ turned;
                }
            }
            if (nbInLanes - i >= nbBlock) {
                block.store(pixels + i);
            } else {
                unsigned char last[nbBlock];
                block.store(last);
                __builtin_memcpy(pixels + i, last, nbInLanes - i);
            }
        }
        i = nbInLanes;
    }
    for (; i < nbPixels; ++i) {
        const float x = static_cast<float>(firstX + i);
        bool bWithin = true;
        if constexpr (!bEvery) {
            bWithin = mayBeWithin(x);
        }
        if (bWithin) {
            const float found = distance(x);
            bWithin = (found >= range.low) & (found <= range.high);
        }
        pixels[i] = static_cast<unsigned char>(bWithin ? range.within : 1 - range.within);
    }
}

} // namespace orlix::imaproc::util
