// A lock for a few instructions.
#pragma once

#include <atomic>
#include <thread>

namespace orlix::core {

/// Holds `flag`. Cheaper than a mutex where nearly nobody ever meets another; a holder calls nothing that waits.
class Gate
{
public:
    explicit Gate(std::atomic_flag& flag) noexcept : m_flag(flag)
    {
        while (m_flag.test_and_set(std::memory_order_acquire)) {
            std::this_thread::yield();
        }
    }
    ~Gate() { m_flag.clear(std::memory_order_release); }
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

private:
    std::atomic_flag& m_flag;
};

} // namespace orlix::core
