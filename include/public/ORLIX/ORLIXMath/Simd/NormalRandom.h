// Normal random elements, in pairs, out of a uniform generator.
#pragma once

#include "ORLIX/ORLIXMath/Simd/NormalTransform.h"
#include "ORLIX/ORLIXMath/Simd/UniformRandomLCG.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"

namespace orlix::simd {

namespace details {

/// Factor and summand from raw numbers of 32 bits to the middles of 2^32 equal parts of (0, 1): the logarithm of none
/// is infinite, and a turn times them goes all the way round.
inline constexpr double g_unitScale = 0x1p-32;
inline constexpr double g_unitOffset = 0x1p-33;

template <unsigned long nbLanes>
struct NormalPair
{
    Lanes<float, nbLanes> first;
    Lanes<float, nbLanes> second;
};

/// Box and Muller's transform of two uniform numbers. `root` gives square roots.
template <unsigned long nbLanes, class TRoot>
ORLIX_SIMD_INLINE NormalPair<nbLanes> normalPair(const Lanes<float, nbLanes>& u1, const Lanes<float, nbLanes>& u2,
                                                 const Lanes<float, nbLanes>& mean, const Lanes<float, nbLanes>& stdDev,
                                                 const TRoot& root)
{
    const Lanes<float, nbLanes> l = logarithm<nbLanes>(u2);
    const Lanes<float, nbLanes> radius = root(l * -2.0F);
    const SineAndCosine<nbLanes> angle = sineAndCosine<nbLanes>(u1 * 6.2831855F);
    return {angle.cosine * radius * stdDev + mean, angle.sine * radius * stdDev + mean};
}

} // namespace details

/// A generator of elements of type T of a normal law, to be had on the stack of a kernel. `I` is the set that computes,
/// `IUniform` that of the uniform generator. `draw` gives the cosine halves of as many pairs as a pack has elements,
/// then their sine halves, which wait as `spare`. Integers round half away from zero and saturate.
template <eInstructionSet::domain IUniform, eInstructionSet::domain I, class T>
struct NormalRandom
{
    static_assert(IUniform == I, "no kernel takes its uniform numbers from another set");
    using Uniform = UniformRandomLCG<IUniform, float>;
    static constexpr unsigned long s_nbLanes = Uniform::s_nbLanes;
    /// So many elements come of `s_nbDraws` draws of each lane: two packs.
    static constexpr unsigned long s_nbElements = 2 * Pack<I, T>::s_nbElements;
    static constexpr unsigned long s_nbDraws = 24;
    using Words = typename Uniform::Words;
    using Reals = typename Uniform::Reals;

    Uniform uniform;
    Reals mean;
    Reals stdDev;
    bool spareReady = false;
    Pack<I, T> spare;

    /// States that no generator of the process had before.
    ORLIX_SIMD_INLINE NormalRandom(float meanOfAll, float stdDevOfAll) : uniform(0, 1) { init(meanOfAll, stdDevOfAll); }
    /// `states` has one for each lane.
    ORLIX_SIMD_INLINE NormalRandom(float meanOfAll, float stdDevOfAll, const unsigned int* states)
        : uniform(0, 1, states)
    {
        init(meanOfAll, stdDevOfAll);
    }

    /// The next elements, as many as a register has bytes.
    ORLIX_SIMD_INLINE Pack<I, T> draw()
    {
        spareReady = !spareReady;
        if (!spareReady) {
            return spare;
        }
        Reals first[4];
        Reals second[4];
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) {
            const Words before = uniform.state; // of all six draws, so that none waits for the one before
            uniform.state = after<6>(before);
            const Reals u1 = toUnit(after<1>(before), after<2>(before), after<3>(before));
            const Reals u2 = toUnit(after<4>(before), after<5>(before), uniform.state);
            const auto pair =
                details::normalPair<s_nbLanes>(u1, u2, mean, stdDev, [](const Reals& x) ORLIX_SIMD_LAMBDA {
                    return __builtin_bit_cast(Reals, Steps::root(__builtin_bit_cast(typename Steps::Reals, x)));
                });
            first[i] = pair.first;
            second[i] = pair.second;
        }
        spare = toElements(second);
        return toElements(first);
    }

private:
    using Steps = RandomSteps<I>;
    using Doubles = Lanes<double, s_nbLanes / 2>;

    ORLIX_SIMD_INLINE void init(float meanOfAll, float stdDevOfAll)
    {
        uniform.scale = Doubles{} + details::g_unitScale;
        uniform.offset = Doubles{} + details::g_unitOffset;
        mean = Reals{} + meanOfAll;
        stdDev = Reals{} + stdDevOfAll;
        spare = Pack<I, T>::broadcast(0);
    }

    template <unsigned long nbSteps>
    static ORLIX_SIMD_INLINE Words after(const Words& before)
    {
        return stepLanes<nbSteps, s_nbLanes>(before);
    }
    /// What `uniform.toReals` makes of the raw number of three draws, (raw + 1/2) / 2^32 rounded once, as a sum of two
    /// floats that are exact: 15 bits of it behind a 1, and 17 bits and the half behind a 2^-15.
    static ORLIX_SIMD_INLINE Reals toUnit(const Words& first, const Words& second, const Words& third)
    {
        const Words upper = (first >> 8 & 0x7FFF00U) ^ 0x3FC00000U; // the uppermost bit turned: it is read as a sign
        const Words lower = (second >> 8 & 0x7FFF00U) | (third >> 10 & 0xC0U) | 0x38000020U;
        return __builtin_bit_cast(Reals, upper) - (1.0F + 0x1p-15F) + __builtin_bit_cast(Reals, lower);
    }

    static ORLIX_SIMD_INLINE Pack<I, T> toElements(const Reals (&reals)[4])
    {
        if constexpr (std::is_same_v<T, float>) {
            return __builtin_bit_cast(Pack<I, T>, reals);
        } else if constexpr (sizeof(T) == 4) {
            return {{{toWords(reals[0])}, {toWords(reals[1])}, {toWords(reals[2])}, {toWords(reals[3])}}};
        } else if constexpr (sizeof(T) == 2) {
            return {{{Steps::template narrowShorts<T>(toWords(reals[0]), toWords(reals[1]))},
                     {Steps::template narrowShorts<T>(toWords(reals[2]), toWords(reals[3]))}}};
        } else {
            return {{{Steps::template narrowBytes<T>(toWords(reals[0]), toWords(reals[1]), toWords(reals[2]),
                                                     toWords(reals[3]))}}};
        }
    }
    /// Rounded and clamped; what is no number becomes the upper limit. No float lies between that of 32-bit integers
    /// and the power of 2 above it.
    static ORLIX_SIMD_INLINE typename Steps::Words toWords(const Reals& reals)
    {
        using Whole = std::conditional_t<std::is_same_v<T, unsigned int>, unsigned int, int>;
        using Wholes = Lanes<Whole, s_nbLanes>;
        const Words half = (__builtin_bit_cast(Words, reals) & 0x80000000U) | 0x3F000000U; // with the sign of `reals`
        const Reals moved = reals + __builtin_bit_cast(Reals, half);
        const Reals low = Reals{} + static_cast<float>(NumericLimits<T>::s_min);
        const Reals high = Reals{} + static_cast<float>(NumericLimits<T>::s_max);
        const Reals below = moved < high ? moved : sizeof(T) == 4 ? Reals{} : high;
        const Wholes whole = convertLanes<Whole, s_nbLanes>(below > low ? below : low);
        if constexpr (sizeof(T) == 4) {
            const Wholes largest = Wholes{} + NumericLimits<T>::s_max;
            return __builtin_bit_cast(typename Steps::Words, Wholes(moved < high ? whole : largest));
        } else {
            return __builtin_bit_cast(typename Steps::Words, whole);
        }
    }
};

/// Plain code makes one pair at a time.
template <class T>
struct NormalRandom<eInstructionSet::eNone, eInstructionSet::eNone, T>
{
    static constexpr unsigned long s_nbLanes = 1;
    static constexpr unsigned long s_nbElements = 2;
    static constexpr unsigned long s_nbDraws = 6;

    UniformRandomLCG<eInstructionSet::eNone, float> uniform;
    float mean;
    float stdDev;
    bool spareReady = false;
    T spare = 0;

    ORLIX_SIMD_INLINE NormalRandom(float meanOfAll, float stdDevOfAll)
        : uniform(0, 1), mean(meanOfAll), stdDev(stdDevOfAll)
    {
        init();
    }
    ORLIX_SIMD_INLINE NormalRandom(float meanOfAll, float stdDevOfAll, const unsigned int* states)
        : uniform(0, 1, states), mean(meanOfAll), stdDev(stdDevOfAll)
    {
        init();
    }

    ORLIX_SIMD_INLINE Pack<eInstructionSet::eNone, T> draw()
    {
        spareReady = !spareReady;
        if (!spareReady) {
            return {spare};
        }
        using Reals = Lanes<float, 1>;
        const Reals u1{uniform.toReal(uniform.drawWord())};
        const Reals u2{uniform.toReal(uniform.drawWord())};
        const auto pair =
            details::normalPair<1>(u1, u2, Reals{mean}, Reals{stdDev}, [](const Reals& x) ORLIX_SIMD_LAMBDA {
                return Reals{_mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(x[0])))};
            });
        spare = toElement(pair.second[0]);
        return {toElement(pair.first[0])};
    }

private:
    ORLIX_SIMD_INLINE void init()
    {
        uniform.scale = details::g_unitScale;
        uniform.offset = details::g_unitOffset;
    }
    /// What is no number becomes what the processor's conversion makes of it.
    static ORLIX_SIMD_INLINE T toElement(float real)
    {
        if constexpr (std::is_same_v<T, float>) {
            return real;
        } else {
            const double moved = real + (real < 0 ? -0.5F : 0.5F);
            if (moved > static_cast<double>(NumericLimits<T>::s_max)) {
                return NumericLimits<T>::s_max;
            }
            if (moved < static_cast<double>(NumericLimits<T>::s_min)) {
                return NumericLimits<T>::s_min;
            }
            const __m128d bits = _mm_set_sd(moved);
            return static_cast<T>(std::is_same_v<T, unsigned int> ? _mm_cvttsd_si64(bits) : _mm_cvttsd_si32(bits));
        }
    }
};

} // namespace orlix::simd
