// The elements of a uniform generator, a block at a time: the same ones, sooner.
#pragma once

#include "ORLIX/ORLIXMath/Simd/RandomFill.h"
#include "ORLIX/ORLIXMath/Simd/UniformRandomLCG.h"

namespace orlix::simd {

namespace details {

/// How raw numbers become integers: by the arithmetic of UniformRandomLCG, or, where that comes to the same, by a
/// product in whole numbers, or by nothing but a sum because every raw number, or its upper 8 bits, is an element.
enum class eUniformWay { asStated, product, sum };

/// A generator in the state of `Uniform`. Each draw of a block is taken from the state before the block, so that none
/// waits for the one before.
template <eInstructionSet::domain I, class T, eUniformWay way>
class UniformRandomBlocks
{
    using Uniform = UniformRandomLCG<I, T>;
    using Steps = RandomSteps<I>;
    using Words = typename Uniform::Words;
    using Bits = typename Steps::Words;
    static constexpr unsigned long s_nbLanes = Uniform::s_nbLanes;

public:
    ORLIX_SIMD_INLINE UniformRandomBlocks(const Uniform& uniform, unsigned long nbValues, T min)
        : m_uniform(uniform), m_next(stepLanes<Uniform::s_nbDraws, s_nbLanes>(uniform.state)),
          m_nbValues(static_cast<unsigned int>(nbValues)), m_min(min)
    {}

    ORLIX_SIMD_INLINE Pack<I, T> draw()
    {
        const Block block{m_uniform.state, m_next};
        m_uniform.state = m_next;
        m_next = stepLanes<2 * Uniform::s_nbDraws, s_nbLanes>(block.before);
        if constexpr (sizeof(T) == 1) {
            return drawBytes(block);
        } else if constexpr (sizeof(T) == 2) {
            return {{drawShorts<0>(block), drawShorts<3>(block)}};
        } else {
            return {{drawWords<0>(block), drawWords<3>(block), drawWords<6>(block), drawWords<9>(block)}};
        }
    }

private:
    using Halves = Lanes<unsigned short, 2 * s_nbLanes>;

    /// The states before a block and behind its last draw.
    struct Block
    {
        Words before;
        Words last;

        template <unsigned long nbSteps>
        ORLIX_SIMD_INLINE Words after() const
        {
            if constexpr (nbSteps == Uniform::s_nbDraws) {
                return last;
            } else {
                return stepLanes<nbSteps, s_nbLanes>(before);
            }
        }
    };

    template <class TLanes>
    static ORLIX_SIMD_INLINE Bits bits(const TLanes& lanes)
    {
        return __builtin_bit_cast(Bits, lanes);
    }
    static ORLIX_SIMD_INLINE Halves halves(Bits words) { return __builtin_bit_cast(Halves, words); }

    ORLIX_SIMD_INLINE Pack<I, T> drawBytes(const Block& block) const
    {
        const Words a = block.template after<1>(), b = block.template after<2>(), c = block.template after<3>(),
                    d = block.template after<4>();
        if constexpr (way == eUniformWay::asStated) {
            return {{m_uniform.narrowBytes(toInteger(a), toInteger(b), toInteger(c), toInteger(d))}};
        } else if constexpr (I == eInstructionSet::eSSE2) {
            // Twice a raw number has 16 bits, of which the product's upper half is the whole part.
            const Halves ab = scaled(halves(Steps::upperHalves(bits(a), bits(b))) << 1);
            const Halves cd = scaled(halves(Steps::upperHalves(bits(c), bits(d))) << 1);
            return {{{Steps::template narrowHalves<T>(bits(ab), bits(cd))}}};
        } else {
            const Halves ab = halves(Steps::upperPairs(bits(a), bits(b)));
            const Halves cd = halves(Steps::upperPairs(bits(c), bits(d)));
            const Words bytes = __builtin_bit_cast(Words, wholeBytes(ab, cd));
            using Bytes = Lanes<unsigned char, 4 * s_nbLanes>;
            const Bytes ordered = __builtin_bit_cast(Bytes, Steps::orderBytes(bits(bytes)));
            return {{{bits(ordered + static_cast<unsigned char>(m_min))}}};
        }
    }
    /// Of raw numbers below a bit that doesn't count: the whole parts of the first in the lower bytes, of the second in
    /// the upper ones. That of a product stands in its upper half, or above the middle of it if the factor is shifted.
    ORLIX_SIMD_INLINE Halves wholeBytes(const Halves& lower, const Halves& upper) const
    {
        if constexpr (way == eUniformWay::sum) {
            return (lower >> 7 & 0xFF) | (upper << 1 & 0xFF00);
        } else {
            const auto factor = static_cast<unsigned short>(m_nbValues);
            const auto shifted = static_cast<unsigned short>(m_nbValues << 8);
            return multiplyHigh<I>(lower << 1, Halves{} + factor) |
                   (multiplyHigh<I>(upper << 1, Halves{} + shifted) & 0xFF00);
        }
    }
    template <unsigned long nbBefore>
    ORLIX_SIMD_INLINE Register<I> drawShorts(const Block& block) const
    {
        const Words first = block.template after<nbBefore + 1>(), shared = block.template after<nbBefore + 2>(),
                    second = block.template after<nbBefore + 3>();
        if constexpr (way == eUniformWay::asStated) {
            return m_uniform.narrowShorts(m_uniform.toInteger((first >> 15 & 0xFFFEU) + (shared >> 16 & 1)),
                                          m_uniform.toInteger((second >> 15 & 0xFFFEU) + (shared >> 17 & 1)));
        } else {
            const Halves raw = (halves(Steps::upperHalves(bits(first), bits(second))) << 1) |
                               (halves(Steps::upperHalves(bits(shared), bits(shared >> 1))) & 1);
            return {Steps::orderHalves(bits(scaled(raw)))};
        }
    }
    template <unsigned long nbBefore>
    ORLIX_SIMD_INLINE Register<I> drawWords(const Block& block) const
    {
        const Words first = block.template after<nbBefore + 1>(), second = block.template after<nbBefore + 2>(),
                    third = block.template after<nbBefore + 3>();
        const Words raw = (first << 1 & 0xFFFE0000U) | (second >> 14 & 0x1FFFCU) | (third >> 16 & 3);
        if constexpr (way == eUniformWay::asStated) {
            return m_uniform.toElements(raw);
        } else {
            const Words moved = raw ^ 0x80000000U;
            if constexpr (way == eUniformWay::sum) {
                return {bits(moved + static_cast<unsigned int>(m_min))};
            } else {
                return multiplied(raw, moved);
            }
        }
    }

    ORLIX_SIMD_INLINE Words toInteger(const Words& draw) const { return m_uniform.toInteger(usefulBits(draw)); }
    /// Of 16 bits: the whole part, from `min` on.
    ORLIX_SIMD_INLINE Halves scaled(const Halves& raw) const
    {
        const auto min = static_cast<unsigned short>(m_min);
        if constexpr (way == eUniformWay::sum) {
            return (sizeof(T) == 1 ? raw >> 8 : raw) + min;
        } else {
            return multiplyHigh<I>(raw, Halves{} + static_cast<unsigned short>(m_nbValues)) + min;
        }
    }
    /// Of 32 bits likewise. A double holds 53 bits of the product, and one just below a whole number may round up to
    /// it: then all goes as stated.
    ORLIX_SIMD_INLINE Register<I> multiplied(const Words& raw, const Words& moved) const
    {
        using Longs = Lanes<unsigned long, s_nbLanes / 2>;
        constexpr unsigned long upper = 0xFFFFFFFF00000000UL;
        const Bits factor = bits(Words{} + m_nbValues);
        const Longs even = __builtin_bit_cast(Longs, Steps::multiplyEven(bits(moved), factor));
        const Longs odd =
            __builtin_bit_cast(Longs, Steps::multiplyEven(bits(__builtin_bit_cast(Longs, moved) >> 32), factor));
        const Words rest = __builtin_bit_cast(Words, (even & ~upper) | odd << 32);
        const Words bNear = __builtin_bit_cast(Words, (rest | 0x3FFU) == 0xFFFFFFFFU);
        if (__builtin_expect(isAnySet<I>(bNear), 0)) {
            return m_uniform.toElements(raw);
        }
        const Words whole = __builtin_bit_cast(Words, even >> 32 | (odd & upper));
        return {bits(whole + static_cast<unsigned int>(m_min))};
    }

    Uniform m_uniform;
    Words m_next; ///< the state behind the next block, so that a block waits for the one before the last alone
    unsigned int m_nbValues;
    T m_min;
};

} // namespace details

/// As `fillRandom` with a copy of `uniform`, and the same elements. `min` and `max` are those that it was made with.
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE void fillUniform(const UniformRandomLCG<I, T>& uniform, T min, T max, T* destination,
                                   unsigned long nbElements, unsigned long nbSkipped, eMemoryPlace place)
{
    using Way = details::eUniformWay;
    if constexpr (I == eInstructionSet::eNone) {
        UniformRandomLCG<I, T> generator = uniform;
        fillRandom(generator, destination, nbElements, nbSkipped, place);
    } else {
        const auto fillBy = [&]<Way way>(unsigned long nbValues) ORLIX_SIMD_LAMBDA {
            details::UniformRandomBlocks<I, T, way> generator(uniform, nbValues, min);
            fillRandom(generator, destination, nbElements, nbSkipped, place);
        };
        if constexpr (!std::is_same_v<T, float>) {
            const long nbValues = static_cast<long>(max) - static_cast<long>(min) + 1;
            const bool bPower = (nbValues & (nbValues - 1)) == 0;
            // Floats hold the products of 8-bit elements, and of 16-bit ones where the factor is short.
            const bool bExact = sizeof(T) != 2 || nbValues <= 256 || bPower;
            if (nbValues == 1L << 8 * sizeof(T)) {
                return fillBy.template operator()<Way::sum>(0);
            }
            if (nbValues > 0 && bExact) {
                return fillBy.template operator()<Way::product>(static_cast<unsigned long>(nbValues));
            }
        }
        fillBy.template operator()<Way::asStated>(0);
    }
}

} // namespace orlix::simd
