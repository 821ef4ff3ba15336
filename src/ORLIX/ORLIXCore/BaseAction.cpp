#include "ORLIX/ORLIXCore/BaseAction.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIX/ORLIXCore/ForkCount.h"
#include "ORLIX/ORLIXCore/Gate.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/PostedRuns.h"
#include "ORLIX/ORLIXCore/ProcessEnd.h"
#include "ORLIX/ORLIXCore/RunContext.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

#include <boost/make_shared.hpp>

#include <new>
#include <thread>

namespace orlix::core {

namespace {

ProcessingResult<bool> failure(eORLIXCoreMessage::domain id)
{
    return ProcessingResult<bool>::failure(formatMessage<eORLIXCoreMessage>(id));
}

/// For use in a handler. Where there is no memory for its text, the failure says so.
ProcessingResult<bool> describeCurrentException() noexcept
{
    try {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            return ProcessingResult<bool>::outOfMemory();
        } catch (const BaseException& error) {
            return ProcessingResult<bool>::failure(error.getMessage());
        } catch (const std::exception& error) {
            return ProcessingResult<bool>::failure(error.what());
        } catch (...) {
            return failure(eORLIXCoreMessage::eUnknownException);
        }
    } catch (...) {
        return ProcessingResult<bool>::outOfMemory();
    }
}

} // namespace

BaseAction::~BaseAction() = default;

bool BaseAction::start(eState next)
{
    eState state = m_state.load(std::memory_order_acquire);
    do {
        if (state == eState::posted || state == eState::running) {
            return false;
        }
        m_process.store(getForkCount(), std::memory_order_relaxed);
    } while (!m_state.compare_exchange_weak(state, next, std::memory_order_acq_rel));
    m_bCancelled.store(false, std::memory_order_relaxed);
    return true;
}

void BaseAction::setFinishObserver(const FinishObserver& observer)
{
    m_finishObserver = observer ? boost::make_shared<const FinishObserver>(observer) : nullptr;
}

void BaseAction::Ended::tell() const noexcept
{
    if (observer) {
        (*observer)(result);
    }
}

BaseAction::Ended BaseAction::finish(ProcessingResult<bool> result) noexcept
{
    Ended ended;
    ended.observer = m_finishObserver; // whoever sees the end may set another one
    {
        const Gate gate(m_resultGate);
        m_result = std::move(result);
    }
    if (ended.observer) {
        ended.result = copyResult();
    }
    m_state.store(eState::finished, std::memory_order_release);
    m_state.notify_all();
    return ended;
}

ProcessingResult<bool> BaseAction::copyResult() const noexcept
{
    try {
        const Gate gate(m_resultGate);
        return m_result;
    } catch (const std::bad_alloc&) {
        return ProcessingResult<bool>::outOfMemory();
    }
}

ProcessingResult<bool> BaseAction::run(const eSynchroType& synchro)
{
    const bool bAsynchronous = synchro == eSynchroType::eSynchroAsync;
    if (!start(bAsynchronous ? eState::posted : eState::running)) {
        return failure(isLost() ? eORLIXCoreMessage::eLostByFork : eORLIXCoreMessage::eAlreadyRunning);
    }
    if (bAsynchronous) {
        return post();
    }
    try {
        ProcessingResult<bool> result = runHere();
        finish(result).tell();
        return result;
    } catch (...) {
        finish(describeCurrentException()).tell();
        throw;
    }
}

ProcessingResult<bool> BaseAction::post()
{
    boost::shared_ptr<PostedRun> posted;
    ProcessingResult<bool> result = true;
    try {
        posted = PostedRuns::getInstance().add(shared_from_this());
        if (posted) {
            core::accessExecutor().post([number = posted->number] { PostedRuns::getInstance().doIfUnclaimed(number); });
            return result;
        }
        result = processEnds();
    } catch (...) {
        if (posted && !PostedRuns::getInstance().drop(*posted)) {
            return result; // a thread that waits for it has it in hand
        }
        result = describeCurrentException();
    }
    finish(result).tell();
    return result;
}

ProcessingResult<bool> BaseAction::runHere()
{
    CallWatch* const watch = CallWatch::getInnermost();
    return watch == nullptr ? runToEnd(m_observer) : runWatched(*watch);
}

ProcessingResult<bool> BaseAction::runWatched(CallWatch& watch)
{
    const CallWatch::Run run(watch, *this);
    if (watch.isCancelled()) { // asked for before the run could be found
        return failure(eORLIXCoreMessage::eCancelled);
    }
    if (!watch.m_observer) {
        return runToEnd(m_observer);
    }
    if (!m_observer) {
        return runToEnd(watch.m_observer);
    }
    return runToEnd([this, &watch](const Progress& progress) {
        m_observer(progress);
        watch.m_observer(progress);
    });
}

ProcessingResult<bool> BaseAction::runPosted() noexcept
{
    try {
        return runToEnd(m_observer);
    } catch (...) {
        return describeCurrentException();
    }
}

ProcessingResult<bool> BaseAction::runToEnd(const ProgressObserver& observer)
{
    RunContext context(core::accessExecutor(), m_bCancelled, observer);
    struct OwnContext
    {
        BaseAction& action;
        OwnContext(BaseAction& own, RunContext& context) : action(own) { set(&context); }
        ~OwnContext() { set(nullptr); }
        void set(RunContext* context)
        {
            const Gate gate(action.m_ownContextGate);
            action.m_pOwnContext = context;
        }
    } const ownContext(*this, context);
    return runWithin(context);
}

ProcessingResult<bool> BaseAction::runWithin(RunContext& context)
{
    m_pContext = &context;
    struct Cleaner
    {
        BaseAction& action;
        bool bSuccess = false;
        ~Cleaner()
        {
            if (!bSuccess) {
                action.cleanOnErrorDerived();
            }
            action.globalCleanDerived();
            action.m_pContext = nullptr;
        }
    } cleaner{*this};
    ProcessingResult<bool> result = runDerived();
    cleaner.bSuccess = result.getValue();
    return result;
}

void BaseAction::forgetRun()
{
    m_state.store(eState::created, std::memory_order_relaxed);
    m_result = {};
    m_posted.reset();
    m_priority = {};
}

bool BaseAction::isLost() const
{
    return m_state.load(std::memory_order_acquire) == eState::running &&
           m_process.load(std::memory_order_relaxed) != getForkCount();
}

ProcessingResult<bool> BaseAction::wait()
{
    for (;;) {
        const eState state = m_state.load(std::memory_order_acquire);
        if (state == eState::created) {
            return failure(eORLIXCoreMessage::eNeverRun);
        }
        if (state == eState::finished) {
            if (PostedRuns::getInstance().waitForRelease(*this)) {
                return copyResult();
            }
        } else if (state == eState::posted) {
            PostedRuns::getInstance().doIfUnclaimed(*this);
            std::this_thread::yield(); // it is being posted, or has just been claimed
        } else if (isLost()) {
            return failure(eORLIXCoreMessage::eLostByFork);
        } else {
            m_state.wait(state, std::memory_order_acquire);
        }
    }
}

void BaseAction::requestCancellation()
{
    m_bCancelled.store(true, std::memory_order_relaxed);
    requestCancellationdDerived();
    if (!isLost()) {
        const Gate gate(m_ownContextGate);
        if (m_pOwnContext != nullptr) {
            m_pOwnContext->tellActions();
        }
    }
}

} // namespace orlix::core
