// Arithmetic of packs for every instruction set, in the form that kernels have.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackArithmetic.h"

namespace orlix::simd::test {

/// Computes one block from two.
using ComputeFunction = void (*)(const void* a, const void* b, void* to);

/// Null where the set has no pack of the type, or the type no such operator.
struct ArithmeticRow
{
    unsigned long nbElements = 0;
    ComputeFunction sum = nullptr, difference = nullptr, product = nullptr, minimum = nullptr, maximum = nullptr;
    ComputeFunction bitAnd = nullptr, bitOr = nullptr, bitXor = nullptr, complement = nullptr;
};

/// One row per element type: signed and unsigned char, short and int, then float.
struct ArithmeticTable
{
    ArithmeticRow rows[7];
};
extern const ArithmeticTable g_arithmetic_plain, g_arithmetic_sse2, g_arithmetic_avx, g_arithmetic_avx2,
    g_arithmetic_avx512;

#define ORLIX_COMPUTE(name, expression)                                                                                \
    template <eInstructionSet::domain I, class T>                                                                      \
    void name(const void* first, const void* second, void* to)                                                         \
    {                                                                                                                  \
        const Pack<I, T> a = Pack<I, T>::load(static_cast<const T*>(first));                                           \
        [[maybe_unused]] const Pack<I, T> b = Pack<I, T>::load(static_cast<const T*>(second));                         \
        (expression).store(static_cast<T*>(to));                                                                       \
    }
ORLIX_COMPUTE(computeSum, a + b)
ORLIX_COMPUTE(computeDifference, a - b)
ORLIX_COMPUTE(computeProduct, a* b)
ORLIX_COMPUTE(computeMinimum, minimum(a, b))
ORLIX_COMPUTE(computeMaximum, maximum(a, b))
ORLIX_COMPUTE(computeAnd, a& b)
ORLIX_COMPUTE(computeOr, a | b)
ORLIX_COMPUTE(computeXor, a ^ b)
ORLIX_COMPUTE(computeComplement, ~a)
#undef ORLIX_COMPUTE

template <eInstructionSet::domain I, class T>
constexpr ArithmeticRow makeArithmeticRow()
{
    ArithmeticRow row;
    if constexpr (g_bHasPack<I, T>) {
        row.nbElements = Pack<I, T>::s_nbElements;
        row.sum = &computeSum<I, T>;
        row.difference = &computeDifference<I, T>;
        row.product = &computeProduct<I, T>;
        row.minimum = &computeMinimum<I, T>;
        row.maximum = &computeMaximum<I, T>;
        if constexpr (!std::is_same_v<T, float>) {
            row.bitAnd = &computeAnd<I, T>;
            row.bitOr = &computeOr<I, T>;
            row.bitXor = &computeXor<I, T>;
            row.complement = &computeComplement<I, T>;
        }
    }
    return row;
}

template <eInstructionSet::domain I>
constexpr ArithmeticTable makeArithmeticTable()
{
    return {{makeArithmeticRow<I, signed char>(), makeArithmeticRow<I, unsigned char>(), makeArithmeticRow<I, short>(),
             makeArithmeticRow<I, unsigned short>(), makeArithmeticRow<I, int>(), makeArithmeticRow<I, unsigned int>(),
             makeArithmeticRow<I, float>()}};
}

} // namespace orlix::simd::test
