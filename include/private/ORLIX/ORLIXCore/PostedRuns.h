// Asynchronous runs that no thread has taken up, and those under way.
#pragma once

#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIX/ORLIXCore/KeptLibrary.h"

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <mutex>

namespace orlix::core {

/// One asynchronous run, from its start to its end.
struct PostedRun
{
    enum class eState { waiting, underWay, over };

    boost::shared_ptr<BaseAction> action; ///< kept alive until the run is over
    unsigned long number = 0;             ///< rises from run to run
    KeptLibrary library;                  ///< the one that the class of the action lies in
    eState state = eState::waiting;
    std::atomic<bool> bReleased{false}; ///< nothing of the run holds the action any more
    PostedRun* pNext = nullptr;         ///< in the list of those that are not over
    PostedRun* pPrevious = nullptr;
};

/// Whoever claims a run does it: a thread of the executor, or one that waits for it. Needs no constructor and no
/// destructor to run, since runs may be under way while static objects end.
class PostedRuns
{
public:
    static PostedRuns& getInstance() noexcept;

    /// Makes `action` a posted one. Null where the process ends.
    boost::shared_ptr<PostedRun> add(const boost::shared_ptr<BaseAction>& action);
    /// Does the run of that number, unless somebody does it, has done it or dropped it. A number, since an executor
    /// that ends with tasks in its queue forgets what they hold.
    void doIfUnclaimed(unsigned long number) noexcept;
    /// The same for the run of an action that is posted.
    void doIfUnclaimed(BaseAction& action) noexcept;
    /// Takes out a run that no executor will ever take up; false where somebody has claimed it.
    bool drop(PostedRun& run) noexcept;

    /// Returns true once the run of a finished action has let go of it; false where it has been started again
    /// meanwhile.
    bool waitForRelease(const BaseAction& action) noexcept;

    /// Drops what nobody has taken up, cancels what is under way, and returns when it has ended. Called from within a
    /// run it doesn't wait, since it would wait for itself. `bForGood`: nothing is posted any more.
    void endAll(bool bForGood) noexcept;

    void holdForFork() { m_mutex.lock(); }
    void releaseAfterFork() { m_mutex.unlock(); }
    /// In the child: the threads of all runs under way are gone.
    void forgetThoseUnderWay() noexcept;

private:
    struct Taken
    {
        boost::shared_ptr<PostedRun> run;
        boost::shared_ptr<BaseAction> action;

        void release() noexcept;
        void finish(ProcessingResult<bool> result) noexcept;
    };

    bool claim(PostedRun& run) noexcept;
    void doClaimed(PostedRun& run) noexcept;
    void unlink(PostedRun& run) noexcept;
    Taken take(PostedRun& run) noexcept;
    Taken takeFirstUnclaimed() noexcept;
    void dropAll() noexcept;
    void cancelAll() noexcept;

    std::mutex m_mutex;
    PostedRun* m_pFirst = nullptr;
    PostedRun* m_pLast = nullptr;
    unsigned long m_lastNumber = 0;
    bool m_bEnded = false;
    std::atomic<int> m_nbUnderWay{0};
};

/// The calling thread is inside an element of a run for as long as it lives.
class InsideElement
{
public:
    InsideElement() { ++t_depth; }
    ~InsideElement() { --t_depth; }
    InsideElement(const InsideElement&) = delete;
    InsideElement& operator=(const InsideElement&) = delete;
    static bool isAny() { return t_depth != 0; }

private:
    static thread_local unsigned t_depth;
    const CallWatch::Hidden m_hidden; ///< what an element starts isn't a call of the thread's own
};

} // namespace orlix::core
