// Something that can be run, waited for, watched and cancelled.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/enable_shared_from_this.hpp>

#include <atomic>

namespace orlix::core {

class CallWatch;
struct PostedRun;
class RunContext;

/// States: created, running, finished; a finished action can be run again. `requestCancellation`, `isFinished` and
/// `wait` may be called from any thread; everything else from one thread at a time and not while running.
class ORLIXCORE_API BaseAction : public BaseDynamicObject, public boost::enable_shared_from_this<BaseAction>
{
public:
    ~BaseAction() override;

    /// Synchronous: runs to the end on the calling thread and returns the result; an exception out of any level arrives
    /// unchanged. Asynchronous: starts the run, keeps the action alive until it ends, and returns success at once; what
    /// keeps it from starting is a failure, and the run's result. Running an action that already runs is a failure.
    ProcessingResult<bool> run(const eSynchroType& synchro);
    /// Returns the result once the run has ended; an exception on the way is its text, with the number of its message.
    /// Whatever kept the action alive for an asynchronous run has let go of it by then: who waited and holds the only
    /// pointer frees it, and what it holds, by dropping that. A failure where the action was never run. A run that no
    /// thread has taken up is done by the thread that waits, so waiting inside an element of another run is safe; a run
    /// must not wait for itself. After a fork, waiting in the child for a run that another thread of the parent was
    /// doing is a failure.
    ProcessingResult<bool> wait();
    bool isFinished() const { return m_state.load(std::memory_order_acquire) == eState::finished; }
    /// Ends the run at the next element, as a failure with a message of its own. Every action that is under way in the
    /// run is told at once by `requestCancellationdDerived`, its provider by the run loop. Asked before a run it has no
    /// effect.
    void requestCancellation();
    /// For the runs that start from now on. Empty: nobody watches.
    void setProgressObserver(const ProgressObserver& observer) { m_observer = observer; }
    void clearProgressObserver()
    {
        if (m_observer) {
            m_observer.clear();
        }
    }
    /// For the runs that start from now on, synchronous or not: told once at the end of each, on the thread that ended
    /// it, with the result of `wait`. `isFinished()` is true by then, and whatever kept the action alive for an
    /// asynchronous run has let go of it, so an observer that needs it has to keep it alive itself. `wait` may return
    /// before the observer does, and where it was the waiting thread that did the run, returns after it. The end of the
    /// process waits for observers as for runs. A run that a fork has lost tells nothing in the child.
    ///
    /// The observer may do what any thread may at that time: run other actions, wait for them, and start this one
    /// again, for whose end it is told anew. Who waits meanwhile gets the result of the earlier run or of the later
    /// one.
    void setFinishObserver(const FinishObserver& observer);
    void clearFinishObserver() { m_finishObserver.reset(); }
    /// How urgent the action's work is; an action that hands out others gives them less urgent ones.
    const BasePriority& getPriority() const { return m_priority; }
    void setPriority(const BasePriority& priority) { m_priority = priority; }

    /// True for an action that hands out other actions.
    virtual bool isComplexAction() const = 0;

    /// Runs as an element of another action's run; called by the run loop alone.
    ProcessingResult<bool> runWithin(RunContext& context);

protected:
    BaseAction() = default;

    virtual void globalCleanDerived() {}  ///< after every run; must not throw
    virtual void cleanOnErrorDerived() {} ///< after a failed run, before globalCleanDerived; must not throw
    virtual ProcessingResult<bool> runDerived() = 0;
    /// The run that this action is part of, or the action itself, is to end early. Called on the thread that asks,
    /// while `runDerived` is under way on another one or not at all; must not throw, wait, run or cancel an action.
    virtual void requestCancellationdDerived() {}

    /// Makes the action as if it had never been run; not while it runs.
    void forgetRun();

    /// The run that this action is part of; valid within `runDerived` only.
    RunContext& accessContext() const { return *m_pContext; }

private:
    friend class PostedRuns;
    friend class RunContext;

    enum class eState { created, posted, running, finished };

    /// Who is to be told that a run has ended, and how, apart from the action: that may be gone by then.
    struct Ended
    {
        boost::shared_ptr<const FinishObserver> observer;
        ProcessingResult<bool> result;

        void tell() const noexcept;
    };

    bool start(eState state);
    ProcessingResult<bool> post();
    ProcessingResult<bool> runHere();
    ProcessingResult<bool> runWatched(CallWatch& watch);
    ProcessingResult<bool> runPosted() noexcept;
    ProcessingResult<bool> runToEnd(const ProgressObserver& observer);
    [[nodiscard]] Ended finish(ProcessingResult<bool> result) noexcept;
    ProcessingResult<bool> copyResult() const noexcept;
    bool isLost() const;

    std::atomic<eState> m_state{eState::created};
    std::atomic<bool> m_bCancelled{false};
    std::atomic_flag m_ownContextGate; ///< held for a moment by whoever reads or sets m_pOwnContext
    BasePriority m_priority;
    std::atomic<unsigned> m_process{0}; ///< which process, counted by forks, does the run
    RunContext* m_pContext = nullptr;
    RunContext* m_pOwnContext = nullptr;   ///< of a run that starts with this action
    boost::shared_ptr<PostedRun> m_posted; ///< the last one; under the lock of the posted runs
    ProgressObserver m_observer;
    boost::shared_ptr<const FinishObserver> m_finishObserver; ///< null for nobody
    mutable std::atomic_flag m_resultGate;                    ///< held for a moment by whoever reads or sets m_result
    ProcessingResult<bool> m_result;
};

} // namespace orlix::core
