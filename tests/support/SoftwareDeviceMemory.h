// Memory that behaves as that of a device: nobody but the layer that it belongs to can touch it.
#pragma once

#include <cstddef>
#include <cstring>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace orlix::testing {

/// `bytes` that start on a multiple of 256, between forbidden pages, and are forbidden themselves unless opened: the
/// first byte that a program touches by itself ends it. Filled with a pattern; so are the bytes around.
class SoftwareDeviceMemory
{
public:
    explicit SoftwareDeviceMemory(std::size_t bytes) : m_bytes(bytes)
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        m_openBytes = (bytes + g_alignment + page - 1) / page * page;
        m_mappedBytes = m_openBytes + 2 * page;
        void* const pages = mmap(nullptr, m_mappedBytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) {
            throw std::bad_alloc();
        }
        m_mapped = static_cast<unsigned char*>(pages);
        m_open = m_mapped + page;
        m_data = m_open + (m_openBytes - bytes) / g_alignment * g_alignment; // as near to the page behind as can be
        open();
        std::memset(m_open, g_pattern, m_openBytes);
        close();
    }
    SoftwareDeviceMemory(const SoftwareDeviceMemory&) = delete;
    SoftwareDeviceMemory& operator=(const SoftwareDeviceMemory&) = delete;
    ~SoftwareDeviceMemory() { munmap(m_mapped, m_mappedBytes); }

    void open() { protect(PROT_READ | PROT_WRITE); }
    void close() { protect(PROT_NONE); }

    void* data() const { return m_data; }
    std::size_t size() const { return m_bytes; }
    bool contains(const void* memory, std::size_t bytes) const
    {
        const auto* first = static_cast<const unsigned char*>(memory);
        return first >= m_data && first <= m_data + m_bytes &&
               bytes <= static_cast<std::size_t>(m_data + m_bytes - first);
    }

    /// Are the bytes around the memory, up to the forbidden pages, as they were made? While it is open.
    bool isSurroundingIntact() const
    {
        return isPattern(m_open, m_data) && isPattern(m_data + m_bytes, m_open + m_openBytes);
    }

    static constexpr unsigned char g_pattern = 0xA5;

private:
    static constexpr std::size_t g_alignment = 256;

    void protect(int protection)
    {
        if (mprotect(m_open, m_openBytes, protection) != 0) {
            throw std::bad_alloc();
        }
    }
    static bool isPattern(const unsigned char* first, const unsigned char* last)
    {
        for (; first != last; ++first) {
            if (*first != g_pattern) {
                return false;
            }
        }
        return true;
    }

    std::size_t m_bytes;
    std::size_t m_openBytes = 0;
    std::size_t m_mappedBytes = 0;
    unsigned char* m_mapped = nullptr;
    unsigned char* m_open = nullptr;
    unsigned char* m_data = nullptr;
};

} // namespace orlix::testing
