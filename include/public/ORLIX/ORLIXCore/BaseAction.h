// Something that can be run, waited for, watched and cancelled.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/enable_shared_from_this.hpp>

#include <atomic>

namespace orlix::core {

class RunContext;

/// States: created, running, finished; a finished action can be run again. `requestCancellation`, `isFinished` and
/// `wait` may be called from any thread; everything else from one thread at a time and not while running.
class ORLIXCORE_API BaseAction : public BaseDynamicObject, public boost::enable_shared_from_this<BaseAction>
{
public:
    ~BaseAction() override;

    /// Synchronous: runs to the end on the calling thread and returns the result; an exception out of any level arrives
    /// unchanged. Asynchronous: starts the run, keeps the action alive until it ends, and returns success at once.
    /// Running an action that already runs is a failure.
    ProcessingResult<bool> run(const eSynchroType& synchro);
    /// Blocks until the run has ended and returns its result; an exception on the way is its text. A failure where the
    /// action was never run.
    ProcessingResult<bool> wait();
    bool isFinished() const { return m_state.load(std::memory_order_acquire) == eState::finished; }
    /// Ends the run at the next element, as a failure with a message of its own. Asked before a run it has no effect.
    void requestCancellation();
    /// For the runs that start from now on. Empty: nobody watches.
    void setProgressObserver(const ProgressObserver& observer) { m_observer = observer; }
    void clearProgressObserver()
    {
        if (m_observer) {
            m_observer.clear();
        }
    }

    /// True for an action that hands out other actions.
    virtual bool isComplexAction() const = 0;

    /// Runs as an element of another action's run; called by the run loop alone.
    ProcessingResult<bool> runWithin(RunContext& context);

protected:
    BaseAction() = default;

    virtual void globalCleanDerived() {}     ///< after every run
    virtual void cleanOnErrorDerived() {}    ///< after a failed run, before globalCleanDerived
    virtual ProcessingResult<bool> runDerived() = 0;
    virtual void requestCancellationdDerived() {}

    /// Makes the action as if it had never been run; not while it runs.
    void forgetRun();

    /// The run that this action is part of; valid within `runDerived` only.
    RunContext& accessContext() const { return *m_pContext; }

private:
    enum class eState { created, running, finished };

    bool start();
    ProcessingResult<bool> runToEnd();
    void finish(const ProcessingResult<bool>& result);

    std::atomic<eState> m_state{eState::created};
    std::atomic<bool> m_bCancelled{false};
    RunContext* m_pContext = nullptr;
    ProgressObserver m_observer;
    ProcessingResult<bool> m_result;
};

} // namespace orlix::core
