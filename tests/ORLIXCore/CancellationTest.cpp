// Whom a cancellation reaches, and what a provider that has nothing more to give ends.
#include "ORLIX/ORLIXCore/BaseActionProvider.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <thread>

namespace orlix::core {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr auto g_sync = eSynchroType::eSynchroSync;

std::string cancelledText()
{
    return formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eCancelled);
}

/// Ends only when it is told to.
class StubbornAction final : public BaseAction
{
public:
    explicit StubbornAction(std::atomic<unsigned long>& nbStarted) : m_nbStarted(nbStarted) {}

    const std::string& getClassName() const override
    {
        static const std::string g_name = "orlix::core::StubbornAction";
        return g_name;
    }
    std::unique_ptr<BaseDynamicObject> createNew() const override
    {
        return std::make_unique<StubbornAction>(m_nbStarted);
    }
    boost::shared_ptr<BaseDynamicObject> createShared() const override
    {
        return boost::make_shared<StubbornAction>(m_nbStarted);
    }
    bool isComplexAction() const override { return false; }

protected:
    ProcessingResult<bool> runDerived() override
    {
        ++m_nbStarted;
        while (!m_bTold) {
            std::this_thread::yield();
        }
        return true;
    }
    void requestCancellationdDerived() override { m_bTold = true; }

private:
    std::atomic<unsigned long>& m_nbStarted;
    std::atomic<bool> m_bTold{false};
};

/// Gives out stubborn actions.
class StubbornProvider final : public BaseActionProvider
{
public:
    explicit StubbornProvider(unsigned long nbElements) : m_nbElements(nbElements) {}

    unsigned long getNbElements() const override { return m_nbElements; }
    unsigned long getCost() const override { return 1UL << 40; }
    ProcessingResult<bool> queryNextAction(const BaseRequestOrigin&, boost::shared_ptr<BaseAction>& action) override
    {
        action = boost::make_shared<StubbornAction>(m_nbStarted);
        return true;
    }
    bool hasPendingAction() const override { return m_nbCancelled == 0; }
    void notifyDerived(boost::shared_ptr<BaseAction>&, bool) override {}
    void clearDerived() override {}
    void requestCancellationDerived() override { ++m_nbCancelled; }

    std::atomic<unsigned long> m_nbStarted{0};
    unsigned long m_nbCancelled = 0;

private:
    unsigned long m_nbElements;
};

TEST(Cancellation, ReachesElementsThatAreUnderWay)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {1UL, 2UL, 500UL}) {
            SCOPED_TRACE(each.name + ", " + std::to_string(nbElements));
            const ScopedExecutor scope(each.executor);
            StubbornProvider provider(nbElements);
            TestProvider outer(1, [&](unsigned long, RunContext& context) { return runElements(provider, context); });
            const auto action = makeLevel(outer);
            std::thread canceller([&] {
                while (provider.m_nbStarted == 0) {
                    std::this_thread::yield();
                }
                action->requestCancellation();
            });
            const ProcessingResult<bool> result = action->run(g_sync);
            canceller.join();
            EXPECT_EQ(provider.m_nbCancelled, 1u);
            EXPECT_EQ(outer.m_nbCancelled, 1u);
            EXPECT_LE(provider.m_nbStarted, each.executor->getNbThreads());
            if (nbElements > each.executor->getNbThreads()) {
                EXPECT_EQ(result.getMessage(), cancelledText());
            }
        }
    }
}

TEST(Cancellation, OfALoneElementEndsItsLevelBeforeTheNext)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        boost::shared_ptr<TestAction> action;
        TestProvider first(1, [&](unsigned long, RunContext&) {
            action->requestCancellation();
            return true;
        });
        TestProvider second(1, [](unsigned long, RunContext&) { return true; });
        action = boost::make_shared<TestAction>([&](RunContext& context) {
            ProcessingResult<bool> result = runElements(first, context);
            return result ? runElements(second, context) : result;
        });
        EXPECT_EQ(action->run(g_sync).getMessage(), cancelledText());
        EXPECT_EQ(first.m_nbCancelled, 1u);
        EXPECT_EQ(second.m_nbCancelled, 1u);
        EXPECT_TRUE(second.m_queried.empty());
        action.reset();
    }
}

TEST(Cancellation, ProvidersAreToldOnceAndByOneThreadAtATime)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        boost::shared_ptr<TestAction> action;
        TestProvider provider(1000, [&](unsigned long, RunContext&) {
            action->requestCancellation();
            return true;
        });
        action = makeLevel(provider);
        EXPECT_EQ(action->run(g_sync).getMessage(), cancelledText());
        EXPECT_EQ(provider.m_nbCancelled, 1u);
        EXPECT_FALSE(provider.m_bTwoAtOnce);
        EXPECT_TRUE(action->run(g_sync).getMessage() == cancelledText()) << "each run anew";
        EXPECT_EQ(provider.m_nbCancelled, 2u);
        action.reset();
    }
}

TEST(PendingActions, NoMoreIsAskedForThanThereIs)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {1UL, 2UL, 100UL}) {
            for (const unsigned long nbPending : {0UL, 1UL, 7UL, 200UL}) {
                SCOPED_TRACE(each.name + ", " + std::to_string(nbPending) + " of " + std::to_string(nbElements));
                std::atomic<unsigned long> nbRuns{0};
                TestProvider provider(nbElements, [&](unsigned long, RunContext&) {
                    ++nbRuns;
                    return true;
                });
                provider.m_nbPending = nbPending;
                EXPECT_TRUE(runOn(*each.executor, provider).getValue());
                EXPECT_EQ(nbRuns, std::min(nbElements, nbPending));
                EXPECT_EQ(provider.m_nbCancelled, 0u);
                EXPECT_EQ(provider.m_nbCleared, 1u);
            }
        }
    }
}

} // namespace
} // namespace orlix::core
