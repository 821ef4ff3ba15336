#include "ORLIX/ORLIXCore/CallWatch.h"

#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/Gate.h"

namespace orlix::core {

constinit thread_local CallWatch* CallWatch::t_pInnermost = nullptr;

CallWatch::CallWatch() noexcept : m_pOuter(t_pInnermost)
{
    t_pInnermost = this;
}

CallWatch::CallWatch(const ProgressObserver& observer) : m_pOuter(t_pInnermost), m_observer(observer)
{
    t_pInnermost = this;
}

CallWatch::~CallWatch()
{
    t_pInnermost = m_pOuter;
}

void CallWatch::requestCancellation() noexcept
{
    m_bCancelled.store(true, std::memory_order_relaxed);
    const Gate gate(m_actionGate);
    if (m_pAction != nullptr) {
        m_pAction->requestCancellation();
    }
}

bool CallWatch::tell(const Progress& progress)
{
    if (m_observer) {
        const Hidden hidden;
        m_observer(progress);
    }
    return !isCancelled();
}

CallWatch::Run::Run(CallWatch& watch, BaseAction& action) : m_watch(watch)
{
    set(&action);
}

CallWatch::Run::~Run()
{
    set(nullptr);
}

void CallWatch::Run::set(BaseAction* action)
{
    const Gate gate(m_watch.m_actionGate);
    m_watch.m_pAction = action;
}

} // namespace orlix::core
