// The copy of a box of pixels, row by row, once for all instruction sets; included by kernel files only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"

#include <cstring>

namespace orlix::imaproc::util {

namespace details {

/// How far ahead of the row that is written the destination is fetched: processors see by themselves what is read next,
/// but not the rows to come of what is written. None unless `bFetch`.
template <bool bFetch>
struct Ahead
{
    long distance; ///< bytes; a multiple of the way from row to row, unless rows are long

    static ORLIX_SIMD_INLINE Ahead of(const PixelBox& box)
    {
        constexpr unsigned long longRow = 8192;
        constexpr unsigned long rowsAhead = 1024; // as many bytes of them, at least
        constexpr long withinRow = 512;
        return {box.rowBytes >= longRow ? withinRow
                                        : static_cast<long>(1 + rowsAhead / box.rowBytes) * box.destinationRow};
    }
    /// Of `nbBytes` that are written from `to` on.
    ORLIX_SIMD_INLINE void fetch(const unsigned char* to, unsigned long nbBytes) const
    {
        if constexpr (bFetch) {
            constexpr unsigned long line = 64;
#pragma GCC unroll 8
            for (unsigned long i = 0; i < nbBytes; i += line) {
                simd::prefetch(to + distance + i);
            }
        }
    }
};

/// Calls `copyRow(from, to)` for every row of the box.
template <class TCopyRow>
ORLIX_SIMD_INLINE void forEachBoxRow(const PixelBox& box, const TCopyRow& copyRow)
{
    // Kept aside: for all that the compiler knows, the bytes that are stored could be those of the box.
    const unsigned long nbPlans = box.nbPlans;
    const unsigned long nbRows = box.nbRows;
    const long sourceRow = box.sourceRow;
    const long destinationRow = box.destinationRow;
    for (unsigned long plan = 0; plan < nbPlans; ++plan) {
        const unsigned char* from = box.source + static_cast<long>(plan) * box.sourcePlan;
        unsigned char* to = box.destination + static_cast<long>(plan) * box.destinationPlan;
        for (unsigned long row = 0; row < nbRows; ++row, from += sourceRow, to += destinationRow) {
            copyRow(from, to);
        }
    }
}

/// Rows of `nbMove` to twice as many bytes: two moves each, which meet or overlap.
template <unsigned long nbMove, bool bFetch>
ORLIX_SIMD_INLINE void copyNarrowRows(const PixelBox& box, Ahead<bFetch> ahead)
{
    struct Move
    {
        unsigned char bytes[nbMove];
    };
    const unsigned long second = box.rowBytes - nbMove;
    forEachBoxRow(box, [second, ahead](const unsigned char* from, unsigned char* to) ORLIX_SIMD_LAMBDA {
        Move first;
        Move last;
        __builtin_memcpy(&first, from, nbMove);
        __builtin_memcpy(&last, from + second, nbMove);
        __builtin_memcpy(to, &first, nbMove);
        __builtin_memcpy(to + second, &last, nbMove);
        ahead.fetch(to, nbMove);
    });
}

/// Rows of less than 64 bytes, without a call for any of them.
template <bool bFetch>
ORLIX_SIMD_INLINE void copyRowsBelow64(const PixelBox& box, Ahead<bFetch> ahead)
{
    if (box.rowBytes >= 32) {
        copyNarrowRows<32>(box, ahead);
    } else if (box.rowBytes >= 16) {
        copyNarrowRows<16>(box, ahead);
    } else if (box.rowBytes >= 8) {
        copyNarrowRows<8>(box, ahead);
    } else if (box.rowBytes >= 4) {
        copyNarrowRows<4>(box, ahead);
    } else if (box.rowBytes >= 2) {
        copyNarrowRows<2>(box, ahead);
    } else if (box.rowBytes == 1) {
        copyNarrowRows<1>(box, ahead);
    }
}

/// Rows that `nbRegisters` hold, the last of which may overlap the one before: neither a loop nor a branch within a
/// row.
template <eInstructionSet::domain ISA, unsigned long nbRegisters, bool bFetch>
ORLIX_SIMD_INLINE void copyShortRows(const PixelBox& box, Ahead<bFetch> ahead)
{
    using Register = simd::Register<ISA>;
    constexpr unsigned long width = Register::s_nbBytes;
    const unsigned long last = box.rowBytes - width;
    forEachBoxRow(box, [last, ahead](const unsigned char* from, unsigned char* to) ORLIX_SIMD_LAMBDA {
        Register registers[nbRegisters];
#pragma GCC unroll 8
        for (unsigned long k = 0; k + 1 < nbRegisters; ++k) {
            registers[k] = Register::load(from + k * width);
        }
        registers[nbRegisters - 1] = Register::load(from + last);
#pragma GCC unroll 8
        for (unsigned long k = 0; k + 1 < nbRegisters; ++k) {
            registers[k].store(to + k * width);
        }
        registers[nbRegisters - 1].store(to + last);
        ahead.fetch(to, nbRegisters * width);
    });
}

/// One row of at least a register, in registers; the last one may overlap the one before, so nothing behind the row is
/// touched.
template <eInstructionSet::domain ISA, bool bFetch>
ORLIX_SIMD_INLINE void copyWideRow(const unsigned char* from, unsigned char* to, unsigned long nbBytes,
                                   Ahead<bFetch> ahead)
{
    using Register = simd::Register<ISA>;
    constexpr unsigned long width = Register::s_nbBytes;
    // Eight registers are filled before they are stored: processors hold a load back that looks like a store just
    // before it, as it does where both addresses agree in their low 12 bits.
    constexpr unsigned long nbTurn = 8;
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
        ahead.fetch(to + i, nbTurn * width);
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
        ahead.fetch(to + i, width);
        Register::load(from + i).store(to + i);
    }
    last.store(lastPlace);
}

/// Rows of 64 bytes and more: short ones by their number of registers, others in turns of a loop.
template <eInstructionSet::domain ISA, bool bFetch, unsigned long nbRegisters = 64 / simd::Register<ISA>::s_nbBytes>
ORLIX_SIMD_INLINE void copyRowsFrom64(const PixelBox& box, Ahead<bFetch> ahead)
{
    const unsigned long nbBytes = box.rowBytes;
    if (nbBytes <= nbRegisters * simd::Register<ISA>::s_nbBytes) {
        copyShortRows<ISA, nbRegisters>(box, ahead);
    } else if constexpr (nbRegisters < 8) {
        copyRowsFrom64<ISA, bFetch, nbRegisters + 1>(box, ahead);
    } else {
        forEachBoxRow(box, [nbBytes, ahead](const unsigned char* from, unsigned char* to)
                               ORLIX_SIMD_LAMBDA { copyWideRow<ISA>(from, to, nbBytes, ahead); });
    }
}

/// Rows of any length, without a call for any of them.
template <eInstructionSet::domain ISA, bool bFetch>
ORLIX_SIMD_INLINE void copyRows(const PixelBox& box, Ahead<bFetch> ahead)
{
    if (box.rowBytes < 64) {
        copyRowsBelow64(box, ahead);
    } else {
        copyRowsFrom64<ISA>(box, ahead);
    }
}

} // namespace details

/// Copies the box with ordinary stores; what lies between its rows is neither read nor written. Source and destination
/// don't overlap.
template <eInstructionSet::domain ISA>
void copyBox(const PixelBox& box)
{
    if (box.isStrided()) {
        box.copyStrided();
        return;
    }
    if constexpr (ISA == eInstructionSet::eNone) {
        const unsigned long nbBytes = box.rowBytes;
        details::forEachBoxRow(box, [nbBytes](const unsigned char* from, unsigned char* to)
                                        ORLIX_SIMD_LAMBDA { std::memcpy(to, from, nbBytes); });
    } else if (box.rowBytes == 0) {
        return; // there is no distance of rows without bytes
    } else if (isAssisted(box.place)) {
        details::copyRows<ISA>(box, details::Ahead<true>::of(box));
    } else {
        details::copyRows<ISA>(box, details::Ahead<false>{0});
    }
}

} // namespace orlix::imaproc::util
