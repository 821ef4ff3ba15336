// The kernel of slices, once for all element types; included by the files of GetSlice3dImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <algorithm>
#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(GetSlice3dImgLvl3, plain, sse2, avx, avx2, avx512)

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> GetSlice3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    T* const block = static_cast<T*>(accessBlock<attr::OutYStrip2d>());
    const auto planOf = [this](unsigned long z) { return m_in.first + z * m_in.planBytes; };
    if (m_strip.axis == eAxis::eY && info.nbBlocks == 1) {
        const unsigned long nbBytes = std::min(info.nbElements, m_in.sizeX) * sizeof(T);
        const std::byte* row = planOf(m_strip.firstLine) + m_strip.index * m_in.rowBytes;
        for (unsigned long j = 0; j < m_strip.nbLines; ++j, row += m_in.planBytes) {
            std::memcpy(block + j * m_in.sizeX, row, nbBytes);
        }
    } else if (m_strip.axis == eAxis::eY) {
        // Of a strip that is handed out line by line: the last row of the last plan, for the one element that is
        // counted as row `index`.
        if (info.firstElement % (m_in.sizeX * m_in.sizeY) / m_in.sizeY == m_strip.index) {
            const std::byte* const row = planOf(m_in.sizeZ - 1) + (m_in.sizeY - 1) * m_in.rowBytes;
            std::memcpy(block, row + info.firstElement % m_in.sizeX * sizeof(T), info.nbElements * sizeof(T));
        }
    } else if (m_strip.axis == eAxis::eX) {
        unsigned long z = m_strip.firstLine + info.firstElement / m_strip.sizeX;
        unsigned long r = info.firstElement % m_strip.sizeX;
        for (unsigned long i = 0; i < info.nbElements && z < m_in.sizeZ; ++z, r = 0) {
            const unsigned long end = std::min(info.nbElements, i + (m_strip.sizeX - r));
            const std::byte* element = planOf(z) + r * m_in.rowBytes + m_strip.index * sizeof(T);
            for (; i < end; ++i, element += m_in.rowBytes) {
                std::memcpy(block + i, element, sizeof(T));
            }
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
