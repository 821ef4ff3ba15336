// Memory that ends at a chosen allocation.
#pragma once

namespace orlix::test {

/// Which allocations fail, counted from 1 over all threads.
struct FailingAllocations
{
    unsigned long first;
    bool bForGood;                 ///< all from `first` on, not that one alone
    unsigned long smallestByC = 0; ///< bytes; smaller blocks that the C library is asked for are not counted
};

/// From making to destroying, the chosen allocations of this process fail: those of operator new, of the C library, and
/// anonymous pages. In a build with a sanitizer, which owns the C library's, only operator new. One at a time.
class FailingMemory
{
public:
    explicit FailingMemory(const FailingAllocations& failing) noexcept;
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    /// Did any fail?
    bool hasFailed() const noexcept;
};

/// Blocks that were allocated and not freed.
long getNbLiveBlocks() noexcept;

} // namespace orlix::test
