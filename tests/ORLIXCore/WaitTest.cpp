// Waiting where other runs are under way: a thread that waits does the work itself, or waits for one that does.
#include "ORLIX/ORLIXCore/BaseAction.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <future>
#include <memory>
#include <stdexcept>
#include <thread>

namespace orlix::core {
namespace {

using orlix::testing::g_bTbbIsVisible;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr auto g_sync = eSynchroType::eSynchroSync;
constexpr auto g_async = eSynchroType::eSynchroAsync;

/// A level of `nbElements` elements that counts them.
struct Counted
{
    explicit Counted(unsigned long nbElements)
        : provider(nbElements,
                   [this](unsigned long, RunContext&) {
                       ++nbRuns;
                       return true;
                   }),
          action(makeLevel(provider))
    {}

    std::atomic<unsigned long> nbRuns{0};
    TestProvider provider;
    boost::shared_ptr<TestAction> action;
};

/// Starts a run of its own and waits for it; `depth` levels of that.
ProcessingResult<bool> startAndWait(int depth, std::atomic<unsigned long>& nbLeaves)
{
    TestProvider provider(3, [&](unsigned long, RunContext&) -> ProcessingResult<bool> {
        if (depth > 0) {
            return startAndWait(depth - 1, nbLeaves);
        }
        ++nbLeaves;
        return true;
    });
    const auto action = makeLevel(provider);
    if (ProcessingResult<bool> started = action->run(g_async); !started) {
        return started;
    }
    return action->wait();
}

TEST(Wait, InsideElementsForRunsOfTheirOwn)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::atomic<unsigned long> nbLeaves{0};
        TestProvider outer(16, [&](unsigned long, RunContext&) { return startAndWait(1, nbLeaves); });
        const auto action = makeLevel(outer);
        EXPECT_TRUE(action->run(g_sync).getValue());
        EXPECT_EQ(nbLeaves, 16u * 3 * 3);
        EXPECT_TRUE(action->run(g_async).getValue());
        EXPECT_TRUE(action->wait().getValue());
        EXPECT_EQ(nbLeaves, 2u * 16 * 3 * 3);
    }
}

TEST(Wait, InsideElementsForOneRunThatIsSharedByAll)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        for (int repetition = 0; repetition < 20; ++repetition) {
            Counted shared(50);
            ASSERT_TRUE(shared.action->run(g_async).getValue());
            TestProvider outer(16, [&](unsigned long, RunContext&) { return shared.action->wait(); });
            ASSERT_TRUE(makeLevel(outer)->run(g_sync).getValue());
            ASSERT_EQ(shared.nbRuns, 50u);
        }
    }
}

TEST(Wait, ForRunsThatWaitThemselves)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::vector<boost::shared_ptr<TestAction>> chain;
        std::vector<std::unique_ptr<TestProvider>> providers;
        for (int i = 0; i < 20; ++i) {
            const boost::shared_ptr<TestAction> former = chain.empty() ? nullptr : chain.back();
            providers.push_back(std::make_unique<TestProvider>(2, [former](unsigned long, RunContext&) {
                return former ? former->wait() : ProcessingResult<bool>(true);
            }));
            chain.push_back(makeLevel(*providers.back()));
        }
        for (const auto& action : chain) {
            ASSERT_TRUE(action->run(g_async).getValue());
        }
        EXPECT_TRUE(chain.back()->wait().getValue());
        for (const auto& action : chain) {
            EXPECT_TRUE(action->wait().getValue());
        }
    }
}

TEST(Wait, OnManyThreadsFromOutsideAtOnce)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        for (int repetition = 0; repetition < 10; ++repetition) {
            Counted shared(40);
            ASSERT_TRUE(shared.action->run(g_async).getValue());
            std::vector<std::future<bool>> threads;
            for (int i = 0; i < 6; ++i) {
                threads.push_back(std::async(std::launch::async, [&] {
                    TestProvider outer(8, [&](unsigned long, RunContext&) { return shared.action->wait(); });
                    return makeLevel(outer)->run(g_sync).getValue() && shared.action->wait().getValue();
                }));
            }
            for (std::future<bool>& thread : threads) {
                ASSERT_TRUE(thread.get());
            }
            ASSERT_EQ(shared.nbRuns, 40u);
        }
    }
}

TEST(Wait, InsideALoopOfTheProgramItself)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::atomic<unsigned long> nbLeaves{0};
        std::atomic<int> nbSucceeded{0};
        tbb::parallel_for(0, 16, [&](int) { nbSucceeded += startAndWait(1, nbLeaves).getValue() ? 1 : 0; });
        EXPECT_EQ(nbSucceeded, 16);
        EXPECT_EQ(nbLeaves, 16u * 3 * 3);
    }
}

TEST(Wait, InsideALoopOfTheProgramItselfForOneRunThatIsSharedByAll)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        for (int repetition = 0; repetition < 20; ++repetition) {
            Counted shared(50);
            ASSERT_TRUE(shared.action->run(g_async).getValue());
            std::atomic<int> nbSucceeded{0};
            tbb::parallel_for(0, 64, [&](int) { nbSucceeded += shared.action->wait().getValue() ? 1 : 0; });
            ASSERT_EQ(nbSucceeded, 64);
            ASSERT_EQ(shared.nbRuns, 50u);
        }
    }
}

TEST(Wait, InAnArenaOfOneThread)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::atomic<unsigned long> nbLeaves{0};
        tbb::task_arena(1).execute([&] { EXPECT_TRUE(startAndWait(2, nbLeaves).getValue()); });
        EXPECT_EQ(nbLeaves, 27u);
    }
}

TEST(Wait, FailuresAndExceptionsOfARunThatTheWaitingThreadDoesAreItsResult)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        TestProvider outer(4, [&](unsigned long element, RunContext&) {
            const auto inner = boost::make_shared<TestAction>([element](RunContext&) -> ProcessingResult<bool> {
                if (element % 2 == 0) {
                    throw std::runtime_error("thrown");
                }
                return ProcessingResult<bool>::failure("failed");
            });
            EXPECT_TRUE(inner->run(g_async).getValue());
            EXPECT_EQ(inner->wait().getMessage(), element % 2 == 0 ? "thrown" : "failed");
            return true;
        });
        EXPECT_TRUE(makeLevel(outer)->run(g_sync).getValue());
    }
}

} // namespace
} // namespace orlix::core
