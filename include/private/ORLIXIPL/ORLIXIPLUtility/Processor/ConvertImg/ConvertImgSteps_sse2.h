// The steps of a conversion with SSE2.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"

namespace orlix::imaproc::util::details {

/// The steps of a conversion, set by set. `pack32` and `pack16` narrow two registers to one; one or two such steps
/// later `orderAfterOne` or `orderAfterTwo` puts the elements in order.
template <eInstructionSet::domain I>
struct ConvertSteps;

template <>
struct ConvertSteps<eInstructionSet::eSSE2>
{
    template <class T>
    using Pack = simd::Pack<eInstructionSet::eSSE2, T>;

    /// SSE2 can't clamp to unsigned 16 bits, so it keeps the low ones: 70000 gives 4464, -1 gives 65535.
    template <class THalf>
    static ORLIX_SIMD_INLINE __m128i pack32(__m128i first, __m128i second)
    {
        return std::is_signed_v<THalf> ? _mm_packs_epi32(first, second)
                                       : _mm_packs_epi32(extendLow16(first), extendLow16(second));
    }
    template <class TByte>
    static ORLIX_SIMD_INLINE __m128i pack16(__m128i first, __m128i second)
    {
        return std::is_signed_v<TByte> ? _mm_packs_epi16(first, second) : _mm_packus_epi16(first, second);
    }
    static ORLIX_SIMD_INLINE __m128i orderAfterOne(__m128i bits) { return bits; }
    static ORLIX_SIMD_INLINE __m128i orderAfterTwo(__m128i bits) { return bits; }

    /// Sign extension of a signed type, zero extension of an unsigned one.
    template <class TTo, class TFrom>
    static ORLIX_SIMD_INLINE Pack<TTo> widen(const TFrom* from)
    {
        return widenPack<TTo>(Pack<TFrom>::load(from));
    }

    static ORLIX_SIMD_INLINE Pack<float> toFloat(const Pack<int>& from)
    {
        Pack<float> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            to.m_registers[r] = {_mm_castps_si128(_mm_cvtepi32_ps(from.m_registers[r].m_bits))};
        }
        return to;
    }
    /// Both halves are exact, and so is the product: only the sum rounds.
    static ORLIX_SIMD_INLINE Pack<float> toFloat(const Pack<unsigned int>& from)
    {
        Pack<float> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m128i bits = from.m_registers[r].m_bits;
            const __m128 high = _mm_cvtepi32_ps(_mm_srli_epi32(bits, 16));
            const __m128 low = _mm_cvtepi32_ps(_mm_and_si128(bits, _mm_set1_epi32(0xFFFF)));
            to.m_registers[r] = {_mm_castps_si128(_mm_add_ps(_mm_mul_ps(high, _mm_set1_ps(65536.0F)), low))};
        }
        return to;
    }

    /// To int: -2^31 for NaN and what is out of range. To unsigned int: 0 for these.
    template <class TTo>
    static ORLIX_SIMD_INLINE Pack<TTo> truncate(const Pack<float>& from)
    {
        Pack<TTo> to;
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m128 value = _mm_castsi128_ps(from.m_registers[r].m_bits);
            to.m_registers[r] = {std::is_signed_v<TTo> ? _mm_cvttps_epi32(value) : truncateUnsigned(value)};
        }
        return to;
    }

    /// 1 in every byte above 0, else 0.
    static ORLIX_SIMD_INLINE __m128i positive(__m128i bytes)
    {
        return _mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_setzero_si128()), _mm_set1_epi8(1));
    }
    /// 1 in every byte that is not 0, else 0.
    static ORLIX_SIMD_INLINE __m128i notZero(__m128i bytes) { return _mm_min_epu8(bytes, _mm_set1_epi8(1)); }
    /// 1 where the value is 1.0 or more, 0 for NaN.
    static ORLIX_SIMD_INLINE Pack<unsigned char> atLeastOne(const Pack<float>& from)
    {
        __m128i reached[from.s_nbRegisters];
        for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
            const __m128 value = _mm_castsi128_ps(from.m_registers[r].m_bits);
            reached[r] = _mm_castps_si128(_mm_cmpge_ps(value, _mm_set1_ps(1.0F)));
        }
        const __m128i bytes =
            _mm_packs_epi16(_mm_packs_epi32(reached[0], reached[1]), _mm_packs_epi32(reached[2], reached[3]));
        return {{{_mm_and_si128(bytes, _mm_set1_epi8(1))}}};
    }

private:
    static ORLIX_SIMD_INLINE __m128i extendLow16(__m128i bits) { return _mm_srai_epi32(_mm_slli_epi32(bits, 16), 16); }

    template <class TTo, class TFrom>
    static ORLIX_SIMD_INLINE Pack<TTo> widenPack(const Pack<TFrom>& from)
    {
        if constexpr (sizeof(TTo) == 4 * sizeof(TFrom)) {
            using Half = std::conditional_t<std::is_signed_v<TFrom>, short, unsigned short>;
            return widenPack<TTo>(widenPack<Half>(from));
        } else {
            Pack<TTo> to;
            for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
                const __m128i bits = from.m_registers[r].m_bits;
                const __m128i above = std::is_signed_v<TFrom> ? bits : _mm_setzero_si128();
                if constexpr (sizeof(TFrom) == 1) {
                    to.m_registers[2 * r] = {extend<TFrom>(_mm_unpacklo_epi8(bits, above))};
                    to.m_registers[2 * r + 1] = {extend<TFrom>(_mm_unpackhi_epi8(bits, above))};
                } else {
                    to.m_registers[2 * r] = {extend<TFrom>(_mm_unpacklo_epi16(bits, above))};
                    to.m_registers[2 * r + 1] = {extend<TFrom>(_mm_unpackhi_epi16(bits, above))};
                }
            }
            return to;
        }
    }
    /// The elements stand in the upper halves of `interleaved`, too, where they are signed.
    template <class TFrom>
    static ORLIX_SIMD_INLINE __m128i extend(__m128i interleaved)
    {
        if constexpr (!std::is_signed_v<TFrom>) {
            return interleaved;
        } else {
            return sizeof(TFrom) == 1 ? _mm_srai_epi16(interleaved, 8) : _mm_srai_epi32(interleaved, 16);
        }
    }

    /// 0 for NaN, negative values and what is too large. From 2^31 upwards the plain truncation gives 2^31, to which
    /// the rest is joined; from 2^32 upwards the rest gives 2^31, too, and cancels it.
    static ORLIX_SIMD_INLINE __m128i truncateUnsigned(__m128 value)
    {
        const __m128 positive = _mm_max_ps(value, _mm_setzero_ps()); // NaN gives the second operand
        const __m128i low = _mm_cvttps_epi32(positive);
        const __m128i rest = _mm_cvttps_epi32(_mm_sub_ps(positive, _mm_set1_ps(2147483648.0F)));
        return _mm_xor_si128(low, _mm_and_si128(rest, _mm_srai_epi32(low, 31)));
    }
};

} // namespace orlix::imaproc::util::details
