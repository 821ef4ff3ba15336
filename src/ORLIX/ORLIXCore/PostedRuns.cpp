#include "ORLIX/ORLIXCore/PostedRuns.h"

#include "ORLIX/ORLIXCore/ForkCount.h"
#include "ORLIX/ORLIXCore/ProcessEnd.h"

#include <boost/make_shared.hpp>

#include <new>
#include <type_traits>
#include <vector>

namespace orlix::core {

thread_local unsigned InsideElement::t_depth = 0;

static_assert(std::is_trivially_destructible_v<PostedRuns>, "runs may be under way while static objects end");

PostedRuns& PostedRuns::getInstance() noexcept
{
    constinit static PostedRuns g_runs;
    return g_runs;
}

boost::shared_ptr<PostedRun> PostedRuns::add(const boost::shared_ptr<BaseAction>& action)
{
    endRunsWithProcess();
    const auto run = boost::make_shared<PostedRun>();
    const BaseAction& derived = *action;
    run->library.keepThatOf(typeid(derived));
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_bEnded) {
        return {};
    }
    run->action = action;
    run->number = ++m_lastNumber;
    run->pPrevious = m_pLast;
    (m_pLast == nullptr ? m_pFirst : m_pLast->pNext) = run.get();
    m_pLast = run.get();
    action->m_posted = run;
    return run;
}

// The caller holds the lock.
void PostedRuns::unlink(PostedRun& run) noexcept
{
    (run.pPrevious == nullptr ? m_pFirst : run.pPrevious->pNext) = run.pNext;
    (run.pNext == nullptr ? m_pLast : run.pNext->pPrevious) = run.pPrevious;
}

// The caller holds the lock.
bool PostedRuns::claim(PostedRun& run) noexcept
{
    if (run.state != PostedRun::eState::waiting) {
        return false;
    }
    run.state = PostedRun::eState::underWay;
    m_nbUnderWay.fetch_add(1, std::memory_order_relaxed);
    run.action->m_process.store(getForkCount(), std::memory_order_relaxed);
    run.action->m_state.store(BaseAction::eState::running, std::memory_order_release);
    return true;
}

// The caller holds the lock, and what comes back until it has let go of it.
PostedRuns::Taken PostedRuns::take(PostedRun& run) noexcept
{
    run.state = PostedRun::eState::over;
    unlink(run);
    Taken taken;
    taken.run = run.action->m_posted;
    taken.action = std::move(run.action);
    return taken;
}

void PostedRuns::Taken::release() noexcept
{
    action.reset();
    run->bReleased.store(true, std::memory_order_release);
    run->bReleased.notify_all();
}

/// From its first line on the action may be run again. The observer comes after the release, since it may wait for the
/// action, and the library last: the action keeps what is left of the run, and must not take its own code with it.
void PostedRuns::Taken::finish(ProcessingResult<bool> result) noexcept
{
    const BaseAction::Ended ended = action->finish(std::move(result));
    release();
    ended.tell();
    run->library.release();
}

void PostedRuns::doClaimed(PostedRun& run) noexcept
{
    {
        const InsideElement inside;
        ProcessingResult<bool> result = run.action->runPosted();
        Taken taken;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            taken = take(run);
        }
        taken.finish(std::move(result));
    }
    m_nbUnderWay.fetch_sub(1, std::memory_order_release);
    m_nbUnderWay.notify_all();
}

void PostedRuns::doIfUnclaimed(unsigned long number) noexcept
{
    PostedRun* run = nullptr;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        run = m_pFirst;
        while (run != nullptr && run->number < number) { // those under way, as a rule: numbers rise along the list
            run = run->pNext;
        }
        if (run == nullptr || run->number != number || !claim(*run)) {
            return;
        }
    }
    doClaimed(*run);
}

void PostedRuns::doIfUnclaimed(BaseAction& action) noexcept
{
    boost::shared_ptr<PostedRun> run;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        run = action.m_posted;
        if (!run || !claim(*run)) {
            return;
        }
    }
    doClaimed(*run);
}

bool PostedRuns::drop(PostedRun& run) noexcept
{
    Taken taken;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (run.state != PostedRun::eState::waiting) {
            return false;
        }
        taken = take(run);
    }
    taken.release();
    taken.run->library.release();
    return true;
}

bool PostedRuns::waitForRelease(const BaseAction& action) noexcept
{
    boost::shared_ptr<PostedRun> run;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        run = action.m_posted;
    }
    if (!action.isFinished()) {
        return false; // the run that was found may be one that waits for its turn
    }
    if (run && action.m_process.load(std::memory_order_relaxed) == getForkCount()) {
        run->bReleased.wait(false, std::memory_order_acquire);
    }
    return true;
}

PostedRuns::Taken PostedRuns::takeFirstUnclaimed() noexcept
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (PostedRun* run = m_pFirst; run != nullptr; run = run->pNext) {
        if (run->state == PostedRun::eState::waiting) {
            return take(*run);
        }
    }
    return {};
}

void PostedRuns::dropAll() noexcept
{
    for (Taken taken = takeFirstUnclaimed(); taken.action; taken = takeFirstUnclaimed()) {
        taken.finish(processEnds());
    }
}

void PostedRuns::cancelAll() noexcept
{
    std::vector<boost::shared_ptr<BaseAction>> actions;
    try {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (const PostedRun* run = m_pFirst; run != nullptr; run = run->pNext) {
            actions.push_back(run->action);
        }
    } catch (const std::bad_alloc&) {
        // Those that were not noted are waited for all the same.
    }
    for (const boost::shared_ptr<BaseAction>& action : actions) {
        action->requestCancellation();
    }
}

void PostedRuns::endAll(bool bForGood) noexcept
{
    if (bForGood) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bEnded = true;
    }
    for (;;) {
        dropAll();
        const int nbUnderWay = m_nbUnderWay.load(std::memory_order_acquire);
        if (nbUnderWay == 0) {
            return;
        }
        cancelAll();
        if (InsideElement::isAny()) {
            return;
        }
        m_nbUnderWay.wait(nbUnderWay, std::memory_order_acquire);
    }
}

void PostedRuns::forgetThoseUnderWay() noexcept
{
    m_nbUnderWay.store(0, std::memory_order_relaxed);
}

} // namespace orlix::core
