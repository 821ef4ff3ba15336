// What all levels of one run share: who runs elements, whether to stop, who watches.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <atomic>
#include <mutex>

namespace orlix::core {

class BaseAction;

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

    /// Does anybody get the progress of this run?
    bool isWatched() const { return m_bWatched; }

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

    /// Hands elements to the executor. The outermost loop of a run takes up no work of other runs while it waits: such
    /// work could wait for this very run, whose thread it would keep busy.
    void forEach(unsigned long nbElements, unsigned long cost, const ElementBody& body);

    /// An element's action while it is under way, so that a cancellation finds it.
    class ActionUnderWay
    {
    public:
        ActionUnderWay(RunContext& context, BaseAction& action);
        ~ActionUnderWay();
        ActionUnderWay(const ActionUnderWay&) = delete;
        ActionUnderWay& operator=(const ActionUnderWay&) = delete;

    private:
        friend class RunContext;
        RunContext& m_context;
        BaseAction& m_action;
        ActionUnderWay* m_pNext;
        ActionUnderWay** m_ppThis;
    };
    /// Tells every action that is under way. From any thread while the context lives.
    void tellActions();

private:
    void report(unsigned long done, unsigned long known);

    BaseExecutor& m_executor;
    const std::atomic<bool>& m_bCancelled;
    const ProgressObserver& m_observer;
    const bool m_bWatched;
    bool m_bInLoop = false;
    std::atomic_flag m_actionsGate; ///< held for a moment by whoever changes the list, or walks it
    ActionUnderWay* m_pActions = nullptr;
    std::mutex m_mutex;
    Progress m_progress;
};

} // namespace orlix::core
