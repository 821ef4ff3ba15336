// 32-bit elements as doubles, half a register at a time.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"

namespace orlix::simd {

namespace details {

template <eInstructionSet::domain I>
struct DoubleSteps;

/// `lower` and `upper` of 32-bit registers give theirs, of whole numbers as the instruction set reads them: with a
/// sign.
template <>
struct DoubleSteps<eInstructionSet::eSSE2>
{
    static ORLIX_SIMD_INLINE __m128d lowerReals(__m128i bits) { return _mm_cvtps_pd(_mm_castsi128_ps(bits)); }
    static ORLIX_SIMD_INLINE __m128d upperReals(__m128i bits) { return lowerReals(_mm_unpackhi_epi64(bits, bits)); }
    static ORLIX_SIMD_INLINE __m128d lowerNumbers(__m128i bits) { return _mm_cvtepi32_pd(bits); }
    static ORLIX_SIMD_INLINE __m128d upperNumbers(__m128i bits) { return lowerNumbers(_mm_unpackhi_epi64(bits, bits)); }
};

#ifdef __AVX2__
template <>
struct DoubleSteps<eInstructionSet::eAVX2>
{
    static ORLIX_SIMD_INLINE __m256d lowerReals(__m256i bits)
    {
        return _mm256_cvtps_pd(_mm_castsi128_ps(_mm256_castsi256_si128(bits)));
    }
    static ORLIX_SIMD_INLINE __m256d upperReals(__m256i bits)
    {
        return _mm256_cvtps_pd(_mm_castsi128_ps(_mm256_extracti128_si256(bits, 1)));
    }
    static ORLIX_SIMD_INLINE __m256d lowerNumbers(__m256i bits)
    {
        return _mm256_cvtepi32_pd(_mm256_castsi256_si128(bits));
    }
    static ORLIX_SIMD_INLINE __m256d upperNumbers(__m256i bits)
    {
        return _mm256_cvtepi32_pd(_mm256_extracti128_si256(bits, 1));
    }
};
#endif

#if defined __AVX512F__ && defined __AVX512DQ__
template <>
struct DoubleSteps<eInstructionSet::eAVX512>
{
    static ORLIX_SIMD_INLINE __m512d lowerReals(__m512i bits)
    {
        return _mm512_cvtps_pd(_mm256_castsi256_ps(_mm512_castsi512_si256(bits)));
    }
    static ORLIX_SIMD_INLINE __m512d upperReals(__m512i bits)
    {
        return _mm512_cvtps_pd(_mm256_castsi256_ps(_mm512_extracti64x4_epi64(bits, 1)));
    }
    static ORLIX_SIMD_INLINE __m512d lowerNumbers(__m512i bits)
    {
        return _mm512_cvtepi32_pd(_mm512_castsi512_si256(bits));
    }
    static ORLIX_SIMD_INLINE __m512d upperNumbers(__m512i bits)
    {
        return _mm512_cvtepi32_pd(_mm512_extracti64x4_epi64(bits, 1));
    }
};
#endif

} // namespace details

/// The lower or the upper half of a register of `I` full of floats, ints or unsigned ints, as doubles; exact.
template <eInstructionSet::domain I, bool bUpper, class T, unsigned long nbHalf = Register<I>::s_nbBytes / 8>
ORLIX_SIMD_INLINE Lanes<double, nbHalf> widenToDouble(const Lanes<T, 2 * nbHalf>& lanes)
{
    using Steps = details::DoubleSteps<I>;
    const auto widen = [](const auto& bits) ORLIX_SIMD_LAMBDA {
        if constexpr (std::is_same_v<T, float>) {
            return bUpper ? Steps::upperReals(bits) : Steps::lowerReals(bits);
        } else {
            return bUpper ? Steps::upperNumbers(bits) : Steps::lowerNumbers(bits);
        }
    };
    if constexpr (std::is_same_v<T, unsigned int>) {
        const Lanes<T, 2 * nbHalf> moved = lanes ^ 0x80000000U; // 2^31 less, with a sign
        return __builtin_bit_cast(Lanes<double, nbHalf>, widen(Register<I>::load(&moved).m_bits)) + 0x1p31;
    } else {
        return __builtin_bit_cast(Lanes<double, nbHalf>, widen(Register<I>::load(&lanes).m_bits));
    }
}

} // namespace orlix::simd
