#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <atomic>
#include <mutex>

namespace orlix::core {

namespace {

/// The executor of the process; readers take one atomic load.
class ExecutorSetting
{
public:
    ExecutorSetting() { set(makeTbbExecutor(0)); }

    BaseExecutor& access() const { return *m_current.load(std::memory_order_acquire); }

    void set(const boost::shared_ptr<BaseExecutor>& executor)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_owner = executor;
        m_current.store(executor.get(), std::memory_order_release);
    }

private:
    std::mutex m_mutex;
    boost::shared_ptr<BaseExecutor> m_owner;
    std::atomic<BaseExecutor*> m_current{nullptr};
};

ExecutorSetting& accessSetting()
{
    static ExecutorSetting g_setting;
    return g_setting;
}

} // namespace

BaseExecutor::~BaseExecutor() = default;

BaseExecutor& accessExecutor() { return accessSetting().access(); }

void setExecutor(const boost::shared_ptr<BaseExecutor>& executor)
{
    accessSetting().set(executor ? executor : makeTbbExecutor(0));
}

void setNbThreads(unsigned long nbThreads) { setExecutor(makeTbbExecutor(nbThreads)); }

} // namespace orlix::core
