// Copies by pack and by register, for every instruction set, in the form that kernels have: each set's file holds
// nothing but the functions and a constant table of them.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"

namespace orlix::simd::test {

/// Copies one block from `from` to `to`.
using CopyFunction = void (*)(const void* from, void* to);

struct CopyRow
{
    unsigned long nbElements = 0; ///< a block's; 0 where the set has no pack of this type
    unsigned long elementBytes = 0;
    unsigned long registerBytes = 0; ///< 0 for plain code
    CopyFunction copy = nullptr;
    CopyFunction streamCopy = nullptr;
    CopyFunction broadcast = nullptr;      ///< from one element to a block of it
    CopyFunction copyByRegister = nullptr; ///< one register; null for plain code
    CopyFunction streamByRegister = nullptr;
};

/// One row per element type: signed and unsigned char, short and int, then float.
struct CopyTable
{
    CopyRow rows[7];
};

extern const CopyTable g_copyTable_plain, g_copyTable_sse2, g_copyTable_avx, g_copyTable_avx2, g_copyTable_avx512;

template <eInstructionSet::domain I, class T>
void copyPack(const void* from, void* to)
{
    Pack<I, T>::load(static_cast<const T*>(from)).store(static_cast<T*>(to));
}

template <eInstructionSet::domain I, class T>
void streamPack(const void* from, void* to)
{
    Pack<I, T>::load(static_cast<const T*>(from)).stream(static_cast<T*>(to));
    streamFence();
}

template <eInstructionSet::domain I, class T>
void broadcastElement(const void* from, void* to)
{
    Pack<I, T>::broadcast(*static_cast<const T*>(from)).store(static_cast<T*>(to));
}

template <eInstructionSet::domain I>
void copyRegister(const void* from, void* to)
{
    Register<I>::load(from).store(to);
}

template <eInstructionSet::domain I>
void streamRegister(const void* from, void* to)
{
    Register<I>::load(from).stream(to);
    streamFence();
}

template <eInstructionSet::domain I, class T>
constexpr CopyRow makeRow()
{
    CopyRow row;
    if constexpr (g_bHasPack<I, T>) {
        row.nbElements = Pack<I, T>::s_nbElements;
        row.elementBytes = sizeof(T);
        row.copy = &copyPack<I, T>;
        row.streamCopy = &streamPack<I, T>;
        row.broadcast = &broadcastElement<I, T>;
    }
    if constexpr (I != eInstructionSet::eNone) {
        row.registerBytes = Register<I>::s_nbBytes;
        row.copyByRegister = &copyRegister<I>;
        row.streamByRegister = &streamRegister<I>;
    }
    return row;
}

template <eInstructionSet::domain I>
constexpr CopyTable makeTable()
{
    return {{makeRow<I, signed char>(), makeRow<I, unsigned char>(), makeRow<I, short>(), makeRow<I, unsigned short>(),
             makeRow<I, int>(), makeRow<I, unsigned int>(), makeRow<I, float>()}};
}

} // namespace orlix::simd::test
