// The steps of a conversion with AVX2. It packs each half of a register by itself, so elements need to be put in order.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSteps_sse2.h"

#ifdef __AVX2__

namespace orlix::imaproc::util::details {

template <>
struct ConvertSteps<eInstructionSet::eAVX2>
{
    template <class T>
    using Pack = simd::Pack<eInstructionSet::eAVX2, T>;

    template <class THalf>
    static ORLIX_SIMD_INLINE __m256i pack32(__m256i first, __m256i second)
    {
        return std::is_signed_v<THalf> ? _mm256_packs_epi32(first, second) : _mm256_packus_epi32(first, second);
    }
    template <class TByte>
    static ORLIX_SIMD_INLINE __m256i pack16(__m256i first, __m256i second)
    {
        return std::is_signed_v<TByte> ? _mm256_packs_epi16(first, second) : _mm256_packus_epi16(first, second);
    }
    static ORLIX_SIMD_INLINE __m256i orderAfterOne(__m256i bits)
    {
        return _mm256_permute4x64_epi64(bits, _MM_SHUFFLE(3, 1, 2, 0));
    }
    static ORLIX_SIMD_INLINE __m256i orderAfterTwo(__m256i bits)
    {
        return _mm256_permutevar8x32_epi32(bits, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }

    /// Sign extension of a signed type, zero extension of an unsigned one. A load of each register's own part is
    /// cheaper than taking one register apart.
    template <class TTo, class TFrom>
    static ORLIX_SIMD_INLINE Pack<TTo> widen(const TFrom* from)
    {
        Pack<TTo> to;
        for (unsigned long r = 0; r < to.s_nbRegisters; ++r) {
            to.m_registers[r] = {widenRegister<TTo>(from + r * to.s_nbPerRegister)};
        }
        return to;
    }

    static ORLIX_SIMD_INLINE Pack<float> toFloat(const Pack<int>& from)
    {
        Pack<float> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            to.m_registers[r] = {_mm256_castps_si256(_mm256_cvtepi32_ps(from.m_registers[r].m_bits))};
        }
        return to;
    }
    /// Both halves are exact, and so is the product: only the sum rounds.
    static ORLIX_SIMD_INLINE Pack<float> toFloat(const Pack<unsigned int>& from)
    {
        Pack<float> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m256i bits = from.m_registers[r].m_bits;
            const __m256 high = _mm256_cvtepi32_ps(_mm256_srli_epi32(bits, 16));
            const __m256 low = _mm256_cvtepi32_ps(_mm256_and_si256(bits, _mm256_set1_epi32(0xFFFF)));
            const __m256 sum = _mm256_add_ps(_mm256_mul_ps(high, _mm256_set1_ps(65536.0F)), low);
            to.m_registers[r] = {_mm256_castps_si256(sum)};
        }
        return to;
    }

    /// To int: -2^31 for NaN and what is out of range. To unsigned int: 0 for these.
    template <class TTo>
    static ORLIX_SIMD_INLINE Pack<TTo> truncate(const Pack<float>& from)
    {
        Pack<TTo> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m256 value = _mm256_castsi256_ps(from.m_registers[r].m_bits);
            to.m_registers[r] = {std::is_signed_v<TTo> ? _mm256_cvttps_epi32(value) : truncateUnsigned(value)};
        }
        return to;
    }

    /// 1 in every byte above 0, else 0.
    static ORLIX_SIMD_INLINE __m256i positive(__m256i bytes)
    {
        return _mm256_and_si256(_mm256_cmpgt_epi8(bytes, _mm256_setzero_si256()), _mm256_set1_epi8(1));
    }
    /// 1 in every byte that is not 0, else 0.
    static ORLIX_SIMD_INLINE __m256i notZero(__m256i bytes) { return _mm256_min_epu8(bytes, _mm256_set1_epi8(1)); }
    /// 1 where the value is 1.0 or more, 0 for NaN.
    static ORLIX_SIMD_INLINE Pack<unsigned char> atLeastOne(const Pack<float>& from)
    {
        __m256i reached[from.s_nbRegisters];
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m256 value = _mm256_castsi256_ps(from.m_registers[r].m_bits);
            reached[r] = _mm256_castps_si256(_mm256_cmp_ps(value, _mm256_set1_ps(1.0F), _CMP_GE_OQ));
        }
        const __m256i bytes =
            _mm256_packs_epi16(_mm256_packs_epi32(reached[0], reached[1]), _mm256_packs_epi32(reached[2], reached[3]));
        return {{{_mm256_and_si256(orderAfterTwo(bytes), _mm256_set1_epi8(1))}}};
    }

private:
    template <class TTo, class TFrom>
    static ORLIX_SIMD_INLINE __m256i widenRegister(const TFrom* from)
    {
        constexpr bool bSigned = std::is_signed_v<TFrom>;
        if constexpr (sizeof(TTo) == 4 * sizeof(TFrom)) {
            const __m128i bits = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
            return bSigned ? _mm256_cvtepi8_epi32(bits) : _mm256_cvtepu8_epi32(bits);
        } else {
            const __m128i bits = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
            if constexpr (sizeof(TFrom) == 1) {
                return bSigned ? _mm256_cvtepi8_epi16(bits) : _mm256_cvtepu8_epi16(bits);
            } else {
                return bSigned ? _mm256_cvtepi16_epi32(bits) : _mm256_cvtepu16_epi32(bits);
            }
        }
    }

    /// 0 for NaN, negative values and what is too large. From 2^31 upwards the plain truncation gives 2^31, to which
    /// the rest is joined; from 2^32 upwards the rest gives 2^31, too, and cancels it.
    static ORLIX_SIMD_INLINE __m256i truncateUnsigned(__m256 value)
    {
        const __m256 positive = _mm256_max_ps(value, _mm256_setzero_ps()); // NaN gives the second operand
        const __m256i low = _mm256_cvttps_epi32(positive);
        const __m256i rest = _mm256_cvttps_epi32(_mm256_sub_ps(positive, _mm256_set1_ps(2147483648.0F)));
        return _mm256_xor_si256(low, _mm256_and_si256(rest, _mm256_srai_epi32(low, 31)));
    }
};

} // namespace orlix::imaproc::util::details

#endif
