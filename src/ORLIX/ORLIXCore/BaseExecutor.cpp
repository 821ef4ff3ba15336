#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXCore/Immortal.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"
#include "ORLIX/ORLIXCore/ThreadAllowance.h"

#include <atomic>
#include <mutex>

#include <pthread.h>

namespace orlix::core {

namespace {

/// The executor of the process; readers take one atomic load.
class ExecutorSetting
{
public:
    ExecutorSetting() { set(makeTbbExecutor(0)); }

    BaseExecutor& access() const { return *m_current.load(std::memory_order_acquire); }

    void set(boost::shared_ptr<BaseExecutor> executor)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_owner.swap(executor); // the former one ends without the lock
        m_current.store(m_owner.get(), std::memory_order_release);
    }

    void end() noexcept
    {
        m_current.store(nullptr, std::memory_order_release);
        m_owner.reset();
    }

    void hold() { m_mutex.lock(); }
    void release() { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
    boost::shared_ptr<BaseExecutor> m_owner;
    std::atomic<BaseExecutor*> m_current{nullptr};
};

/// Static objects may still run something while they end.
ExecutorSetting& accessSetting()
{
    static Immortal<ExecutorSetting> g_setting;
    return g_setting.access();
}

/// This library's own end, where it is unloaded: nobody runs anything any more, and nobody else ends the executor.
[[gnu::destructor]] void endExecutor()
{
    if (!isProcessEnding()) {
        accessSetting().end();
    }
}

const bool g_bHeldWhileForking = pthread_atfork([] { accessSetting().hold(); }, [] { accessSetting().release(); },
                                                [] { accessSetting().release(); }) == 0;

} // namespace

BaseExecutor::~BaseExecutor() = default;

BaseExecutor& accessExecutor()
{
    return accessSetting().access();
}

void setExecutor(const boost::shared_ptr<BaseExecutor>& executor)
{
    accessSetting().set(executor ? executor : makeTbbExecutor(0));
}

void setNbThreads(unsigned long nbThreads)
{
    const boost::shared_ptr<BaseExecutor> executor = makeTbbExecutor(nbThreads);
    const bool bFewer = executor->getNbThreads() < accessExecutor().getNbThreads();
    setExecutor(executor);
    if (bFewer) {
        endIdleThreads();
    }
}

} // namespace orlix::core
