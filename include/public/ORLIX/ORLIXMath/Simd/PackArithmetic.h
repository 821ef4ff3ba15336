// What kernels compute with packs: the operators of the field, element by element, the same under every instruction
// set.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"

namespace orlix::simd {

namespace details {

/// What whole numbers are computed in, so that a result that doesn't fit keeps its low bits: T without its sign.
template <class T>
struct WrappingOf
{
    using Type = std::make_unsigned_t<T>;
};
template <>
struct WrappingOf<float>
{
    using Type = float;
};
template <class T>
using Wrapping = typename WrappingOf<T>::Type;

/// `compute` on the elements of `TElement` of all registers, or on the one element of plain code. It is given lanes,
/// or elements, and gives some of the same type.
template <class TElement, eInstructionSet::domain I, class T, class TCompute, class... TPacks>
ORLIX_SIMD_INLINE Pack<I, T> forEachRegister(const TCompute& compute, const Pack<I, T>& first, const TPacks&... others)
{
    Pack<I, T> result;
    if constexpr (I == eInstructionSet::eNone) {
        result.m_value =
            static_cast<T>(compute(static_cast<TElement>(first.m_value), static_cast<TElement>(others.m_value)...));
    } else {
        using Numbers = Lanes<TElement, Pack<I, T>::s_nbPerRegister>;
        for (unsigned long r = 0; r < Pack<I, T>::s_nbRegisters; ++r) {
            const Numbers numbers = compute(__builtin_bit_cast(Numbers, first.m_registers[r]),
                                            __builtin_bit_cast(Numbers, others.m_registers[r])...);
            result.m_registers[r] = __builtin_bit_cast(Register<I>, numbers);
        }
    }
    return result;
}

} // namespace details

/// Sums, differences and products; of whole numbers the low bits where they don't fit. Never fused.
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE Pack<I, T> operator+(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<details::Wrapping<T>>(
        [](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x + y; }, a, b);
}
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE Pack<I, T> operator-(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<details::Wrapping<T>>(
        [](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x - y; }, a, b);
}
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE Pack<I, T> operator*(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<details::Wrapping<T>>(
        [](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA {
            if constexpr (sizeof(x) == 2) {
                return static_cast<unsigned>(x) * y; // two unsigned short would be multiplied as signed numbers
            } else {
                return x * y;
            }
        },
        a, b);
}

/// Bits of whole numbers.
template <eInstructionSet::domain I, class T>
requires(!std::is_same_v<T, float>) ORLIX_SIMD_INLINE Pack<I, T>
operator&(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<T>([](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x & y; }, a, b);
}
template <eInstructionSet::domain I, class T>
requires(!std::is_same_v<T, float>) ORLIX_SIMD_INLINE Pack<I, T>
operator|(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<T>([](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x | y; }, a, b);
}
template <eInstructionSet::domain I, class T>
requires(!std::is_same_v<T, float>) ORLIX_SIMD_INLINE Pack<I, T>
operator^(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<T>([](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x ^ y; }, a, b);
}
template <eInstructionSet::domain I, class T>
requires(!std::is_same_v<T, float>) ORLIX_SIMD_INLINE Pack<I, T>
operator~(const Pack<I, T>& a)
{
    return details::forEachRegister<T>([](const auto& x) ORLIX_SIMD_LAMBDA { return ~x; }, a);
}

/// The smaller and the larger of two elements. Where one is not a number, the second; of two zeros the second.
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE Pack<I, T> minimum(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<T>([](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x < y ? x : y; }, a,
                                       b);
}
template <eInstructionSet::domain I, class T>
ORLIX_SIMD_INLINE Pack<I, T> maximum(const Pack<I, T>& a, const Pack<I, T>& b)
{
    return details::forEachRegister<T>([](const auto& x, const auto& y) ORLIX_SIMD_LAMBDA { return x > y ? x : y; }, a,
                                       b);
}

} // namespace orlix::simd
