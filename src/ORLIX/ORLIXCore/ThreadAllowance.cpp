#include "ORLIX/ORLIXCore/ThreadAllowance.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/ForkCount.h"
#include "ORLIX/ORLIXCore/Immortal.h"
#include "ORLIX/ORLIXCore/KeptLibrary.h"
#include "ORLIX/ORLIXCore/PostedRuns.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"

#include <tbb/global_control.h>
#include <tbb/info.h>
#include <tbb/version.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <set>

namespace orlix::core {

namespace {

unsigned long getNbProcessors()
{
    return static_cast<unsigned long>(std::max(1, tbb::info::default_concurrency()));
}

class Ledger
{
public:
    void enter(unsigned long nbThreads)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto entry = m_needed.insert(nbThreads);
        try {
            allow();
        } catch (...) {
            m_needed.erase(entry);
            throw;
        }
    }
    void leave(unsigned long nbThreads) noexcept
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_needed.erase(m_needed.find(nbThreads));
        try {
            allow();
        } catch (...) {
            // More threads stay allowed than are needed.
        }
    }

private:
    void allow()
    {
        const unsigned long most = m_needed.empty() ? 0 : *m_needed.rbegin();
        const unsigned long allowed = most > getNbProcessors() ? most : 0;
        if (allowed != m_allowed) {
            watchProcessEnd(); // the process may end oneTBB before the executor, which is left as it is then
            // The new one first: in between, all that live are allowed what they need.
            auto control =
                allowed == 0
                    ? nullptr
                    : std::make_unique<tbb::global_control>(tbb::global_control::max_allowed_parallelism, allowed);
            m_control = std::move(control);
            m_allowed = allowed;
        }
    }

    std::mutex m_mutex;
    std::multiset<unsigned long> m_needed;
    unsigned long m_allowed = 0;
    std::unique_ptr<tbb::global_control> m_control;
};

Ledger& accessLedger()
{
    static Immortal<Ledger> g_ledger;
    return g_ledger.access();
}

constinit bool g_bThreads = false; ///< oneTBB may have some

/// This library's own end.
[[gnu::destructor]] void endThreadsWithLibrary()
{
    if (g_bThreads && !isProcessEnding()) {
        endIdleThreads();
    }
}

} // namespace

ThreadAllowance::ThreadAllowance(unsigned long nbThreads) : m_nbThreads(nbThreads)
{
    accessLedger().enter(nbThreads);
}

ThreadAllowance::~ThreadAllowance()
{
    accessLedger().leave(m_nbThreads);
}

unsigned long getMostThreads()
{
    return std::max(256UL, getNbProcessors());
}

void endIdleThreads() noexcept
{
    if (getForkCount() == 0 && !InsideElement::isAny()) {
        tbb::task_scheduler_handle handle{tbb::attach()};
        static_cast<void>(tbb::finalize(handle, std::nothrow));
    }
}

void watchThreads() noexcept
{
    static const bool g_bWatched = [] {
        watchProcessEnd();
        keepLibraryForGood(reinterpret_cast<const void*>(&TBB_runtime_interface_version));
        g_bThreads = true;
        return true;
    }();
    static_cast<void>(g_bWatched);
}

} // namespace orlix::core
