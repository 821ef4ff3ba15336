// The kernel that puts slices, once for all element types and instruction sets; included by the files of
// PutSlice3dImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(PutSlice3dImgLvl3, plain, sse2, avx, avx2, avx512)

/// `nbRows` rows of `nbElements`, from `fromRow` bytes apart to rows of `volume` that are `toRow` bytes apart.
template <class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE void copyRows(const SlicePlans<std::byte>& volume, std::byte* to, long toRow, const std::byte* from,
                                unsigned long fromRow, unsigned long nbElements, unsigned long nbRows)
{
    const PixelBox box{reinterpret_cast<const unsigned char*>(from),
                       reinterpret_cast<unsigned char*>(to),
                       nbElements * sizeof(T),
                       nbRows,
                       1,
                       static_cast<long>(fromRow),
                       toRow,
                       0,
                       0,
                       volume.place,
                       1,
                       volume.pixelStride,
                       sizeof(T)};
    copyBox<ISA>(box);
}

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> PutSlice3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const std::byte* const block = static_cast<const std::byte*>(accessBlock<attr::InYStrip2d>());
    if (m_strip.axis == eAxis::eY && info.nbBlocks == 1) {
        const unsigned long nbElements = info.nbElements < m_strip.sizeX ? info.nbElements : m_strip.sizeX;
        std::byte* const rows = m_out.at(0, m_strip.index, m_strip.firstLine, sizeof(T));
        copyRows<T, ISA>(m_out, rows, m_out.planBytes, block, m_strip.sizeX * sizeof(T), nbElements, m_strip.nbLines);
    } else if (m_strip.axis == eAxis::eY) {
        // Of a strip that is handed out line by line: into the last row of the last plan, for the one element that is
        // counted as row `index`.
        if (info.firstElement % (m_out.sizeX * m_out.sizeY) / m_out.sizeY == m_strip.index) {
            std::byte* const row =
                m_out.at(info.firstElement % m_out.sizeX, m_out.sizeY - 1, m_out.sizeZ - 1, sizeof(T));
            copyRows<T, ISA>(m_out, row, 0, block, 0, info.nbElements, 1);
        }
    } else if (m_strip.axis == eAxis::eX) {
        const SlicePlans<std::byte> out = m_out; // for all that the compiler knows, stores could change a member
        const unsigned long index = m_strip.index;
        unsigned long z = m_strip.firstLine + info.firstElement / m_strip.sizeX;
        unsigned long r = info.firstElement % m_strip.sizeX;
        for (unsigned long i = 0; i < info.nbElements && z < out.sizeZ; ++z, r = 0) {
            const unsigned long nbLeft = info.nbElements - i;
            const unsigned long end = i + (nbLeft < m_strip.sizeX - r ? nbLeft : m_strip.sizeX - r);
            std::byte* element = out.at(index, r, z, sizeof(T));
            for (; i < end; ++i, element += out.rowBytes) {
                std::memcpy(element, block + i * sizeof(T), sizeof(T));
            }
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
