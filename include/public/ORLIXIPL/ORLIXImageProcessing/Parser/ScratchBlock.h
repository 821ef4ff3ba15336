// A padded copy of a strip, for kernels that read or write past the elements that they are asked for.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <memory>

namespace orlix::imaproc {

/// Elements that a kernel may touch behind its last.
inline constexpr unsigned long g_kernelOverrun = 64;

/// Dense rows, aligned to 64 bytes, with room for `g_kernelOverrun` elements behind. Keeps its memory for the next use.
class ORLIXIMAGEPROCESSING_API ScratchBlock
{
public:
    /// Copies `nbRows` rows of `rowBytes` bytes, `pitch` bytes apart, and gives the copy. Throws std::bad_alloc.
    std::byte* fill(const std::byte* from, unsigned long nbRows, unsigned long rowBytes, unsigned long pitch);
    /// Copies the rows back to where they came from.
    void writeBack(std::byte* to, unsigned long nbRows, unsigned long rowBytes, unsigned long pitch) const;

private:
    struct Free
    {
        void operator()(std::byte* memory) const;
    };

    std::unique_ptr<std::byte, Free> m_memory;
    unsigned long m_capacity = 0;
};

} // namespace orlix::imaproc
