// Kernel tables of classes whose kernels go by one element type or by a pair: the row sets by name, in the family's
// order of types.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

namespace orlix::imaproc {

/// A kernel for one element type. `T` is the storage type.
template <class TLevel, class T, eInstructionSet::domain ISA>
constexpr processor::KernelRow kernelRow(image::eImageBufferType::domain type)
{
    return {static_cast<unsigned char>(type), 0,
            static_cast<processor::KernelFunction>(&TLevel::template genericProcessFunction<T, ISA>)};
}

/// A kernel for a pair of element types: input, output. `TIn` and `TOut` are the storage types.
template <class TLevel, class TIn, class TOut, eInstructionSet::domain ISA>
constexpr processor::KernelRow kernelPairRow(image::eImageBufferType::domain in, image::eImageBufferType::domain out)
{
    return {static_cast<unsigned char>(in), static_cast<unsigned char>(out),
            static_cast<processor::KernelFunction>(&TLevel::template genericProcessFunction<TIn, TOut, ISA>)};
}

} // namespace orlix::imaproc

// Rows of a table, for `ORLIX_KERNEL_TABLE`. Arrays of constants, and macros rather than functions that return them, so
// that a kernel file holds nothing but kernels and constant data at any level of optimisation.
#define ORLIX_INTEGER_ROWS(level, ISA)                                                                                 \
    kernelRow<level, signed char, ISA>(image::eImageBufferType::Int8),                                                 \
        kernelRow<level, unsigned char, ISA>(image::eImageBufferType::UInt8),                                          \
        kernelRow<level, short, ISA>(image::eImageBufferType::Int16),                                                  \
        kernelRow<level, unsigned short, ISA>(image::eImageBufferType::UInt16),                                        \
        kernelRow<level, int, ISA>(image::eImageBufferType::Int32),                                                    \
        kernelRow<level, unsigned int, ISA>(image::eImageBufferType::UInt32)
#define ORLIX_REAL_ROWS(level, ISA) kernelRow<level, float, ISA>(image::eImageBufferType::Real32)
#define ORLIX_LIKE_ROWS(level, ISA)                                                                                    \
    kernelRow<level, unsigned char, ISA>(image::eImageBufferType::eBufferBinary),                                      \
        kernelRow<level, unsigned char, ISA>(image::eImageBufferType::eBufferUInt8Like),                               \
        kernelRow<level, unsigned short, ISA>(image::eImageBufferType::eBufferUInt16Like),                             \
        kernelRow<level, unsigned int, ISA>(image::eImageBufferType::eBufferUInt32Like)

#define ORLIX_ROWS_EveryBufferType(level, ISA)                                                                         \
    ORLIX_INTEGER_ROWS(level, ISA), ORLIX_REAL_ROWS(level, ISA), ORLIX_LIKE_ROWS(level, ISA)
#define ORLIX_ROWS_AllButReal32(level, ISA) ORLIX_INTEGER_ROWS(level, ISA), ORLIX_LIKE_ROWS(level, ISA)
#define ORLIX_ROWS_OnlyReal32(level, ISA) ORLIX_REAL_ROWS(level, ISA)

#define ORLIX_PAIR_ROW(level, ISA, TIn, in, TOut, out)                                                                 \
    kernelPairRow<level, TIn, TOut, ISA>(image::eImageBufferType::in, image::eImageBufferType::out)
#define ORLIX_PAIR_ROWS_FROM(level, ISA, TIn, in)                                                                      \
    ORLIX_PAIR_ROW(level, ISA, TIn, in, signed char, Int8), ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned char, UInt8), \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, short, Int16),                                                             \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned short, UInt16), ORLIX_PAIR_ROW(level, ISA, TIn, in, int, Int32),  \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned int, UInt32), ORLIX_PAIR_ROW(level, ISA, TIn, in, float, Real32), \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned char, eBufferBinary),                                             \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned char, eBufferUInt8Like),                                          \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned short, eBufferUInt16Like),                                        \
        ORLIX_PAIR_ROW(level, ISA, TIn, in, unsigned int, eBufferUInt32Like)

#define ORLIX_ROWS_EveryBufferTypePair(level, ISA)                                                                     \
    ORLIX_PAIR_ROWS_FROM(level, ISA, signed char, Int8), ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned char, UInt8),       \
        ORLIX_PAIR_ROWS_FROM(level, ISA, short, Int16), ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned short, UInt16),      \
        ORLIX_PAIR_ROWS_FROM(level, ISA, int, Int32), ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned int, UInt32),          \
        ORLIX_PAIR_ROWS_FROM(level, ISA, float, Real32),                                                               \
        ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned char, eBufferBinary),                                                \
        ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned char, eBufferUInt8Like),                                             \
        ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned short, eBufferUInt16Like),                                           \
        ORLIX_PAIR_ROWS_FROM(level, ISA, unsigned int, eBufferUInt32Like)

/// Names a table that stands in another file.
#define ORLIX_DECLARE_KERNEL_TABLE(level, suffix)                                                                      \
    namespace orlix::imaproc::util {                                                                                   \
    extern const processor::KernelTable g_##level##_##suffix;                                                          \
    }

/// The one table of a kernel file: the rows of `rowSet` under instruction set `ISA`, constant-initialised.
#define ORLIX_KERNEL_TABLE(level, suffix, ISA, rowSet)                                                                 \
    namespace orlix::imaproc::util {                                                                                   \
    static constexpr processor::KernelRow g_##level##_##suffix##_rows[] = {ORLIX_ROWS_##rowSet(level, ISA)};           \
    constinit const processor::KernelTable g_##level##_##suffix = {                                                    \
        ISA, g_##level##_##suffix##_rows, sizeof(g_##level##_##suffix##_rows) / sizeof(processor::KernelRow)};         \
    }
