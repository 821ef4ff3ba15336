// Which runs a call watch is told of and ends, and which are none of its business.
#include "ORLIX/ORLIXCore/CallWatch.h"

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
constexpr auto g_async = eSynchroType::eSynchroAsync;

struct Seen
{
    unsigned long nbCalls = 0;
    Progress last;

    ProgressObserver observer()
    {
        return [this](const Progress& progress) {
            ++nbCalls;
            last = progress;
        };
    }
};

/// A level of elements that do nothing.
struct Level
{
    explicit Level(unsigned long nbElements)
        : provider(nbElements, [](unsigned long, RunContext&) { return true; }), action(makeLevel(provider))
    {}
    TestProvider provider;
    boost::shared_ptr<TestAction> action;
};

bool isCancelled(const ProcessingResult<bool>& result)
{
    return result.getMessage().getNumber() == messageNumber<eORLIXCoreMessage>(eORLIXCoreMessage::eCancelled);
}

TEST(CallWatch, IsToldOfSynchronousRunsUntilItEnds)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        Seen seen;
        Level level(40);
        {
            const CallWatch watch(seen.observer());
            EXPECT_TRUE(level.action->run(g_sync).getValue());
            EXPECT_EQ(seen.last.done, 40u);
            EXPECT_EQ(seen.last.known, 40u);
            EXPECT_EQ(seen.nbCalls, 41u);
            EXPECT_TRUE(level.action->run(g_sync).getValue());
            EXPECT_EQ(seen.last.done, 40u) << "each run from 0 on";
            EXPECT_EQ(seen.nbCalls, 82u);
        }
        EXPECT_TRUE(level.action->run(g_sync).getValue());
        EXPECT_EQ(seen.nbCalls, 82u);
    }
}

TEST(CallWatch, IsToldBesideTheActionsOwnObserver)
{
    Seen own, watching;
    Level level(5);
    level.action->setProgressObserver(own.observer());
    {
        const CallWatch watch(watching.observer());
        EXPECT_TRUE(level.action->run(g_sync).getValue());
    }
    EXPECT_EQ(own.nbCalls, 6u);
    EXPECT_EQ(watching.nbCalls, 6u);
    const CallWatch silent;
    EXPECT_TRUE(level.action->run(g_sync).getValue());
    EXPECT_EQ(own.nbCalls, 12u);
}

TEST(CallWatch, LeavesAsynchronousRunsAlone)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        Seen seen;
        Level level(40);
        CallWatch watch(seen.observer());
        watch.requestCancellation();
        ASSERT_TRUE(level.action->run(g_async).getValue());
        EXPECT_TRUE(level.action->wait().getValue()) << "also where the waiting thread does it";
        EXPECT_EQ(seen.nbCalls, 0u);
    }
}

TEST(CallWatch, LeavesAloneWhatElementsStart)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {1UL, 6UL}) {
            SCOPED_TRACE(each.name);
            const ScopedExecutor scope(each.executor);
            Seen seen;
            const auto outer = boost::make_shared<TestAction>([&](RunContext& context) {
                TestProvider provider(nbElements, [](unsigned long, RunContext&) {
                    EXPECT_EQ(CallWatch::getInnermost(), nullptr);
                    Level inner(10);
                    return inner.action->run(g_sync);
                });
                return runElements(provider, context);
            });
            const CallWatch watch(seen.observer());
            EXPECT_TRUE(outer->run(g_sync).getValue());
            EXPECT_EQ(CallWatch::getInnermost(), &watch);
            EXPECT_EQ(seen.last.known, nbElements);
            EXPECT_EQ(seen.nbCalls, nbElements + 1);
        }
    }
}

TEST(CallWatch, OfAnElementHoldsForWhatThatStarts)
{
    Seen outside, inside;
    const auto outer = boost::make_shared<TestAction>([&](RunContext&) {
        const CallWatch watch(inside.observer());
        Level inner(3);
        return inner.action->run(g_sync);
    });
    const CallWatch watch(outside.observer());
    EXPECT_TRUE(outer->run(g_sync).getValue());
    EXPECT_EQ(inside.last.done, 3u);
    EXPECT_EQ(outside.nbCalls, 0u);
}

TEST(CallWatch, TheInnermostHolds)
{
    Seen outside, inside;
    Level level(7);
    CallWatch outer(outside.observer());
    {
        CallWatch inner(inside.observer());
        outer.requestCancellation();
        EXPECT_TRUE(level.action->run(g_sync).getValue());
        EXPECT_EQ(inside.last.done, 7u);
    }
    EXPECT_EQ(outside.nbCalls, 0u);
    EXPECT_TRUE(isCancelled(level.action->run(g_sync)));
    EXPECT_EQ(inside.nbCalls, 8u);
}

TEST(CallWatch, OfEachThreadIsItsOwn)
{
    Seen seen[2];
    std::thread threads[2];
    for (int i = 0; i < 2; ++i) {
        threads[i] = std::thread([&seen = seen[i], i] {
            const unsigned long nbElements = 10 + 20 * i;
            const CallWatch watch(seen.observer());
            for (int run = 0; run < 50; ++run) {
                Level level(nbElements);
                EXPECT_TRUE(level.action->run(g_sync).getValue());
                EXPECT_EQ(seen.last.done, nbElements);
                EXPECT_EQ(seen.last.known, nbElements);
            }
        });
    }
    Level unwatched(5);
    EXPECT_TRUE(unwatched.action->run(g_sync).getValue());
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(seen[0].nbCalls, 50u * 11);
    EXPECT_EQ(seen[1].nbCalls, 50u * 31);
}

TEST(CallWatch, EndsRunsBeforeTheyBegin)
{
    Seen seen;
    Level level(7);
    CallWatch watch(seen.observer());
    watch.requestCancellation();
    EXPECT_TRUE(watch.isCancelled());
    EXPECT_TRUE(isCancelled(level.action->run(g_sync)));
    EXPECT_TRUE(isCancelled(level.action->wait())) << "it is the run's result";
    EXPECT_TRUE(level.action->m_hooks.empty()) << "nothing of the run was called";
    EXPECT_EQ(seen.nbCalls, 0u);
}

TEST(CallWatch, EndsTheRunUnderWay)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        CallWatch watch;
        std::atomic<unsigned long> nbStarted{0};
        TestProvider provider(500, [&](unsigned long, RunContext& context) {
            ++nbStarted;
            while (!context.isCancelled()) {
                std::this_thread::yield();
            }
            return true;
        });
        const auto action = makeLevel(provider);
        std::thread canceller([&] {
            while (nbStarted == 0) {
                std::this_thread::yield();
            }
            watch.requestCancellation();
        });
        EXPECT_TRUE(isCancelled(action->run(g_sync)));
        canceller.join();
        EXPECT_LE(nbStarted, each.executor->getNbThreads());
        EXPECT_EQ(action->m_hooks,
                  (std::vector<std::string>{"run", "requestCancellation", "cleanOnError", "globalClean"}))
            << "the action is told as by its own cancellation";
    }
}

TEST(CallWatch, ItsObserverCanCancel)
{
    CallWatch* asked = nullptr;
    CallWatch watch([&](const Progress& progress) {
        if (progress.done == 3) {
            asked->requestCancellation();
        }
    });
    asked = &watch;
    const ScopedExecutor scope(makeShuffledExecutor(1));
    Level level(100);
    EXPECT_TRUE(isCancelled(level.action->run(g_sync)));
    EXPECT_EQ(level.provider.m_nbSucceeded, 3u);
}

TEST(CallWatch, TellsOfWorkThatIsNoRun)
{
    Seen seen;
    CallWatch watch([&](const Progress& progress) {
        EXPECT_EQ(CallWatch::getInnermost(), nullptr) << "what the observer starts is not watched";
        seen.observer()(progress);
    });
    EXPECT_TRUE(watch.tell({2, 5}));
    EXPECT_EQ(seen.last.done, 2u);
    EXPECT_EQ(seen.last.known, 5u);
    watch.requestCancellation();
    EXPECT_FALSE(watch.tell({3, 5}));
    CallWatch silent;
    EXPECT_TRUE(silent.tell({0, 1}));
}

} // namespace
} // namespace orlix::core
