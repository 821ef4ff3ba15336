// What all levels of one run share: who runs elements, whether to stop, who watches.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <atomic>
#include <mutex>

namespace orlix::core {

/// Lives on the stack of the thread that runs the topmost action; the levels below hold a pointer to it.
class ORLIXCORE_API RunContext
{
public:
    /// `bCancelled` belongs to the topmost action; `observer` may be empty.
    RunContext(BaseExecutor& executor, const std::atomic<bool>& bCancelled, const ProgressObserver& observer)
        : m_executor(executor), m_bCancelled(bCancelled), m_observer(observer), m_bWatched(!observer.empty())
    {}

    BaseExecutor& accessExecutor() const { return m_executor; }
    bool isCancelled() const { return m_bCancelled.load(std::memory_order_relaxed); }

    void addKnown(unsigned long nbElements)
    {
        if (m_bWatched) {
            report(0, nbElements);
        }
    }
    void addDone(unsigned long nbElements)
    {
        if (m_bWatched) {
            report(nbElements, 0);
        }
    }

private:
    void report(unsigned long done, unsigned long known);

    BaseExecutor& m_executor;
    const std::atomic<bool>& m_bCancelled;
    const ProgressObserver& m_observer;
    const bool m_bWatched;
    std::mutex m_mutex;
    Progress m_progress;
};

} // namespace orlix::core
