#include "ORLIX/ORLIXCore/BaseAction.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/RunContext.h"

namespace orlix::core {

namespace {

ProcessingResult<bool> failure(eORLIXCoreMessage::domain id)
{
    return ProcessingResult<bool>::failure(formatMessage<eORLIXCoreMessage>(id));
}

} // namespace

BaseAction::~BaseAction() = default;

bool BaseAction::start()
{
    if (m_state.exchange(eState::running, std::memory_order_acq_rel) == eState::running) {
        return false;
    }
    m_bCancelled.store(false, std::memory_order_relaxed);
    return true;
}

void BaseAction::finish(const ProcessingResult<bool>& result)
{
    m_result = result;
    m_state.store(eState::finished, std::memory_order_release);
    m_state.notify_all();
}

ProcessingResult<bool> BaseAction::run(const eSynchroType& synchro)
{
    if (!start()) {
        return failure(eORLIXCoreMessage::eAlreadyRunning);
    }
    if (synchro == eSynchroType::eSynchroAsync) {
        boost::shared_ptr<BaseAction> self = shared_from_this();
        core::accessExecutor().post([self] {
            try {
                self->finish(self->runToEnd());
            } catch (const std::exception& error) {
                self->finish(ProcessingResult<bool>::failure(error.what()));
            } catch (...) {
                self->finish(failure(eORLIXCoreMessage::eUnknownException));
            }
        });
        return true;
    }
    try {
        ProcessingResult<bool> result = runToEnd();
        finish(result);
        return result;
    } catch (const std::exception& error) {
        finish(ProcessingResult<bool>::failure(error.what()));
        throw;
    } catch (...) {
        finish(failure(eORLIXCoreMessage::eUnknownException));
        throw;
    }
}

ProcessingResult<bool> BaseAction::runToEnd()
{
    RunContext context(core::accessExecutor(), m_bCancelled, m_observer);
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
}

ProcessingResult<bool> BaseAction::wait()
{
    for (;;) {
        const eState state = m_state.load(std::memory_order_acquire);
        if (state == eState::created) {
            return failure(eORLIXCoreMessage::eNeverRun);
        }
        if (state == eState::finished) {
            return m_result;
        }
        m_state.wait(state, std::memory_order_acquire);
    }
}

void BaseAction::requestCancellation()
{
    m_bCancelled.store(true, std::memory_order_relaxed);
    requestCancellationdDerived();
}

} // namespace orlix::core
