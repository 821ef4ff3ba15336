// Memory between two forbidden pages, so that the first byte read or written outside it ends the test.
#pragma once

#include <cstddef>
#include <cstring>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace orlix::testing {

/// Which end of the memory touches its forbidden page.
enum class GuardEdge { eBegin, eEnd };

/// `bytes` of zeroed memory. With `eEnd` the byte behind the last is forbidden, with `eBegin` the byte before the first
/// is; the other end has a page of canary bytes or more before its own forbidden page comes. A misalignment asks for a
/// first byte that lies that many bytes (below 64) behind a multiple of 64; the bytes that then lie between memory and
/// forbidden page are canaries, too. Without one the memory is exactly at its page, wherever it then starts.
class GuardedMemory
{
public:
    GuardedMemory(std::size_t bytes, GuardEdge edge) : GuardedMemory(bytes, edge, g_exact) {}

    GuardedMemory(std::size_t bytes, GuardEdge edge, std::size_t misalignment) : m_bytes(bytes)
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        m_openBytes = (bytes + 64 + page - 1) / page * page + page;
        m_mappedBytes = m_openBytes + 2 * page;
        void* const pages = mmap(nullptr, m_mappedBytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) {
            throw std::bad_alloc();
        }
        m_mapped = static_cast<std::byte*>(pages);
        m_open = m_mapped + page;
        if (mprotect(m_open, m_openBytes, PROT_READ | PROT_WRITE) != 0) {
            munmap(m_mapped, m_mappedBytes);
            throw std::bad_alloc();
        }
        m_data = m_open + placeOf(edge, misalignment);
        std::memset(m_open, g_canary, m_openBytes);
        std::memset(m_data, 0, m_bytes);
    }

    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;
    ~GuardedMemory() { munmap(m_mapped, m_mappedBytes); }

    std::byte* data() const { return m_data; }
    template <class T>
    T* as() const
    {
        return reinterpret_cast<T*>(m_data);
    }
    std::size_t size() const { return m_bytes; }

    /// Are all bytes between the memory and the forbidden pages as they were made?
    bool isSurroundingIntact() const
    {
        return isCanary(m_open, m_data) && isCanary(m_data + m_bytes, m_open + m_openBytes);
    }

private:
    static constexpr std::size_t g_exact = 64;
    static constexpr unsigned char g_canary = 0xA5;

    // Bytes from the first open one; pages are multiples of 64.
    std::size_t placeOf(GuardEdge edge, std::size_t misalignment) const
    {
        if (edge == GuardEdge::eBegin) {
            return misalignment % 64;
        }
        const std::size_t place = m_openBytes - m_bytes;
        return misalignment == g_exact ? place : place - (place - misalignment) % 64;
    }

    static bool isCanary(const std::byte* first, const std::byte* last)
    {
        for (; first != last; ++first) {
            if (*first != std::byte{g_canary}) {
                return false;
            }
        }
        return true;
    }

    std::size_t m_bytes;
    std::size_t m_openBytes = 0;
    std::size_t m_mappedBytes = 0;
    std::byte* m_mapped = nullptr;
    std::byte* m_open = nullptr;
    std::byte* m_data = nullptr;
};

} // namespace orlix::testing
