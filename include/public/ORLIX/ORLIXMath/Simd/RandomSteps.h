// What random elements are made with that the operators of the language lack, one instruction set after the other.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Lanes.h"

namespace orlix::simd {

/// Under each set, `Words`, `Reals` and `Doubles` fill a register with 32-bit integers, floats and doubles, and
/// - `cut` drops the fraction of floats from 0 on, as elements of type T want it,
/// - `cutDoubles` that of doubles from 0 to 2^32,
/// - `round` and `roundPair` give the nearest integer, an even one between two,
/// - `realPair` gives floats, `root` the square root,
/// - `narrowBytes` and `narrowShorts` make 8-bit elements of four registers and 16-bit ones of two, in that order,
/// - `upperHalves` gives the upper 16 bits of the words of two registers, part by part in turn; `orderHalves` puts such
///   in order, `narrowHalves` makes 8-bit elements of two of them,
/// - `upperPairs`, from AVX2 on, gives the upper 16 bits of the words of `a` above those of `b`; `orderBytes` all bytes
/// 2
///   of words, then all bytes 0, 3 and 1,
/// - `multiplyEven` gives the 64 bits of the products of every other word, from the first on.
/// What an integer can't hold becomes what the processor's conversions give. Defined only in files that are compiled
/// for `I`.
template <eInstructionSet::domain I>
struct RandomSteps;

template <>
struct RandomSteps<eInstructionSet::eSSE2>
{
    using Words = __m128i;
    using Reals = __m128;
    using Doubles = __m128d;

    template <class T>
    static ORLIX_SIMD_INLINE Reals cut(Reals x)
    {
        return _mm_cvtepi32_ps(_mm_cvttps_epi32(x));
    }
    /// A conversion reaches 2^31 only. Beyond, doubles have less than 2^-20 behind the point, and adding 2^52 rounds.
    static ORLIX_SIMD_INLINE Doubles cutDoubles(Doubles x)
    {
        const Doubles low = _mm_cvtepi32_pd(_mm_cvttpd_epi32(x));
        const Doubles point = _mm_set1_pd(0x1p52);
        const Doubles rounded = _mm_sub_pd(_mm_add_pd(x, point), point);
        const Doubles above = _mm_and_pd(_mm_cmpgt_pd(rounded, x), _mm_set1_pd(1));
        const Doubles bHigh = _mm_cmpgt_pd(x, _mm_set1_pd(2147483647.0));
        return _mm_or_pd(_mm_and_pd(bHigh, _mm_sub_pd(rounded, above)), _mm_andnot_pd(bHigh, low));
    }
    static ORLIX_SIMD_INLINE Words round(Reals x) { return _mm_cvtps_epi32(x); }
    static ORLIX_SIMD_INLINE Words roundPair(Doubles lower, Doubles upper)
    {
        return _mm_unpacklo_epi64(_mm_cvtpd_epi32(lower), _mm_cvtpd_epi32(upper));
    }
    static ORLIX_SIMD_INLINE Reals realPair(Doubles lower, Doubles upper)
    {
        return _mm_movelh_ps(_mm_cvtpd_ps(lower), _mm_cvtpd_ps(upper));
    }
    static ORLIX_SIMD_INLINE Reals root(Reals x) { return _mm_sqrt_ps(x); }

    template <class T>
    static ORLIX_SIMD_INLINE Words narrowBytes(Words a, Words b, Words c, Words d)
    {
        return narrowHalves<T>(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d));
    }
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowHalves(Words ab, Words cd)
    {
        return std::is_same_v<T, signed char> ? _mm_packs_epi16(ab, cd) : _mm_packus_epi16(ab, cd);
    }
    /// Unsigned elements keep the low 16 bits: the set has no pack that saturates them.
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowShorts(Words a, Words b)
    {
        if constexpr (std::is_same_v<T, unsigned short>) {
            a = _mm_srai_epi32(_mm_slli_epi32(a, 16), 16);
            b = _mm_srai_epi32(_mm_slli_epi32(b, 16), 16);
        }
        return _mm_packs_epi32(a, b);
    }

    static ORLIX_SIMD_INLINE Words upperHalves(Words a, Words b)
    {
        return _mm_packs_epi32(_mm_srai_epi32(a, 16), _mm_srai_epi32(b, 16));
    }
    static ORLIX_SIMD_INLINE Words orderHalves(Words pairs) { return pairs; }
    static ORLIX_SIMD_INLINE Words multiplyEven(Words a, Words b) { return _mm_mul_epu32(a, b); }
};

#ifdef __AVX2__
template <>
struct RandomSteps<eInstructionSet::eAVX2>
{
    using Words = __m256i;
    using Reals = __m256;
    using Doubles = __m256d;

    template <class T>
    static ORLIX_SIMD_INLINE Reals cut(Reals x)
    {
        return sizeof(T) == 1 ? _mm256_floor_ps(x) : _mm256_cvtepi32_ps(_mm256_cvttps_epi32(x));
    }
    static ORLIX_SIMD_INLINE Doubles cutDoubles(Doubles x) { return _mm256_floor_pd(x); }
    static ORLIX_SIMD_INLINE Words round(Reals x) { return _mm256_cvtps_epi32(x); }
    static ORLIX_SIMD_INLINE Words roundPair(Doubles lower, Doubles upper)
    {
        return _mm256_set_m128i(_mm256_cvtpd_epi32(upper), _mm256_cvtpd_epi32(lower));
    }
    static ORLIX_SIMD_INLINE Reals realPair(Doubles lower, Doubles upper)
    {
        return _mm256_set_m128(_mm256_cvtpd_ps(upper), _mm256_cvtpd_ps(lower));
    }
    static ORLIX_SIMD_INLINE Reals root(Reals x) { return _mm256_sqrt_ps(x); }

    // Packs work on each half of the registers by itself, so their parts have to be put in order afterwards.
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowBytes(Words a, Words b, Words c, Words d)
    {
        return narrowHalves<T>(_mm256_packs_epi32(a, b), _mm256_packs_epi32(c, d));
    }
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowHalves(Words ab, Words cd)
    {
        const Words parts = std::is_same_v<T, signed char> ? _mm256_packs_epi16(ab, cd) : _mm256_packus_epi16(ab, cd);
        return _mm256_permutevar8x32_epi32(parts, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowShorts(Words a, Words b)
    {
        const Words parts = std::is_same_v<T, short> ? _mm256_packs_epi32(a, b) : _mm256_packus_epi32(a, b);
        return orderHalves(parts);
    }

    static ORLIX_SIMD_INLINE Words upperHalves(Words a, Words b)
    {
        return _mm256_packs_epi32(_mm256_srai_epi32(a, 16), _mm256_srai_epi32(b, 16));
    }
    static ORLIX_SIMD_INLINE Words orderHalves(Words pairs) { return _mm256_permute4x64_epi64(pairs, 0xD8); }
    static ORLIX_SIMD_INLINE Words upperPairs(Words a, Words b)
    {
        return _mm256_blend_epi16(_mm256_srli_epi32(b, 16), a, 0xAA);
    }
    static ORLIX_SIMD_INLINE Words orderBytes(Words words)
    {
        const __m128i order = _mm_setr_epi8(2, 6, 10, 14, 0, 4, 8, 12, 3, 7, 11, 15, 1, 5, 9, 13);
        const Words parts = _mm256_shuffle_epi8(words, _mm256_broadcastsi128_si256(order));
        return _mm256_permutevar8x32_epi32(parts, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }
    static ORLIX_SIMD_INLINE Words multiplyEven(Words a, Words b) { return _mm256_mul_epu32(a, b); }
};
#endif

#if defined __AVX512F__ && defined __AVX512BW__ && defined __AVX512DQ__
template <>
struct RandomSteps<eInstructionSet::eAVX512>
{
    using Words = __m512i;
    using Reals = __m512;
    using Doubles = __m512d;

    template <class T>
    static ORLIX_SIMD_INLINE Reals cut(Reals x)
    {
        return _mm512_roundscale_ps(x, _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
    }
    static ORLIX_SIMD_INLINE Doubles cutDoubles(Doubles x)
    {
        return _mm512_roundscale_pd(x, _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
    }
    static ORLIX_SIMD_INLINE Words round(Reals x) { return _mm512_cvtps_epi32(x); }
    static ORLIX_SIMD_INLINE Words roundPair(Doubles lower, Doubles upper)
    {
        return _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtpd_epi32(lower)), _mm512_cvtpd_epi32(upper), 1);
    }
    static ORLIX_SIMD_INLINE Reals realPair(Doubles lower, Doubles upper)
    {
        return _mm512_insertf32x8(_mm512_castps256_ps512(_mm512_cvtpd_ps(lower)), _mm512_cvtpd_ps(upper), 1);
    }
    static ORLIX_SIMD_INLINE Reals root(Reals x) { return _mm512_sqrt_ps(x); }

    template <class T>
    static ORLIX_SIMD_INLINE Words narrowBytes(Words a, Words b, Words c, Words d)
    {
        return narrowHalves<T>(_mm512_packs_epi32(a, b), _mm512_packs_epi32(c, d));
    }
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowHalves(Words ab, Words cd)
    {
        const Words parts = std::is_same_v<T, signed char> ? _mm512_packs_epi16(ab, cd) : _mm512_packus_epi16(ab, cd);
        return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), parts);
    }
    template <class T>
    static ORLIX_SIMD_INLINE Words narrowShorts(Words a, Words b)
    {
        const Words parts = std::is_same_v<T, short> ? _mm512_packs_epi32(a, b) : _mm512_packus_epi32(a, b);
        return orderHalves(parts);
    }

    static ORLIX_SIMD_INLINE Words upperHalves(Words a, Words b)
    {
        return _mm512_packs_epi32(_mm512_srai_epi32(a, 16), _mm512_srai_epi32(b, 16));
    }
    static ORLIX_SIMD_INLINE Words orderHalves(Words pairs)
    {
        return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), pairs);
    }
    static ORLIX_SIMD_INLINE Words upperPairs(Words a, Words b)
    {
        return _mm512_mask_blend_epi16(0xAAAAAAAA, _mm512_srli_epi32(b, 16), a);
    }
    static ORLIX_SIMD_INLINE Words orderBytes(Words words)
    {
        const __m128i order = _mm_setr_epi8(2, 6, 10, 14, 0, 4, 8, 12, 3, 7, 11, 15, 1, 5, 9, 13);
        const Words parts = _mm512_shuffle_epi8(words, _mm512_broadcast_i32x4(order));
        return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), parts);
    }
    static ORLIX_SIMD_INLINE Words multiplyEven(Words a, Words b) { return _mm512_mul_epu32(a, b); }
};
#endif

} // namespace orlix::simd
