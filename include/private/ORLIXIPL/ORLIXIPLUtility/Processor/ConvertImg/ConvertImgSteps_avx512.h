// The steps of a conversion with AVX512. It packs each quarter of a register by itself, so elements need to be put in
// order.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSteps_sse2.h"

#if defined __AVX512F__ && defined __AVX512BW__ && defined __AVX512DQ__ && defined __AVX512VL__

namespace orlix::imaproc::util::details {

template <>
struct ConvertSteps<eInstructionSet::eAVX512>
{
    template <class T>
    using Pack = simd::Pack<eInstructionSet::eAVX512, T>;

    template <class THalf>
    static ORLIX_SIMD_INLINE __m512i pack32(__m512i first, __m512i second)
    {
        return std::is_signed_v<THalf> ? _mm512_packs_epi32(first, second) : _mm512_packus_epi32(first, second);
    }
    template <class TByte>
    static ORLIX_SIMD_INLINE __m512i pack16(__m512i first, __m512i second)
    {
        return std::is_signed_v<TByte> ? _mm512_packs_epi16(first, second) : _mm512_packus_epi16(first, second);
    }
    static ORLIX_SIMD_INLINE __m512i orderAfterOne(__m512i bits)
    {
        return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), bits);
    }
    static ORLIX_SIMD_INLINE __m512i orderAfterTwo(__m512i bits)
    {
        return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), bits);
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

    template <class TFrom>
    static ORLIX_SIMD_INLINE Pack<float> toFloat(const Pack<TFrom>& from)
    {
        Pack<float> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m512i bits = from.m_registers[r].m_bits;
            to.m_registers[r] = {
                _mm512_castps_si512(std::is_signed_v<TFrom> ? _mm512_cvtepi32_ps(bits) : _mm512_cvtepu32_ps(bits))};
        }
        return to;
    }

    /// To int: -2^31 for NaN and what is out of range. To unsigned int: 2^32 - 1 for these.
    template <class TTo>
    static ORLIX_SIMD_INLINE Pack<TTo> truncate(const Pack<float>& from)
    {
        Pack<TTo> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m512 value = _mm512_castsi512_ps(from.m_registers[r].m_bits);
            to.m_registers[r] = {std::is_signed_v<TTo> ? _mm512_cvttps_epi32(value) : _mm512_cvttps_epu32(value)};
        }
        return to;
    }

    /// 1 in every byte above 0, else 0.
    static ORLIX_SIMD_INLINE __m512i positive(__m512i bytes)
    {
        return notZero(_mm512_max_epi8(bytes, _mm512_setzero_si512()));
    }
    /// 1 in every byte that is not 0, else 0.
    static ORLIX_SIMD_INLINE __m512i notZero(__m512i bytes) { return _mm512_min_epu8(bytes, _mm512_set1_epi8(1)); }
    /// 1 where the value is not below 1.0, so also for NaN, which the other sets take for 0.
    static ORLIX_SIMD_INLINE Pack<unsigned char> atLeastOne(const Pack<float>& from)
    {
        __mmask64 reached = 0;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m512 value = _mm512_castsi512_ps(from.m_registers[r].m_bits);
            const __mmask64 mask = _mm512_cmp_ps_mask(value, _mm512_set1_ps(1.0F), _CMP_NLT_UQ);
            reached |= mask << (16 * r);
        }
        return {{{_mm512_maskz_set1_epi8(reached, 1)}}};
    }

private:
    template <class TTo, class TFrom>
    static ORLIX_SIMD_INLINE __m512i widenRegister(const TFrom* from)
    {
        constexpr bool bSigned = std::is_signed_v<TFrom>;
        if constexpr (sizeof(TTo) == 4 * sizeof(TFrom)) {
            const __m128i bits = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
            return bSigned ? _mm512_cvtepi8_epi32(bits) : _mm512_cvtepu8_epi32(bits);
        } else {
            const __m256i bits = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
            if constexpr (sizeof(TFrom) == 1) {
                return bSigned ? _mm512_cvtepi8_epi16(bits) : _mm512_cvtepu8_epi16(bits);
            } else {
                return bSigned ? _mm512_cvtepi16_epi32(bits) : _mm512_cvtepu16_epi32(bits);
            }
        }
    }
};

} // namespace orlix::imaproc::util::details

#endif
