// Elements that several threads take, of which only one has to come.
#pragma once

#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <atomic>

namespace orlix::core {

/// The thread that owns the call does elements until there are none, and others help where they find the time. It waits
/// for elements that somebody has begun, never for a helper that has yet to come; who comes too late finds nothing to
/// do. Elements are handed out in rising order.
class SharedElements
{
public:
    SharedElements(unsigned long nbElements, const ElementBody& body) : m_nbElements(nbElements), m_body(body) {}

    /// The owner's part: returns when all elements have ended.
    void doAll()
    {
        work();
        // From here on nobody comes in.
        unsigned nbHelpers = m_nbHelpers.fetch_or(g_closed, std::memory_order_acq_rel);
        while ((nbHelpers & ~g_closed) != 0) {
            m_nbHelpers.wait(nbHelpers, std::memory_order_acquire);
            nbHelpers = m_nbHelpers.load(std::memory_order_acquire);
        }
    }

    /// Does elements for as long as there are any. Touches nothing of the caller's once the owner is done.
    void help()
    {
        if ((m_nbHelpers.fetch_add(1, std::memory_order_acq_rel) & g_closed) == 0) {
            work();
        }
        m_nbHelpers.fetch_sub(1, std::memory_order_acq_rel);
        m_nbHelpers.notify_all();
    }

private:
    static constexpr unsigned g_closed = 1U << 31;

    void work()
    {
        for (unsigned long element = m_next++; element < m_nbElements; element = m_next++) {
            m_body(element);
        }
    }

    unsigned long m_nbElements;
    ElementBody m_body;
    std::atomic<unsigned long> m_next{0};
    std::atomic<unsigned> m_nbHelpers{0};
};

} // namespace orlix::core
