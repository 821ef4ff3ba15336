// Uniform random elements from linear congruential generators, one for each 32-bit lane of a register.
#pragma once

#include "ORLIX/ORLIXMath/Simd/LinearCongruence.h"
#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/RandomSteps.h"
#include "ORLIX/ORLIXMath/Simd/UniformRandomScale.h"
#include "ORLIX/ORLIXMath/Simd/WidenToDouble.h"
#include "ORLIX/ORLIXUtil/RandomStates.h"

namespace orlix::simd {

namespace details {

/// The 15 bits of a draw that count.
template <class TWords>
ORLIX_SIMD_INLINE TWords usefulBits(const TWords& draw)
{
    return draw >> 16 & 32767;
}

/// The scale and offset of a set: floats for elements of 8 and 16 bits, doubles for wider ones.
template <class T, unsigned long nbLanes>
using RandomFactors = std::conditional_t<sizeof(T) < 4, LanesOf<float, nbLanes>, LanesOf<double, nbLanes / 2>>;

} // namespace details

/// A generator of elements of type T on a closed interval, to be had on the stack of a kernel. `draw` gives the next
/// pack: four registers full of raw numbers, of 15, 16 or 32 bits for elements of 8, 16 and 32, each times `scale`,
/// without its fraction for integers, plus `offset`. Sets differ in their sequences, and in arithmetic: float for 8
/// and 16 bits, double for 32; plain code computes in double alone.
///
/// Of every integer interval each value is reached, and nothing lies outside [min, max]. Where min is above max, the
/// elements are what the arithmetic makes of it. A copy goes on by itself, with the same numbers.
template <eInstructionSet::domain I, class T>
struct UniformRandomLCG
{
    static constexpr unsigned long s_nbLanes = g_nbRandomLanes<I>;
    /// So many elements come of `s_nbDraws` draws of each lane.
    static constexpr unsigned long s_nbElements = Pack<I, T>::s_nbElements;
    static constexpr unsigned long s_nbDraws = sizeof(T) == 1 ? 4 : sizeof(T) == 2 ? 6 : 12;
    using Words = Lanes<unsigned int, s_nbLanes>;
    using Reals = Lanes<float, s_nbLanes>;
    using Factors = typename details::RandomFactors<T, s_nbLanes>::Type;

    Words state;    ///< of each lane
    Factors scale;  ///< the same in each lane; doubles fill two registers alike, and one of them stands here
    Factors offset; ///< likewise; of unsigned int less by 2^31, which is added to the rounded number

    /// States that no generator of the process had before.
    ORLIX_SIMD_INLINE UniformRandomLCG(T min, T max)
    {
        unsigned int states[s_nbLanes];
        drawRandomStates(states, s_nbLanes);
        init(min, max, states);
    }
    /// `states` has one for each lane.
    ORLIX_SIMD_INLINE UniformRandomLCG(T min, T max, const unsigned int* states) { init(min, max, states); }

    /// The next elements, as many as a register has bytes.
    ORLIX_SIMD_INLINE Pack<I, T> draw()
    {
        if constexpr (sizeof(T) == 1) {
            const Words a = toInteger(details::usefulBits(step()));
            const Words b = toInteger(details::usefulBits(step()));
            const Words c = toInteger(details::usefulBits(step()));
            const Words d = toInteger(details::usefulBits(step()));
            return {{narrowBytes(a, b, c, d)}};
        } else if constexpr (sizeof(T) == 2) {
            Pack<I, T> pack;
            for (auto& pair : pack.m_registers) {
                const Words first = details::usefulBits(step());
                const Words shared = details::usefulBits(step());
                const Words second = details::usefulBits(step());
                pair =
                    narrowShorts(toInteger((first << 1) + (shared & 1)), toInteger((second << 1) + (shared >> 1 & 1)));
            }
            return pack;
        } else {
            Pack<I, T> pack;
            for (auto& words : pack.m_registers) {
                words = toElements(drawWords());
            }
            return pack;
        }
    }

    /// Raw numbers of 32 bits, out of three draws a lane.
    ORLIX_SIMD_INLINE Words drawWords()
    {
        const Words first = details::usefulBits(step());
        const Words second = details::usefulBits(step());
        const Words third = details::usefulBits(step());
        return (first << 17) + (second << 2) + (third & 3);
    }
    /// What `scale` and `offset` make of raw numbers, as floats.
    ORLIX_SIMD_INLINE Reals toReals(const Words& raw) const requires(sizeof(T) == 4)
    {
        return __builtin_bit_cast(Reals,
                                  Steps::realPair(bits(scaled<false>(raw) + offset), bits(scaled<true>(raw) + offset)));
    }

    /// Elements of 8 and 16 bits of raw numbers, still in words.
    ORLIX_SIMD_INLINE Words toInteger(const Words& raw) const requires(sizeof(T) < 4)
    {
        const Reals numbers = convertLanes<float, s_nbLanes>(__builtin_bit_cast(Lanes<int, s_nbLanes>, raw));
        const Reals whole = __builtin_bit_cast(Reals, Steps::template cut<T>(bits(numbers * scale)));
        return __builtin_bit_cast(Words, Steps::round(bits(whole + offset)));
    }
    /// Elements of 32 bits of raw numbers.
    ORLIX_SIMD_INLINE Register<I> toElements(const Words& raw) const requires(sizeof(T) == 4)
    {
        if constexpr (std::is_same_v<T, float>) {
            return __builtin_bit_cast(Register<I>, toReals(raw));
        } else {
            const Factors lower = __builtin_bit_cast(Factors, Steps::cutDoubles(bits(scaled<false>(raw))));
            const Factors upper = __builtin_bit_cast(Factors, Steps::cutDoubles(bits(scaled<true>(raw))));
            const Words rounded =
                __builtin_bit_cast(Words, Steps::roundPair(bits(lower + offset), bits(upper + offset)));
            return __builtin_bit_cast(Register<I>, std::is_same_v<T, unsigned int> ? rounded + 0x80000000U : rounded);
        }
    }
    /// The elements of such words, in order.
    static ORLIX_SIMD_INLINE Register<I> narrowBytes(const Words& a, const Words& b, const Words& c, const Words& d)
    {
        return {Steps::template narrowBytes<T>(bits(a), bits(b), bits(c), bits(d))};
    }
    static ORLIX_SIMD_INLINE Register<I> narrowShorts(const Words& a, const Words& b)
    {
        return {Steps::template narrowShorts<T>(bits(a), bits(b))};
    }

private:
    using Steps = RandomSteps<I>;

    ORLIX_SIMD_INLINE void init(T min, T max, const unsigned int* states)
    {
        state = loadLanes<unsigned int, s_nbLanes>(states);
        using Factor = std::remove_reference_t<decltype(scale[0])>;
        constexpr double lowered = std::is_same_v<T, unsigned int> ? 0x1p31 : 0;
        scale = Factors{} + static_cast<Factor>(uniformScale(min, max));
        offset = Factors{} + static_cast<Factor>(static_cast<double>(min) - lowered);
    }
    ORLIX_SIMD_INLINE Words step()
    {
        state = stepLanes<1, s_nbLanes>(state);
        return state;
    }

    /// As the intrinsics take it.
    static ORLIX_SIMD_INLINE typename Steps::Reals bits(const Reals& lanes)
    {
        return __builtin_bit_cast(typename Steps::Reals, lanes);
    }
    static ORLIX_SIMD_INLINE typename Steps::Doubles bits(const Lanes<double, s_nbLanes / 2>& lanes)
    {
        return __builtin_bit_cast(typename Steps::Doubles, lanes);
    }
    static ORLIX_SIMD_INLINE typename Steps::Words bits(const Words& lanes)
    {
        return __builtin_bit_cast(typename Steps::Words, lanes);
    }
    /// The raw number is read with a sign, so the halves of its range change places.
    template <bool bUpper>
    ORLIX_SIMD_INLINE Factors scaled(const Words& raw) const
    {
        return (widenToDouble<I, bUpper, int>(__builtin_bit_cast(Lanes<int, s_nbLanes>, raw)) + 0x1p31) * scale;
    }
};

/// Plain code has one lane, and makes one element at a time.
template <class T>
struct UniformRandomLCG<eInstructionSet::eNone, T>
{
    static constexpr unsigned long s_nbLanes = 1;
    static constexpr unsigned long s_nbElements = 1;
    static constexpr unsigned long s_nbDraws = sizeof(T) == 1 ? 1 : sizeof(T) == 2 ? 2 : 3;

    unsigned int state;
    double scale;
    double offset;

    ORLIX_SIMD_INLINE UniformRandomLCG(T min, T max) : scale(uniformScale(min, max)), offset(min)
    {
        drawRandomStates(&state, 1);
    }
    ORLIX_SIMD_INLINE UniformRandomLCG(T min, T max, const unsigned int* states)
        : state(*states), scale(uniformScale(min, max)), offset(min)
    {}

    ORLIX_SIMD_INLINE Pack<eInstructionSet::eNone, T> draw()
    {
        if constexpr (sizeof(T) == 1) {
            return {toElement(step())};
        } else if constexpr (sizeof(T) == 2) {
            const unsigned int first = step();
            return {toElement((first << 1) + (step() & 1))};
        } else {
            return {toElement(drawWord())};
        }
    }

    /// A raw number of 32 bits, out of three draws.
    ORLIX_SIMD_INLINE unsigned int drawWord()
    {
        const unsigned int first = step();
        const unsigned int second = step();
        return (first << 17) + (second << 2) + (step() & 3);
    }
    ORLIX_SIMD_INLINE float toReal(unsigned int raw) const { return static_cast<float>(raw * scale + offset); }

private:
    /// The bits of the next draw.
    ORLIX_SIMD_INLINE unsigned int step()
    {
        state = stepOfLane(0)(state);
        return details::usefulBits(state);
    }
    ORLIX_SIMD_INLINE T toElement(unsigned int raw) const
    {
        if constexpr (std::is_same_v<T, float>) {
            return toReal(raw);
        } else {
            const double scaled = raw * scale;
            const long whole = static_cast<long>(scaled);
            const long below = whole - (scaled < static_cast<double>(whole) ? 1 : 0); // rounded down, also below 0
            return static_cast<T>(below + static_cast<long>(offset));
        }
    }
};

} // namespace orlix::simd
