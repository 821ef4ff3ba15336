// The kernel that puts slices, once for all element types and instruction sets; included by the files of
// PutSlice3dImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(PutSlice3dImgLvl3, plain, sse2, avx, avx2, avx512)

/// Registers for what fills them, `memcpy` for what is left of the row.
template <eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE void copySliceRow(std::byte* to, const std::byte* from, unsigned long nbBytes)
{
    unsigned long nbDone = 0;
    if constexpr (ISA != eInstructionSet::eNone) {
        using Register = simd::Register<ISA>;
        nbDone = nbBytes - nbBytes % Register::s_nbBytes;
        simd::forEachPack<Register::s_nbBytes, 4>(
            nbDone, [=](unsigned long i) ORLIX_SIMD_LAMBDA { Register::load(from + i).store(to + i); });
    }
    std::memcpy(to + nbDone, from + nbDone, nbBytes - nbDone);
}

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> PutSlice3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const std::byte* const block = static_cast<const std::byte*>(accessBlock<attr::InYStrip2d>());
    if (m_strip.axis == eAxis::eY && info.nbBlocks == 1) {
        const unsigned long lineBytes = m_strip.sizeX * sizeof(T);
        const unsigned long nbElements = info.nbElements < m_strip.sizeX ? info.nbElements : m_strip.sizeX;
        std::byte* row = m_out.first + m_strip.firstLine * m_out.planBytes + m_strip.index * m_out.rowBytes;
        for (unsigned long j = 0; j < m_strip.nbLines; ++j, row += m_out.planBytes) {
            copySliceRow<ISA>(row, block + j * lineBytes, nbElements * sizeof(T));
        }
    } else if (m_strip.axis == eAxis::eY) {
        // Of a strip that is handed out line by line: into the last row of the last plan, for the one element that is
        // counted as row `index`.
        if (info.firstElement % (m_out.sizeX * m_out.sizeY) / m_out.sizeY == m_strip.index) {
            std::byte* const row =
                m_out.first + (m_out.sizeZ - 1) * m_out.planBytes + (m_out.sizeY - 1) * m_out.rowBytes;
            copySliceRow<ISA>(row + info.firstElement % m_out.sizeX * sizeof(T), block, info.nbElements * sizeof(T));
        }
    } else if (m_strip.axis == eAxis::eX) {
        unsigned long z = m_strip.firstLine + info.firstElement / m_strip.sizeX;
        unsigned long r = info.firstElement % m_strip.sizeX;
        for (unsigned long i = 0; i < info.nbElements && z < m_out.sizeZ; ++z, r = 0) {
            const unsigned long nbLeft = info.nbElements - i;
            const unsigned long end = i + (nbLeft < m_strip.sizeX - r ? nbLeft : m_strip.sizeX - r);
            std::byte* element = m_out.first + z * m_out.planBytes + r * m_out.rowBytes + m_strip.index * sizeof(T);
            for (; i < end; ++i, element += m_out.rowBytes) {
                std::memcpy(element, block + i * sizeof(T), sizeof(T));
            }
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
