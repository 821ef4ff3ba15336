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

std::byte* ScratchBlock::fill(const std::byte* from, unsigned long nbRows, unsigned long rowBytes, unsigned long pitch)
{
    const unsigned long bytes = nbRows * rowBytes + g_kernelOverrun * g_widestElement;
    const unsigned long rounded = (bytes + g_alignment - 1) / g_alignment * g_alignment;
    if (rounded > m_capacity) {
        m_memory.reset(static_cast<std::byte*>(std::aligned_alloc(g_alignment, rounded)));
        m_capacity = m_memory ? rounded : 0;
        if (!m_memory) {
            throw std::bad_alloc();
        }
    }
    for (unsigned long row = 0; row < nbRows; ++row) {
        std::memcpy(m_memory.get() + row * rowBytes, from + row * pitch, rowBytes);
    }
    // What a kernel reads behind the last element is defined, though no result depends on it.
    std::memset(m_memory.get() + nbRows * rowBytes, 0, rounded - nbRows * rowBytes);
    return m_memory.get();
}

void ScratchBlock::writeBack(std::byte* to, unsigned long nbRows, unsigned long rowBytes, unsigned long pitch) const
{
    for (unsigned long row = 0; row < nbRows; ++row) {
        std::memcpy(to + row * pitch, m_memory.get() + row * rowBytes, rowBytes);
    }
}

} // namespace orlix::imaproc
