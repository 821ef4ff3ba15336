// Which elements of a pack lie between two bounds.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"

namespace orlix::simd {

namespace details {

/// One byte for each element of a pack from masks, registers of which every element is 0 or -1.
ORLIX_SIMD_INLINE Register<eInstructionSet::eSSE2> narrowMasks(const Pack<eInstructionSet::eSSE2, signed char>& masks)
{
    return masks.m_registers[0];
}
ORLIX_SIMD_INLINE Register<eInstructionSet::eSSE2> narrowMasks(const Pack<eInstructionSet::eSSE2, short>& masks)
{
    return {_mm_packs_epi16(masks.m_registers[0].m_bits, masks.m_registers[1].m_bits)};
}
ORLIX_SIMD_INLINE Register<eInstructionSet::eSSE2> narrowMasks(const Pack<eInstructionSet::eSSE2, int>& masks)
{
    return {_mm_packs_epi16(_mm_packs_epi32(masks.m_registers[0].m_bits, masks.m_registers[1].m_bits),
                            _mm_packs_epi32(masks.m_registers[2].m_bits, masks.m_registers[3].m_bits))};
}

#ifdef __AVX2__
ORLIX_SIMD_INLINE Register<eInstructionSet::eAVX2> narrowMasks(const Pack<eInstructionSet::eAVX2, signed char>& masks)
{
    return masks.m_registers[0];
}
// Narrowing works on each half of the registers by itself, so their parts have to be put in order afterwards.
ORLIX_SIMD_INLINE Register<eInstructionSet::eAVX2> narrowMasks(const Pack<eInstructionSet::eAVX2, short>& masks)
{
    const __m256i parts = _mm256_packs_epi16(masks.m_registers[0].m_bits, masks.m_registers[1].m_bits);
    return {_mm256_permute4x64_epi64(parts, 0xD8)};
}
ORLIX_SIMD_INLINE Register<eInstructionSet::eAVX2> narrowMasks(const Pack<eInstructionSet::eAVX2, int>& masks)
{
    const __m256i parts =
        _mm256_packs_epi16(_mm256_packs_epi32(masks.m_registers[0].m_bits, masks.m_registers[1].m_bits),
                           _mm256_packs_epi32(masks.m_registers[2].m_bits, masks.m_registers[3].m_bits));
    return {_mm256_permutevar8x32_epi32(parts, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7))};
}
#endif

} // namespace details

/// Made once from two bounds, both included; gives, for packs of elements, the byte 1 where an element lies between
/// them and 0 elsewhere. No NaN does, and where `low` is above `high` nothing does.
template <eInstructionSet::domain I, class T>
class RangeTest
{
    using Element = std::conditional_t<sizeof(T) == 1, signed char, std::conditional_t<sizeof(T) == 2, short, int>>;
    using Bits = std::make_unsigned_t<Element>;
    static constexpr unsigned long s_nbLanes = Pack<I, T>::s_nbPerRegister;
    static constexpr bool s_bReal = std::is_same_v<T, float>;

public:
    ORLIX_SIMD_INLINE RangeTest(T low, T high)
        : m_low(Pack<I, T>::broadcast(low).m_registers[0]), m_high(Pack<I, T>::broadcast(high).m_registers[0]),
          m_selected(Pack<I, unsigned char>::broadcast(low <= high ? 1 : 0).m_registers[0])
    {
        if constexpr (!s_bReal) {
            // Counted from `low`, the elements between the bounds are those up to a limit without a sign. The most
            // negative number added to both makes that a comparison with one, which every set has.
            constexpr Bits top = Bits(1) << (8 * sizeof(T) - 1);
            m_low = Pack<I, Bits>::broadcast(static_cast<Bits>(static_cast<Bits>(low) ^ top)).m_registers[0];
            m_high =
                Pack<I, Bits>::broadcast(static_cast<Bits>((static_cast<Bits>(high) - static_cast<Bits>(low)) ^ top))
                    .m_registers[0];
        }
    }

    ORLIX_SIMD_INLINE Pack<I, unsigned char> operator()(const Pack<I, T>& values) const
    {
        Pack<I, Element> masks;
        for (unsigned long r = 0; r < Pack<I, T>::s_nbRegisters; ++r) {
            const auto mask = maskOf(values.m_registers[r]);
            masks.m_registers[r] = Register<I>::load(&mask);
        }
        using Bytes = Lanes<unsigned char, Register<I>::s_nbBytes>;
        const Bytes narrow = __builtin_bit_cast(Bytes, details::narrowMasks(masks));
        const Bytes selected = __builtin_bit_cast(Bytes, m_selected);
        const Bytes bytes = s_bReal ? narrow & selected : ~narrow & selected;
        return {{__builtin_bit_cast(Register<I>, bytes)}};
    }

private:
    /// Of real numbers those between the bounds, of integers those that aren't: what takes the fewest instructions.
    ORLIX_SIMD_INLINE auto maskOf(const Register<I>& values) const
    {
        if constexpr (s_bReal) {
            using Real = Lanes<float, s_nbLanes>;
            const Real numbers = __builtin_bit_cast(Real, values);
            return (numbers >= __builtin_bit_cast(Real, m_low)) & (numbers <= __builtin_bit_cast(Real, m_high));
        } else {
            using Unsigned = Lanes<Bits, s_nbLanes>;
            using Signed = Lanes<Element, s_nbLanes>;
            const Unsigned counted = __builtin_bit_cast(Unsigned, values) - __builtin_bit_cast(Unsigned, m_low);
            return __builtin_bit_cast(Signed, counted) > __builtin_bit_cast(Signed, m_high);
        }
    }

    Register<I> m_low;
    Register<I> m_high;
    Register<I> m_selected; ///< the byte of elements between the bounds
};

/// Plain code tests element by element.
template <class T>
class RangeTest<eInstructionSet::eNone, T>
{
public:
    ORLIX_SIMD_INLINE RangeTest(T low, T high) : m_low(low), m_high(high) {}

    ORLIX_SIMD_INLINE Pack<eInstructionSet::eNone, unsigned char>
    operator()(const Pack<eInstructionSet::eNone, T>& value) const
    {
        return {static_cast<unsigned char>((value.m_value >= m_low) & (value.m_value <= m_high))};
    }

private:
    T m_low;
    T m_high;
};

#if defined __AVX512F__ && defined __AVX512BW__
/// Comparisons give one bit an element here.
template <class T>
class RangeTest<eInstructionSet::eAVX512, T>
{
    static constexpr auto I = eInstructionSet::eAVX512;
    using Bits = std::conditional_t<sizeof(T) == 1, unsigned char,
                                    std::conditional_t<sizeof(T) == 2, unsigned short, unsigned int>>;

public:
    ORLIX_SIMD_INLINE RangeTest(T low, T high)
        : m_low(Pack<I, T>::broadcast(low).m_registers[0]), m_high(Pack<I, T>::broadcast(high).m_registers[0]),
          m_selected(Pack<I, unsigned char>::broadcast(low <= high ? 1 : 0).m_registers[0])
    {
        if constexpr (!std::is_same_v<T, float>) { // counted from `low`, those between are those up to a limit
            m_high = Pack<I, Bits>::broadcast(static_cast<Bits>(static_cast<Bits>(high) - static_cast<Bits>(low)))
                         .m_registers[0];
        }
    }

    ORLIX_SIMD_INLINE Pack<I, unsigned char> operator()(const Pack<I, T>& values) const
    {
        return {{{_mm512_maskz_mov_epi8(bitsOf(values), m_selected.m_bits)}}};
    }

private:
    ORLIX_SIMD_INLINE __mmask64 bitsOf(const Pack<I, T>& values) const
    {
        const __m512i low = m_low.m_bits;
        const __m512i high = m_high.m_bits;
        const Register<I>* const registers = values.m_registers;
        if constexpr (sizeof(T) == 1) {
            return _mm512_cmple_epu8_mask(_mm512_sub_epi8(registers[0].m_bits, low), high);
        } else if constexpr (sizeof(T) == 2) {
            return _mm512_kunpackd(_mm512_cmple_epu16_mask(_mm512_sub_epi16(registers[1].m_bits, low), high),
                                   _mm512_cmple_epu16_mask(_mm512_sub_epi16(registers[0].m_bits, low), high));
        } else {
            return _mm512_kunpackd(_mm512_kunpackw(bitsOf(registers[3]), bitsOf(registers[2])),
                                   _mm512_kunpackw(bitsOf(registers[1]), bitsOf(registers[0])));
        }
    }
    ORLIX_SIMD_INLINE __mmask16 bitsOf(const Register<I>& values) const
    {
        if constexpr (std::is_same_v<T, float>) {
            const __m512 numbers = _mm512_castsi512_ps(values.m_bits);
            const __mmask16 notBelow = _mm512_cmp_ps_mask(numbers, _mm512_castsi512_ps(m_low.m_bits), _CMP_GE_OQ);
            return _mm512_mask_cmp_ps_mask(notBelow, numbers, _mm512_castsi512_ps(m_high.m_bits), _CMP_LE_OQ);
        } else {
            return _mm512_cmple_epu32_mask(_mm512_sub_epi32(values.m_bits, m_low.m_bits), m_high.m_bits);
        }
    }

    Register<I> m_low;
    Register<I> m_high;
    Register<I> m_selected; ///< the byte of elements between the bounds
};
#endif

} // namespace orlix::simd
