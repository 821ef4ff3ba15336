// Actions and providers whose work is a function of the test.
#pragma once

#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/BaseActionProvider.h"
#include "ORLIX/ORLIXCore/RunContext.h"
#include "ORLIX/ORLIXCore/RunLoop.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace orlix::core {

/// Counts its hooks; `m_work` is its run.
class TestAction final : public BaseAction
{
public:
    using Work = std::function<ProcessingResult<bool>(RunContext&)>;

    explicit TestAction(Work work) : m_work(std::move(work)) { m_hooks.reserve(8); } // memory may be out later

    const std::string& getClassName() const override
    {
        static const std::string g_name = "orlix::core::TestAction";
        return g_name;
    }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return std::make_unique<TestAction>(m_work); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override
    {
        return boost::make_shared<TestAction>(m_work);
    }
    bool isComplexAction() const override { return false; }

    std::vector<std::string> m_hooks; ///< what the run loop called, in order

protected:
    ProcessingResult<bool> runDerived() override
    {
        note("run");
        return m_work(accessContext());
    }
    void cleanOnErrorDerived() override { note("cleanOnError"); }
    void globalCleanDerived() override { note("globalClean"); }
    void requestCancellationdDerived() override { note("requestCancellation"); }

private:
    void note(const char* hook)
    {
        const std::lock_guard<std::mutex> lock(m_mutex); // a cancellation comes from another thread
        m_hooks.push_back(hook);
    }

    std::mutex m_mutex;
    Work m_work;
};

/// `m_work` is what each element does. Keeps books of what the run loop asks, and notices two threads at once.
class TestProvider final : public BaseActionProvider
{
public:
    using Work = std::function<ProcessingResult<bool>(unsigned long element, RunContext&)>;

    TestProvider(unsigned long nbElements, Work work) : m_nbElements(nbElements), m_work(std::move(work)) {}

    unsigned long getNbElements() const override { return m_nbElements; }
    unsigned long getCost() const override { return m_cost; }

    ProcessingResult<bool> queryNextAction(const BaseRequestOrigin& origin,
                                           boost::shared_ptr<BaseAction>& action) override
    {
        const Visit visit(*this);
        const unsigned long element = origin.getElement();
        m_queried.push_back(element);
        ++m_nbAsked;
        if (m_query) {
            if (ProcessingResult<bool> result = m_query(element); !result) {
                return result;
            }
        }
        action =
            boost::make_shared<TestAction>([this, element](RunContext& context) { return m_work(element, context); });
        return true;
    }
    bool hasPendingAction() const override { return m_nbAsked < std::min(m_nbElements, m_nbPending); }
    void notifyDerived(boost::shared_ptr<BaseAction>& action, bool bSuccess) override
    {
        const Visit visit(*this);
        ++(bSuccess ? m_nbSucceeded : m_nbFailed);
        m_bEmptyNotice = m_bEmptyNotice || !action;
    }
    void clearDerived() override
    {
        ++m_nbCleared;
        m_nbAsked = 0;
    }
    void requestCancellationDerived() override
    {
        const Visit visit(*this);
        ++m_nbCancelled;
    }

    unsigned long m_cost = 1UL << 40;                                     ///< large: worth threads
    std::function<ProcessingResult<bool>(unsigned long element)> m_query; ///< before an action is made; may be empty

    unsigned long m_nbPending = ~0UL; ///< no more is pending, whatever the elements

    std::vector<unsigned long> m_queried;
    unsigned long m_nbSucceeded = 0;
    unsigned long m_nbFailed = 0;
    unsigned long m_nbCleared = 0;
    unsigned long m_nbCancelled = 0;
    bool m_bEmptyNotice = false;
    std::atomic<bool> m_bTwoAtOnce{false};

private:
    struct Visit
    {
        explicit Visit(TestProvider& provider) : m_provider(provider)
        {
            if (m_provider.m_nbInside++ != 0) {
                m_provider.m_bTwoAtOnce = true;
            }
        }
        ~Visit() { --m_provider.m_nbInside; }
        TestProvider& m_provider;
    };

    unsigned long m_nbElements;
    unsigned long m_nbAsked = 0; ///< in this run
    Work m_work;
    std::atomic<int> m_nbInside{0};
};

/// Runs all elements of `provider` on `executor`, without an action around them.
inline ProcessingResult<bool> runOn(BaseExecutor& executor, BaseActionProvider& provider)
{
    const std::atomic<bool> bCancelled{false};
    const ProgressObserver nobody;
    RunContext context(executor, bCancelled, nobody);
    return runElements(provider, context);
}

/// An action that runs the elements of `provider`, which must outlive it.
inline boost::shared_ptr<TestAction> makeLevel(BaseActionProvider& provider)
{
    return boost::make_shared<TestAction>([&provider](RunContext& context) { return runElements(provider, context); });
}

} // namespace orlix::core
