// The kernel of slices, once for all element types; included by the files of GetSlice3dImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImage/PixelBlock.h"
#include "ORLIXIPL/ORLIXImage/PixelRun.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <algorithm>
#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(GetSlice3dImgLvl3, plain, sse2, avx, avx2, avx512)

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> GetSlice3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    T* const block = static_cast<T*>(accessBlock<attr::OutYStrip2d>());
    if (m_strip.axis == eAxis::eY && info.nbBlocks == 1) {
        const unsigned long nbElements = std::min(info.nbElements, m_in.sizeX);
        const std::byte* row = m_in.at(0, m_strip.index, m_strip.firstLine, sizeof(T));
        if (m_in.pixelStride != 1) {
            constexpr long size = sizeof(T);
            image::copyBlock(reinterpret_cast<std::byte*>(block), {size, static_cast<long>(m_in.sizeX) * size, 0}, row,
                             {m_in.pixelStride * size, m_in.planBytes, 0}, {nbElements, m_strip.nbLines, 1}, sizeof(T));
            return succeed();
        }
        for (unsigned long j = 0; j < m_strip.nbLines; ++j, row += m_in.planBytes) {
            std::memcpy(block + j * m_in.sizeX, row, nbElements * sizeof(T));
        }
    } else if (m_strip.axis == eAxis::eY) {
        // Of a strip that is handed out line by line: the last row of the last plan, for the one element that is
        // counted as row `index`.
        if (info.firstElement % (m_in.sizeX * m_in.sizeY) / m_in.sizeY == m_strip.index) {
            const std::byte* const row =
                m_in.at(info.firstElement % m_in.sizeX, m_in.sizeY - 1, m_in.sizeZ - 1, sizeof(T));
            image::copyRun(reinterpret_cast<std::byte*>(block), 1, row, m_in.pixelStride, info.nbElements, sizeof(T));
        }
    } else if (m_strip.axis == eAxis::eX) {
        const SlicePlans<const std::byte> in = m_in; // for all that the compiler knows, stores could change a member
        const unsigned long index = m_strip.index;
        unsigned long z = m_strip.firstLine + info.firstElement / m_strip.sizeX;
        unsigned long r = info.firstElement % m_strip.sizeX;
        for (unsigned long i = 0; i < info.nbElements && z < in.sizeZ; ++z, r = 0) {
            const unsigned long end = std::min(info.nbElements, i + (m_strip.sizeX - r));
            const std::byte* element = in.at(index, r, z, sizeof(T));
            for (; i < end; ++i, element += in.rowBytes) {
                std::memcpy(block + i, element, sizeof(T));
            }
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
