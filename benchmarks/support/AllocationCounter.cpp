#include "support/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

thread_local orlix::bench::Allocations t_allocations; // constant-initialised: no guard on the way to it

/// Takes note of a block; throws where it could not be had. The C library gives a block for 0 bytes too.
void* noted(void* block, std::size_t bytes)
{
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++t_allocations.count;
    t_allocations.bytes += bytes;
    return block;
}

} // namespace

void* operator new(std::size_t bytes)
{
    return noted(std::malloc(bytes), bytes);
}
void* operator new(std::size_t bytes, std::align_val_t alignment)
{
    const auto unit = static_cast<std::size_t>(alignment);
    return noted(std::aligned_alloc(unit, (bytes + unit - 1) / unit * unit), bytes);
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::align_val_t) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    std::free(block);
}

namespace orlix::bench {

Allocations getAllocations()
{
    return t_allocations;
}

} // namespace orlix::bench
