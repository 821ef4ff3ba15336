// The copy of a box of pixels, row by row, once for all instruction sets; included by kernel files only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"

#include <cstring>

namespace orlix::imaproc::util {

namespace details {

/// Calls `copyRow(from, to)` for every row of the box.
template <class TCopyRow>
ORLIX_SIMD_INLINE void forEachBoxRow(const PixelBox& box, const TCopyRow& copyRow)
{
    for (unsigned long plan = 0; plan < box.nbPlans; ++plan) {
        const unsigned char* from = box.source + plan * box.sourcePlan;
        unsigned char* to = box.destination + plan * box.destinationPlan;
        for (unsigned long row = 0; row < box.nbRows; ++row, from += box.sourceRow, to += box.destinationRow) {
            copyRow(from, to);
        }
    }
}

/// Rows of `nbMove` to twice as many bytes: two moves each, which meet or overlap.
template <unsigned long nbMove>
ORLIX_SIMD_INLINE void copyNarrowRows(const PixelBox& box)
{
    struct Move
    {
        unsigned char bytes[nbMove];
    };
    const unsigned long second = box.rowBytes - nbMove;
    forEachBoxRow(box, [second](const unsigned char* from, unsigned char* to) ORLIX_SIMD_LAMBDA {
        Move first;
        Move last;
        __builtin_memcpy(&first, from, nbMove);
        __builtin_memcpy(&last, from + second, nbMove);
        __builtin_memcpy(to, &first, nbMove);
        __builtin_memcpy(to + second, &last, nbMove);
    });
}

/// Rows of less than 64 bytes, without a call for any of them.
ORLIX_SIMD_INLINE void copyRowsBelow64(const PixelBox& box)
{
    if (box.rowBytes >= 32) {
        copyNarrowRows<32>(box);
    } else if (box.rowBytes >= 16) {
        copyNarrowRows<16>(box);
    } else if (box.rowBytes >= 8) {
        copyNarrowRows<8>(box);
    } else if (box.rowBytes >= 4) {
        copyNarrowRows<4>(box);
    } else if (box.rowBytes >= 2) {
        copyNarrowRows<2>(box);
    } else if (box.rowBytes == 1) {
        copyNarrowRows<1>(box);
    }
}

/// One row of at least a register, in registers; the last one may overlap the one before, so nothing behind the row is
/// touched. The bytes `ahead` of the ones that are copied are fetched where `bFetch`.
template <eInstructionSet::domain ISA, bool bFetch>
ORLIX_SIMD_INLINE void copyWideRow(const unsigned char* from, unsigned char* to, unsigned long nbBytes,
                                   unsigned long ahead)
{
    using Register = simd::Register<ISA>;
    constexpr unsigned long width = Register::s_nbBytes;
    // Eight registers are filled before they are stored: processors hold a load back that looks like a store just
    // before it, as it does where both addresses agree in their low 12 bits.
    constexpr unsigned long nbTurn = 8;
    constexpr unsigned long line = 64;
    const Register last = Register::load(from + nbBytes - width);
    unsigned char* const lastPlace = to + nbBytes - width;
    if (nbBytes >= 1024) { // from here on the stores lie in registers' places of the output, so that none is split
        Register::load(from).store(to);
        const unsigned long nbBefore = width - reinterpret_cast<unsigned long>(to) % width;
        from += nbBefore;
        to += nbBefore;
        nbBytes -= nbBefore;
    }
    unsigned long i = 0;
    for (; i + nbTurn * width <= nbBytes; i += nbTurn * width) {
        if constexpr (bFetch) {
#pragma GCC unroll 8
            for (unsigned long k = 0; k < nbTurn * width; k += line) {
                simd::prefetch(from + i + ahead + k);
            }
        }
        Register registers[nbTurn];
#pragma GCC unroll 8
        for (unsigned long k = 0; k < nbTurn; ++k) {
            registers[k] = Register::load(from + i + k * width);
        }
#pragma GCC unroll 8
        for (unsigned long k = 0; k < nbTurn; ++k) {
            registers[k].store(to + i + k * width);
        }
    }
    for (; i + width <= nbBytes; i += width) {
        if constexpr (bFetch) {
            simd::prefetch(from + i + ahead);
        }
        Register::load(from + i).store(to + i);
    }
    last.store(lastPlace);
}

} // namespace details

/// Copies the box with ordinary stores; what lies between its rows is neither read nor written. Source and destination
/// don't overlap.
template <eInstructionSet::domain ISA>
void copyBox(const PixelBox& box)
{
    const unsigned long nbBytes = box.rowBytes;
    if constexpr (ISA == eInstructionSet::eNone) {
        details::forEachBoxRow(box, [nbBytes](const unsigned char* from, unsigned char* to)
                                        ORLIX_SIMD_LAMBDA { std::memcpy(to, from, nbBytes); });
    } else if (nbBytes < 64) {
        details::copyRowsBelow64(box);
    } else if (isAssisted(box.place)) {
        // Long rows fetch within themselves, short ones the rows to come.
        constexpr unsigned long distance = 1024;
        const unsigned long ahead = nbBytes >= 8 * distance ? distance : (1 + distance / nbBytes) * box.sourceRow;
        details::forEachBoxRow(box, [=](const unsigned char* from, unsigned char* to) ORLIX_SIMD_LAMBDA {
            details::copyWideRow<ISA, true>(from, to, nbBytes, ahead);
        });
    } else {
        details::forEachBoxRow(box, [=](const unsigned char* from, unsigned char* to)
                                        ORLIX_SIMD_LAMBDA { details::copyWideRow<ISA, false>(from, to, nbBytes, 0); });
    }
}

} // namespace orlix::imaproc::util
