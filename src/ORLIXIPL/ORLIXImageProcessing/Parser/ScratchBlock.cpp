#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace orlix::imaproc {

namespace {

constexpr unsigned long g_alignment = 64;
constexpr unsigned long g_widestElement = 4;

} // namespace

void ScratchBlock::Free::operator()(std::byte* memory) const
{
    std::free(memory);
}

std::byte* ScratchBlock::fill(const std::byte* from, const BlockRows& rows)
{
    const unsigned long used = rows.nbPlans * rows.nbRows * rows.rowBytes;
    const unsigned long bytes = used + g_kernelOverrun * g_widestElement;
    const unsigned long rounded = (bytes + g_alignment - 1) / g_alignment * g_alignment;
    if (rounded > m_capacity) {
        m_memory.reset(static_cast<std::byte*>(std::aligned_alloc(g_alignment, rounded)));
        m_capacity = m_memory ? rounded : 0;
        if (!m_memory) {
            throw std::bad_alloc();
        }
    }
    std::byte* next = m_memory.get();
    for (unsigned long plan = 0; plan < rows.nbPlans; ++plan) {
        for (unsigned long row = 0; row < rows.nbRows; ++row, next += rows.rowBytes) {
            std::memcpy(next, from + plan * rows.planPitch + row * rows.pitch, rows.rowBytes);
        }
    }
    // What a kernel reads behind the last element is defined, though no result depends on it.
    std::memset(next, 0, rounded - used);
    return m_memory.get();
}

void ScratchBlock::writeBack(std::byte* to, const BlockRows& rows) const
{
    const std::byte* next = m_memory.get();
    for (unsigned long plan = 0; plan < rows.nbPlans; ++plan) {
        for (unsigned long row = 0; row < rows.nbRows; ++row, next += rows.rowBytes) {
            std::memcpy(to + plan * rows.planPitch + row * rows.pitch, next, rows.rowBytes);
        }
    }
}

} // namespace orlix::imaproc
