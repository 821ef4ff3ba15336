// Watches and cancels the calls of a scope, whose processors nobody sees.
#pragma once

#include "ORLIX/ORLIXCore/ActionTypes.h"
#include "ORLIX/ORLIXCore/Export.h"

#include <atomic>

namespace orlix::core {

class BaseAction;

/// While it lives, synchronous runs that its thread starts tell it their progress and can be cancelled through it:
/// those behind public functions such as `copyImg`, and those of processors alike, whose own observers are told as
/// well.
///
///     core::CallWatch watch([](const core::Progress& progress) { draw(progress.done, progress.known); });
///     const ImagePtr copy = copyImg(image); // throws where another thread has called watch.requestCancellation()
///
/// Outermost runs alone: what an element of a run starts belongs to that run. Asynchronous runs have an observer and a
/// cancellation of their own. Scopes nest, and the innermost holds. Reading and writing image files heeds it too.
///
/// Lives in one scope of one thread, and ends there; `requestCancellation` may be called from any thread until then.
class ORLIXCORE_API CallWatch
{
public:
    /// For cancellation alone.
    CallWatch() noexcept;
    /// `observer` is told of each run apart, from 0 elements on, as that of an action is: see ProgressObserver. A run
    /// that has nothing to do tells nothing.
    explicit CallWatch(const ProgressObserver& observer);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    /// Ends the run under way as `BaseAction::requestCancellation` does, and from now on every run of the scope before
    /// it begins, with nothing written: as failures with message `eORLIXCoreMessage::eCancelled`, which functions
    /// throw.
    void requestCancellation() noexcept;
    bool isCancelled() const { return m_bCancelled.load(std::memory_order_relaxed); }

    /// Tells the observer, for long work on the calling thread that is no run. False: end it, a cancellation was asked
    /// for.
    bool tell(const Progress& progress);

    /// The one that holds for what the calling thread starts now; null where nobody watches.
    static CallWatch* getInnermost() noexcept { return t_pInnermost; }

private:
    friend class BaseAction;

    /// The watch looks away while what it watches is under way on its thread.
    class Hidden
    {
    public:
        Hidden() noexcept : m_pHidden(t_pInnermost) { t_pInnermost = nullptr; }
        ~Hidden() { t_pInnermost = m_pHidden; }
        Hidden(const Hidden&) = delete;
        Hidden& operator=(const Hidden&) = delete;

    private:
        CallWatch* m_pHidden;
    };
    friend class InsideElement;

    /// A run of `action` while it is under way, so that a cancellation finds it.
    class Run
    {
    public:
        Run(CallWatch& watch, BaseAction& action);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

    private:
        void set(BaseAction* action);

        CallWatch& m_watch;
        const Hidden m_hidden;
    };

    static constinit thread_local CallWatch* t_pInnermost;

    CallWatch* const m_pOuter;
    ProgressObserver m_observer;
    std::atomic<bool> m_bCancelled{false};
    std::atomic_flag m_actionGate; ///< held for a moment by whoever sets m_pAction, or cancels it
    BaseAction* m_pAction = nullptr;
};

} // namespace orlix::core
