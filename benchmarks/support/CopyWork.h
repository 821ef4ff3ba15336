// The bytes of two images, shared out to threads for a bare copy loop.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "support/CopyLoops.h"

#include <cstddef>
#include <vector>

namespace orlix::bench {

/// Every thread gets the same number of bytes, one after another as they lie in memory. Work of less than 256 KiB read
/// and written stays on the calling thread, which is done before another has woken.
class CopyWork
{
public:
    /// Two images of the same shape whose plans are multiples of `g_copyLoopStep` bytes; they must outlive this object.
    CopyWork(const image::BaseImage& source, image::BaseImage& destination, unsigned long nbThreads);

    /// Read and written together.
    unsigned long getBytes() const { return m_bytes; }

    void run(CopyLoop loop) const;
    /// Plans one after another into a block of `getBytes() / 2` bytes.
    void runInto(CopyLoop loop, std::byte* block) const;

private:
    struct Piece
    {
        const std::byte* source;
        std::byte* destination;
        unsigned long offset; ///< in a block of plans one after another
        unsigned long bytes;
    };

    template <class TCopy>
    void forEachPiece(const TCopy& copy) const;

    unsigned long m_bytes = 0;
    std::vector<std::vector<Piece>> m_shares; ///< one a thread
};

} // namespace orlix::bench
