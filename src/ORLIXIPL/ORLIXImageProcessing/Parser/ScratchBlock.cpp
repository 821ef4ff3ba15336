#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

#include "ORLIXIPL/ORLIXImage/PixelBlock.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace orlix::imaproc {

namespace {

constexpr unsigned long g_alignment = 64;
constexpr unsigned long g_widestElement = 4;

/// Calls `copy(place in the copy, row, bytes)` for every row of pixels that lie side by side.
template <class TCopy>
void forEachRow(const BlockRows& rows, std::byte* copied, std::byte* first, const TCopy& copy)
{
    const unsigned long rowBytes = rows.nbPixels * rows.elementBytes;
    for (unsigned long plan = 0; plan < rows.nbPlans; ++plan) {
        std::byte* row = first + static_cast<long>(plan) * rows.planPitch;
        for (unsigned long i = 0; i < rows.nbRows; ++i, copied += rowBytes, row += rows.rowPitch) {
            copy(copied, row, rowBytes);
        }
    }
}

image::ByteSteps steps(const BlockRows& rows)
{
    return {rows.pixelStride * static_cast<long>(rows.elementBytes), rows.rowPitch, rows.planPitch};
}

image::ByteSteps copiedSteps(const BlockRows& rows)
{
    const unsigned long rowBytes = rows.nbPixels * rows.elementBytes;
    return {static_cast<long>(rows.elementBytes), static_cast<long>(rowBytes),
            static_cast<long>(rowBytes * rows.nbRows)};
}

image::BlockSize sizeOf(const BlockRows& rows)
{
    return {rows.nbPixels, rows.nbRows, rows.nbPlans};
}

} // namespace

void ScratchBlock::Free::operator()(std::byte* memory) const
{
    std::free(memory);
}

void ScratchBlock::reserve(unsigned long bytes)
{
    if (bytes > m_capacity) {
        m_memory.reset(static_cast<std::byte*>(std::aligned_alloc(g_alignment, bytes)));
        m_capacity = m_memory ? bytes : 0;
        if (!m_memory) {
            throw std::bad_alloc();
        }
    }
}

std::byte* ScratchBlock::fill(std::byte* first, const BlockRows& rows)
{
    const unsigned long used = rows.nbPlans * rows.nbRows * rows.nbPixels * rows.elementBytes;
    const unsigned long bytes = used + g_kernelOverrun * g_widestElement;
    const unsigned long rounded = (bytes + g_alignment - 1) / g_alignment * g_alignment;
    reserve(rounded);
    m_first = first;
    m_rows = rows;
    if (rows.pixelStride == 1) {
        forEachRow(rows, m_memory.get(), first,
                   [](std::byte* copied, std::byte* row, unsigned long size) { std::memcpy(copied, row, size); });
    } else {
        image::copyBlock(m_memory.get(), copiedSteps(rows), first, steps(rows), sizeOf(rows), rows.elementBytes);
    }
    // What a kernel reads behind the last element is defined, though no result depends on it.
    std::memset(m_memory.get() + used, 0, rounded - used);
    return m_memory.get();
}

void ScratchBlock::writeBack() const
{
    if (m_rows.pixelStride == 1) {
        forEachRow(m_rows, m_memory.get(), m_first,
                   [](std::byte* copied, std::byte* row, unsigned long size) { std::memcpy(row, copied, size); });
    } else {
        image::copyBlock(m_first, steps(m_rows), m_memory.get(), copiedSteps(m_rows), sizeOf(m_rows),
                         m_rows.elementBytes);
    }
}

} // namespace orlix::imaproc
