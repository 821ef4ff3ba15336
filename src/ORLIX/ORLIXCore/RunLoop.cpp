#include "ORLIX/ORLIXCore/RunLoop.h"

#include "ORLIX/ORLIXCore/BaseActionProvider.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/PostedRuns.h"
#include "ORLIX/ORLIXCore/RunContext.h"

#include <atomic>
#include <exception>
#include <mutex>

namespace orlix::core {

namespace {

/// What came of the elements so far: the failure of the lowest element, and which elements are still wanted.
class Outcome
{
public:
    /// An element below the failed one may fail as well, and then its failure is the one that counts; it is left out
    /// only where it comes behind a failure. So the result is the same in whatever order and on however many threads.
    bool isWanted(unsigned long element) const { return element < m_lowestFailed.load(std::memory_order_relaxed); }

    void fail(unsigned long element, ProcessingResult<bool> result, std::exception_ptr error)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (isWanted(element)) {
            m_result = std::move(result);
            m_error = std::move(error);
            m_lowestFailed.store(element, std::memory_order_relaxed);
        }
    }

    ProcessingResult<bool> take()
    {
        if (m_error) {
            std::rethrow_exception(m_error);
        }
        return std::move(m_result);
    }

private:
    std::atomic<unsigned long> m_lowestFailed{~0UL};
    std::mutex m_mutex;
    ProcessingResult<bool> m_result = true;
    std::exception_ptr m_error;
};

ProcessingResult<bool> cancelled()
{
    return ProcessingResult<bool>::failure(formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eCancelled));
}

ProcessingResult<bool> runAction(BaseAction& action, RunContext& context)
{
    const RunContext::ActionUnderWay underWay(context, action);
    // Asked for before the action could be found, a cancellation has not reached it.
    return context.isCancelled() ? cancelled() : action.runWithin(context);
}

/// Without a lock: for an element that is alone.
ProcessingResult<bool> runLoneElement(BaseActionProvider& provider, RunContext& context)
{
    if (context.isCancelled()) {
        provider.requestCancellationDerived();
        return cancelled();
    }
    if (!provider.hasPendingAction()) {
        return true;
    }
    boost::shared_ptr<BaseAction> action;
    if (ProcessingResult<bool> made = provider.queryNextAction(BaseRequestOrigin(0), action); !made) {
        return made;
    }
    ProcessingResult<bool> result = runAction(*action, context);
    if (context.isCancelled()) {
        provider.requestCancellationDerived();
    }
    provider.notifyDerived(action, result.getValue());
    context.addDone(1);
    return result;
}

class SharedLoop
{
public:
    SharedLoop(BaseActionProvider& provider, RunContext& context) : m_provider(provider), m_context(context) {}

    void operator()(unsigned long element)
    {
        if (!m_outcome.isWanted(element)) {
            return;
        }
        const InsideElement inside;
        try {
            if (ProcessingResult<bool> result = runOne(element); !result) {
                m_outcome.fail(element, std::move(result), nullptr);
            }
        } catch (...) {
            m_outcome.fail(element, {}, std::current_exception());
        }
    }

    ProcessingResult<bool> take() { return m_outcome.take(); }

private:
    ProcessingResult<bool> runOne(unsigned long element)
    {
        boost::shared_ptr<BaseAction> action;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_context.isCancelled()) {
                tellProvider();
                return cancelled();
            }
            if (!m_provider.hasPendingAction()) {
                return true;
            }
            if (ProcessingResult<bool> made = m_provider.queryNextAction(BaseRequestOrigin(element), action); !made) {
                return made;
            }
        }
        ProcessingResult<bool> result = runAction(*action, m_context);
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_context.isCancelled()) {
                tellProvider();
            }
            m_provider.notifyDerived(action, result.getValue());
        }
        m_context.addDone(1);
        return result;
    }

    // The caller holds the lock.
    void tellProvider()
    {
        if (!m_bProviderTold) {
            m_bProviderTold = true;
            m_provider.requestCancellationDerived();
        }
    }

    BaseActionProvider& m_provider;
    RunContext& m_context;
    std::mutex m_mutex;
    bool m_bProviderTold = false;
    Outcome m_outcome;
};

struct ProviderCleaner
{
    BaseActionProvider& provider;
    ~ProviderCleaner() { provider.clearDerived(); }
};

} // namespace

ProcessingResult<bool> runElements(BaseActionProvider& provider, RunContext& context)
{
    const ProviderCleaner cleaner{provider};
    const unsigned long nbElements = provider.getNbElements();
    context.addKnown(nbElements);
    if (nbElements == 0) {
        return true;
    }
    if (nbElements == 1) {
        return runLoneElement(provider, context);
    }
    SharedLoop loop(provider, context);
    context.forEach(nbElements, provider.getCost(), ElementBody(loop));
    return loop.take();
}

} // namespace orlix::core
