// Standing in for the allocator's functions.
#include "exhaustion/FailingMemory.h"

#include "support/Sanitizers.h"

#include <dlfcn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace orlix::test {

namespace {

std::atomic<unsigned long> g_first{0}; // 0: none fails
std::atomic<bool> g_bForGood{false};
std::atomic<unsigned long> g_smallestByC{0};
std::atomic<unsigned long> g_nbAsked{0};
std::atomic<long> g_nbLive{0};

bool isRefused() noexcept
{
    const unsigned long first = g_first.load(std::memory_order_relaxed);
    if (first == 0) {
        return false;
    }
    const unsigned long number = g_nbAsked.fetch_add(1, std::memory_order_relaxed) + 1;
    return g_bForGood.load(std::memory_order_relaxed) ? number >= first : number == first;
}

template <class TTake>
void* takeUnlessRefused(TTake&& take) noexcept
{
    void* const block = isRefused() ? nullptr : take();
    if (!block) {
        errno = ENOMEM;
        return nullptr;
    }
    g_nbLive.fetch_add(1, std::memory_order_relaxed);
    return block;
}

template <class TTake>
void* takeByC(std::size_t bytes, TTake&& take) noexcept
{
    if (bytes >= g_smallestByC.load(std::memory_order_relaxed)) {
        return takeUnlessRefused(take);
    }
    g_nbLive.fetch_add(1, std::memory_order_relaxed);
    return take();
}

void countFreed(const void* block) noexcept
{
    if (block) {
        g_nbLive.fetch_sub(1, std::memory_order_relaxed);
    }
}

} // namespace

FailingMemory::FailingMemory(const FailingAllocations& failing) noexcept
{
    g_bForGood.store(failing.bForGood);
    g_smallestByC.store(failing.smallestByC);
    g_nbAsked.store(0);
    g_first.store(failing.first);
}

FailingMemory::~FailingMemory()
{
    g_first.store(0);
}

bool FailingMemory::hasFailed() const noexcept
{
    return g_nbAsked.load() >= g_first.load();
}

long getNbLiveBlocks() noexcept
{
    return g_nbLive.load();
}

} // namespace orlix::test

using orlix::test::countFreed;
using orlix::test::takeByC;
using orlix::test::takeUnlessRefused;

// Operator new calls the C library's functions beside the ones below, so that each block counts once.
#if defined(ORLIX_ADDRESS_SANITIZER) || defined(ORLIX_THREAD_SANITIZER)
namespace {

void* plainBlock(std::size_t alignment, std::size_t bytes) noexcept
{
    return std::aligned_alloc(alignment, (bytes + alignment - 1) / alignment * alignment);
}

void freePlain(void* block) noexcept
{
    std::free(block);
}

} // namespace
#else
extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
void* __libc_memalign(std::size_t alignment, std::size_t bytes);
void __libc_free(void* block);
}

namespace {

void* plainBlock(std::size_t alignment, std::size_t bytes) noexcept
{
    return __libc_memalign(alignment, bytes);
}

void freePlain(void* block) noexcept
{
    __libc_free(block);
}

} // namespace
#endif

void* operator new(std::size_t bytes, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return takeUnlessRefused([&] { return plainBlock(static_cast<std::size_t>(alignment), bytes > 0 ? bytes : 1); });
}

void* operator new(std::size_t bytes, const std::nothrow_t& tag) noexcept
{
    return operator new(bytes, std::align_val_t(alignof(std::max_align_t)), tag);
}

void* operator new(std::size_t bytes, std::align_val_t alignment)
{
    if (void* const block = operator new(bytes, alignment, std::nothrow)) {
        return block;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t bytes)
{
    return operator new(bytes, std::align_val_t(alignof(std::max_align_t)));
}

void operator delete(void* block) noexcept
{
    countFreed(block);
    freePlain(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    operator delete(block);
}

#if !defined(ORLIX_ADDRESS_SANITIZER) && !defined(ORLIX_THREAD_SANITIZER)

#pragma GCC visibility push(default) // seen by all libraries
extern "C" {

// The C library ends the process where it has no memory to note what a thread is to destroy at its end. That is the
// first call of each thread, and no library can do anything about it.
int __cxa_thread_atexit_impl(void (*destroy)(void*), void* object, void* library)
{
    using Function = int (*)(void (*)(void*), void*, void*);
    static const auto g_next = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "__cxa_thread_atexit_impl"));
    const unsigned long first = orlix::test::g_first.exchange(0);
    const int result = g_next(destroy, object, library);
    orlix::test::g_first.store(first);
    return result;
}

void* malloc(std::size_t bytes) noexcept
{
    return takeByC(bytes, [&] { return __libc_malloc(bytes); });
}

void* calloc(std::size_t count, std::size_t bytes) noexcept
{
    return takeByC(count * bytes, [&] { return __libc_calloc(count, bytes); });
}

void* realloc(void* block, std::size_t bytes) noexcept
{
    void* const grown = takeByC(bytes, [&] { return __libc_realloc(block, bytes); });
    if (grown) {
        countFreed(block);
    }
    return grown;
}

void* aligned_alloc(std::size_t alignment, std::size_t bytes) noexcept
{
    return takeByC(bytes, [&] { return __libc_memalign(alignment, bytes); });
}

void* memalign(std::size_t alignment, std::size_t bytes) noexcept
{
    return aligned_alloc(alignment, bytes);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t bytes) noexcept
{
    void* const taken = aligned_alloc(alignment, bytes);
    if (!taken) {
        return ENOMEM;
    }
    *block = taken;
    return 0;
}

void free(void* block) noexcept
{
    countFreed(block);
    __libc_free(block);
}

void* mmap(void* address, std::size_t bytes, int protection, int flags, int file, off_t offset) noexcept
{
    if ((flags & MAP_ANONYMOUS) != 0 && orlix::test::isRefused()) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    return reinterpret_cast<void*>(::syscall(SYS_mmap, address, bytes, protection, flags, file, offset));
}

} // extern "C"
#pragma GCC visibility pop

#endif
