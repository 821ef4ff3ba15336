// A padded copy of a strip, for kernels that read or write past the elements that they are asked for.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <cstddef>
#include <memory>

namespace orlix::imaproc {

/// Elements that a kernel may touch behind its last.
inline constexpr unsigned long g_kernelOverrun = 64;

/// How the rows of a strip lie in memory, in bytes.
struct BlockRows
{
    unsigned long nbRows; ///< of a plan
    unsigned long rowBytes;
    unsigned long pitch;         ///< from a row to the next
    unsigned long nbPlans = 1;   ///< of so many rows each
    unsigned long planPitch = 0; ///< from a plan to the next
};

/// Dense rows, aligned to 64 bytes, with room for `g_kernelOverrun` elements behind. Keeps its memory for the next use.
class ORLIXIMAGEPROCESSING_API ScratchBlock
{
public:
    /// Copies the rows from `from` on, and gives the copy. Throws std::bad_alloc.
    std::byte* fill(const std::byte* from, const BlockRows& rows);
    /// Copies the rows back to where they came from.
    void writeBack(std::byte* to, const BlockRows& rows) const;

private:
    struct Free
    {
        void operator()(std::byte* memory) const;
    };

    std::unique_ptr<std::byte, Free> m_memory;
    unsigned long m_capacity = 0;
};

} // namespace orlix::imaproc
