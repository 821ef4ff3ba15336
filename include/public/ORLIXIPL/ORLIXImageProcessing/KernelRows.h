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

// What a set is called in the names of kernel files and tables.
#define ORLIX_SET_plain eInstructionSet::eNone
#define ORLIX_SET_sse2 eInstructionSet::eSSE2
#define ORLIX_SET_avx eInstructionSet::eAVX
#define ORLIX_SET_avx2 eInstructionSet::eAVX2
#define ORLIX_SET_avx512 eInstructionSet::eAVX512

#define ORLIX_DECLARE_KERNEL_TABLE(level, set) extern const processor::KernelTable g_##level##_##set;
#define ORLIX_NAME_KERNEL_SET(level, set) ORLIX_SET_##set,
#define ORLIX_NAME_KERNEL_TABLE(level, set) &g_##level##_##set,

#define ORLIX_FOR_SETS_1(apply, level, set) apply(level, set)
#define ORLIX_FOR_SETS_2(apply, level, set, ...) apply(level, set) ORLIX_FOR_SETS_1(apply, level, __VA_ARGS__)
#define ORLIX_FOR_SETS_3(apply, level, set, ...) apply(level, set) ORLIX_FOR_SETS_2(apply, level, __VA_ARGS__)
#define ORLIX_FOR_SETS_4(apply, level, set, ...) apply(level, set) ORLIX_FOR_SETS_3(apply, level, __VA_ARGS__)
#define ORLIX_FOR_SETS_5(apply, level, set, ...) apply(level, set) ORLIX_FOR_SETS_4(apply, level, __VA_ARGS__)
#define ORLIX_SIXTH(first, second, third, fourth, fifth, sixth, ...) sixth
#define ORLIX_FOR_SETS(apply, level, ...)                                                                              \
    ORLIX_SIXTH(__VA_ARGS__, ORLIX_FOR_SETS_5, ORLIX_FOR_SETS_4, ORLIX_FOR_SETS_3, ORLIX_FOR_SETS_2,                   \
                ORLIX_FOR_SETS_1, )                                                                                    \
    (apply, level, __VA_ARGS__)

/// Stands once in the kernel header of a level, in the level's namespace, and names the sets that have a kernel file,
/// out of plain, sse2, avx, avx2, avx512, in the order in which they are registered. Makes `<level>Kernels`, whose
/// `g_tables` the registration takes. A set without a file is an error of the linker, a file whose set is not named
/// here one of the compiler.
#define ORLIX_KERNEL_SETS(level, ...)                                                                                  \
    ORLIX_FOR_SETS(ORLIX_DECLARE_KERNEL_TABLE, level, __VA_ARGS__)                                                     \
    struct level##Kernels                                                                                              \
    {                                                                                                                  \
        static constexpr eInstructionSet::domain g_sets[] = {                                                          \
            ORLIX_FOR_SETS(ORLIX_NAME_KERNEL_SET, level, __VA_ARGS__)};                                                \
        static constexpr const processor::KernelTable* g_tables[] = {                                                  \
            ORLIX_FOR_SETS(ORLIX_NAME_KERNEL_TABLE, level, __VA_ARGS__)};                                              \
                                                                                                                       \
        static consteval bool names(eInstructionSet::domain set)                                                       \
        {                                                                                                              \
            bool bFound = false;                                                                                       \
            for (const eInstructionSet::domain own : g_sets) {                                                         \
                bFound = bFound || own == set;                                                                         \
            }                                                                                                          \
            return bFound;                                                                                             \
        }                                                                                                              \
    };

/// The table of a kernel file whose set has no kernels of its own: the next lower set serves.
#define ORLIX_EMPTY_KERNEL_TABLE(level, set)                                                                           \
    static_assert(level##Kernels::names(ORLIX_SET_##set), "name the set of this file in ORLIX_KERNEL_SETS");           \
    constinit const processor::KernelTable g_##level##_##set = {ORLIX_SET_##set, nullptr, 0};

/// The one table of a kernel file, in the level's namespace: the rows of `rowSet` under instruction set `set`,
/// constant-initialised.
#define ORLIX_KERNEL_TABLE(level, set, rowSet)                                                                         \
    static_assert(level##Kernels::names(ORLIX_SET_##set), "name the set of this file in ORLIX_KERNEL_SETS");           \
    static constexpr processor::KernelRow g_##level##_##set##_rows[] = {ORLIX_ROWS_##rowSet(level, ORLIX_SET_##set)};  \
    constinit const processor::KernelTable g_##level##_##set = {                                                       \
        ORLIX_SET_##set, g_##level##_##set##_rows, sizeof(g_##level##_##set##_rows) / sizeof(processor::KernelRow)};
