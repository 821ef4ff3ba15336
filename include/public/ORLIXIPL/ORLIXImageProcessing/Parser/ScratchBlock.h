// A padded dense copy of a strip, for kernels that read or write past the elements that they are asked for, and for
// rows whose elements don't lie side by side.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <cstddef>
#include <memory>

namespace orlix::imaproc {

/// Elements that a kernel may touch behind its last.
inline constexpr unsigned long g_kernelOverrun = 64;

/// How the rows of a strip lie in memory.
struct BlockRows
{
    unsigned long nbPixels; ///< of a row
    unsigned long nbRows;   ///< of a plan
    unsigned long nbPlans;
    unsigned long elementBytes;
    long pixelStride; ///< in elements, from a pixel to the next
    long rowPitch;    ///< in bytes, from a row to the next
    long planPitch;   ///< in bytes, from a plan to the next
};

/// Dense rows, aligned to 64 bytes, with room for `g_kernelOverrun` elements behind. Keeps its memory for the next use.
class ORLIXIMAGEPROCESSING_API ScratchBlock
{
public:
    /// Copies the rows, whose first element `first` is, and gives the copy. Throws std::bad_alloc.
    std::byte* fill(std::byte* first, const BlockRows& rows);
    /// Copies the rows back to where they came from.
    void writeBack() const;

private:
    struct Free
    {
        void operator()(std::byte* memory) const;
    };

    void reserve(unsigned long bytes);

    std::unique_ptr<std::byte, Free> m_memory;
    unsigned long m_capacity = 0;
    std::byte* m_first = nullptr;
    BlockRows m_rows{};
};

} // namespace orlix::imaproc
