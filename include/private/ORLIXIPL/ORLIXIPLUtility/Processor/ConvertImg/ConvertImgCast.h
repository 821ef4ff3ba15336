// How elements of one type become another: the steps that all instruction sets share, over those that each has of its
// own.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSteps_avx2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSteps_avx512.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSteps_sse2.h"

namespace orlix::imaproc::util::details {

template <class T>
using SignedOf = std::conditional_t<sizeof(T) == 1, signed char, std::conditional_t<sizeof(T) == 2, short, int>>;

/// The same bits, taken for another type of the same width.
template <class TTo, eInstructionSet::domain I, class TFrom>
ORLIX_SIMD_INLINE simd::Pack<I, TTo> takeFor(const simd::Pack<I, TFrom>& from)
{
    static_assert(sizeof(TTo) == sizeof(TFrom));
    simd::Pack<I, TTo> to;
    for (unsigned long r = 0; r < from.s_nbRegisters; ++r) {
        to.m_registers[r] = from.m_registers[r];
    }
    return to;
}

/// 16 bits to 8, clamped to the range of `TTo`. An unsigned source is read as signed.
template <class TTo, eInstructionSet::domain I>
ORLIX_SIMD_INLINE simd::Pack<I, TTo> narrow(const simd::Pack<I, short>& from)
{
    using Steps = ConvertSteps<I>;
    return {
        {{Steps::orderAfterOne(Steps::template pack16<TTo>(from.m_registers[0].m_bits, from.m_registers[1].m_bits))}}};
}

/// 32 bits to 16, by the rule of the instruction set; to 8 bits by way of 16 of the same sign, whose bits the second
/// step reads as signed. So where 40000 stays 40000 in 16 bits it gives 0 in an unsigned char.
template <class TTo, eInstructionSet::domain I>
ORLIX_SIMD_INLINE simd::Pack<I, TTo> narrow(const simd::Pack<I, int>& from)
{
    using Steps = ConvertSteps<I>;
    using Half = std::conditional_t<std::is_signed_v<TTo>, short, unsigned short>;
    const auto first = Steps::template pack32<Half>(from.m_registers[0].m_bits, from.m_registers[1].m_bits);
    const auto second = Steps::template pack32<Half>(from.m_registers[2].m_bits, from.m_registers[3].m_bits);
    if constexpr (sizeof(TTo) == 2) {
        return {{{Steps::orderAfterOne(first)}, {Steps::orderAfterOne(second)}}};
    } else {
        return {{{Steps::orderAfterTwo(Steps::template pack16<TTo>(first, second))}}};
    }
}

/// A plain element without its fraction, which keeps the low bits of what does not fit. By instruction, since the
/// language leaves open what is out of range: -2^31, and for an unsigned int, which is truncated to 64 bits first,
/// -2^63.
template <class TOut>
ORLIX_SIMD_INLINE TOut truncateElement(float value)
{
    if constexpr (std::is_same_v<TOut, unsigned int>) {
        return static_cast<TOut>(_mm_cvttss_si64(_mm_set_ss(value)));
    } else {
        return static_cast<TOut>(_mm_cvttss_si32(_mm_set_ss(value)));
    }
}

/// The rule of every output but a binary one: casts the pack at `from`, a single element in plain code.
template <class TIn, class TOut, eInstructionSet::domain I>
ORLIX_SIMD_INLINE simd::Pack<I, TOut> castGeneric(const TIn* from)
{
    if constexpr (I == eInstructionSet::eNone) {
        if constexpr (std::is_same_v<TIn, float> && !std::is_same_v<TOut, float>) {
            return {truncateElement<TOut>(*from)};
        } else {
            return {static_cast<TOut>(*from)};
        }
    } else {
        using Steps = ConvertSteps<I>;
        using In = simd::Pack<I, TIn>;
        if constexpr (std::is_same_v<TIn, TOut>) {
            return In::load(from);
        } else if constexpr (std::is_same_v<TIn, float>) {
            if constexpr (sizeof(TOut) == 4) {
                return Steps::template truncate<TOut>(In::load(from));
            } else {
                return narrow<TOut>(Steps::template truncate<int>(In::load(from)));
            }
        } else if constexpr (std::is_same_v<TOut, float>) {
            if constexpr (sizeof(TIn) == 4) {
                return Steps::toFloat(In::load(from));
            } else {
                return Steps::toFloat(Steps::template widen<int>(from));
            }
        } else if constexpr (sizeof(TIn) < sizeof(TOut)) {
            return takeFor<TOut>(Steps::template widen<SignedOf<TOut>>(from));
        } else if constexpr (sizeof(TIn) == sizeof(TOut)) {
            return takeFor<TOut>(In::load(from));
        } else {
            return narrow<TOut>(takeFor<SignedOf<TIn>>(In::load(from)));
        }
    }
}

template <class T, eInstructionSet::domain I>
ORLIX_SIMD_INLINE simd::Pack<I, signed char> toBytes(const simd::Pack<I, T>& in)
{
    if constexpr (sizeof(T) == 1) {
        return in;
    } else {
        return narrow<signed char>(in);
    }
}

/// The rule of a binary output: 1 where the element is at least 1, else 0.
template <class TIn, class TOut, eInstructionSet::domain I>
ORLIX_SIMD_INLINE simd::Pack<I, TOut> castBinary(const TIn* from)
{
    static_assert(std::is_same_v<TOut, unsigned char>);
    if constexpr (I == eInstructionSet::eNone) {
        return {static_cast<unsigned char>(*from >= TIn{1})};
    } else {
        using Steps = ConvertSteps<I>;
        const simd::Pack<I, TIn> in = simd::Pack<I, TIn>::load(from);
        if constexpr (std::is_same_v<TIn, float>) {
            return Steps::atLeastOne(in);
        } else {
            // Clamping from signed to signed keeps the sign, and nothing but 0 becomes 0.
            const simd::Pack<I, signed char> bytes = toBytes(takeFor<SignedOf<TIn>>(in));
            return {{{std::is_signed_v<TIn> ? Steps::positive(bytes.m_registers[0].m_bits)
                                            : Steps::notZero(bytes.m_registers[0].m_bits)}}};
        }
    }
}

} // namespace orlix::imaproc::util::details
