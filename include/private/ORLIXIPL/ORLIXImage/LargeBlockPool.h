// Keeps large blocks of memory for reuse.
#pragma once

#include <array>
#include <cstddef>
#include <mutex>

namespace orlix::image {

/// Blocks from 2 MiB on begin on boundaries of 2 MiB, smaller ones on boundaries of pages; both lie in huge pages where
/// the system has them. Freed ones are kept, up to a number of bytes, and handed out again newest first. Thread-safe.
/// Needs no constructor and no destructor to run, so images may be made and end while static objects do.
///
/// Why not oneTBB's allocator, which serves the small blocks: it gives blocks of 64 MiB and more back to the system
/// when they are freed, whatever its huge-size threshold, and asks for huge pages only where the system's setting is
/// "always". A new image and its filling by memcpy reach these parts of the rate into a given image (2 cores, Linux
/// 6.18, huge pages on "madvise", median):
///
///     MiB                            4     16    64    256   1024
///     this pool                      1.00  1.02  1.00  1.01  1.00
///     oneTBB, default or set up      1.01  1.00  0.24  0.23  0.23
///     oneTBB and madvise             1.00  1.00  0.49  0.49  0.32
///     C library                      0.22  0.27  0.23  0.23  0.23
class LargeBlockPool
{
public:
    /// Bytes that a block for `bytes` really has: an eighth more at most, so that similar sizes share blocks. `bytes`
    /// is 1 MiB or more and below 2^62.
    static unsigned long capacityFor(unsigned long bytes);

    /// A block of `capacityFor(bytes)` bytes, its contents undefined; null where it cannot be had.
    std::byte* take(unsigned long bytes) noexcept;
    /// Takes back a block that `take(bytes)` gave. Older blocks leave where it would not fit the limit otherwise.
    void give(std::byte* block, unsigned long bytes) noexcept;

    unsigned long getLimit() noexcept;
    void setLimit(unsigned long bytes) noexcept;
    unsigned long releaseAll() noexcept; ///< bytes given back to the system

    /// Around a fork, so that the child finds the lock free and the list whole, whichever thread of its parent held it.
    void holdForFork() { m_mutex.lock(); }
    void releaseAfterFork() { m_mutex.unlock(); }

private:
    struct Block
    {
        std::byte* first = nullptr;
        unsigned long capacity = 0;
    };

    std::byte* takeKept(unsigned long capacity) noexcept;
    std::byte* takeFromNewRow(unsigned long capacity) noexcept;
    Block removeOldest() noexcept;
    unsigned long shrinkTo(unsigned long bytes) noexcept;
    unsigned long limitLocked() noexcept;

    std::mutex m_mutex;
    std::array<Block, 4096> m_blocks{}; ///< [0, m_count), oldest first; as many of 1 MiB as the largest default limit
    std::size_t m_count = 0;
    unsigned long m_keptBytes = 0;
    unsigned long m_limit = 0;
    bool m_bLimitKnown = false;
};

/// The one pool of the process.
LargeBlockPool& largeBlockPool() noexcept;

} // namespace orlix::image
