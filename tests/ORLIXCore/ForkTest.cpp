// Runs in a forked child, which has none of its parent's threads.
#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace orlix::core {
namespace {

using orlix::testing::g_bTbbIsVisible;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr auto g_sync = eSynchroType::eSynchroSync;
constexpr auto g_async = eSynchroType::eSynchroAsync;

/// What `work` returns in a child; minus a signal's number where one ended it, SIGALRM where it hung.
int inChild(const std::function<int()>& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(60);
        ::_exit(work()); // the logging library would wait for its own threads
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// 0 where a level of two levels runs as it should, synchronously or not.
int runLevels(eSynchroType::domain synchro)
{
    std::atomic<unsigned long> nbRuns{0};
    TestProvider outer(10, [&](unsigned long, RunContext& context) {
        TestProvider inner(20, [&](unsigned long, RunContext&) {
            ++nbRuns;
            return true;
        });
        return runElements(inner, context);
    });
    const auto action = makeLevel(outer);
    if (!action->run(synchro) || !action->wait()) {
        return 1;
    }
    return nbRuns == 200 ? 0 : 2;
}

int runBoth()
{
    const int status = runLevels(g_sync);
    return status != 0 ? status : 10 * runLevels(g_async);
}

/// ThreadSanitizer ends a child that makes threads where its parent had some, and AddressSanitizer's own allocator may
/// be locked in a child by a thread that was about to sleep.
bool canForkHere()
{
#ifdef ORLIX_ADDRESS_SANITIZER
    return false;
#else
    return g_bTbbIsVisible;
#endif
}

TEST(Fork, ChildrenRunWithWhateverExecutorTheirParentHad)
{
    if (!canForkHere()) {
        GTEST_SKIP() << "sanitizers end or hang children of processes with threads";
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        ASSERT_EQ(runBoth(), 0);
        EXPECT_EQ(inChild(runBoth), 0);
        EXPECT_EQ(inChild([] { return inChild(runBoth); }), 0) << "of a child";
        EXPECT_EQ(runBoth(), 0) << "the parent goes on";
    }
}

TEST(Fork, ChildrenMayChooseTheirThreads)
{
    if (!canForkHere()) {
        GTEST_SKIP() << "sanitizers end or hang children of processes with threads";
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        ASSERT_EQ(runBoth(), 0);
        EXPECT_EQ(inChild([] {
                      setNbThreads(3);
                      const bool bThree = accessExecutor().getNbThreads() == 3;
                      const int three = runBoth();
                      setNbThreads(0);
                      const int usable = runBoth();
                      setExecutor({});
                      return bThree ? three + usable + runBoth() : 100;
                  }),
                  0);
    }
}

TEST(Fork, RunsOfTheParentAreLostAndSayIt)
{
    if (!canForkHere()) {
        GTEST_SKIP() << "sanitizers end or hang children of processes with threads";
    }
    std::promise<void> started;
    std::promise<void> go;
    const auto action = boost::make_shared<TestAction>([&, gate = go.get_future().share()](RunContext&) {
        started.set_value();
        gate.wait();
        return true;
    });
    ASSERT_TRUE(action->run(g_async).getValue());
    started.get_future().wait();
    const std::string lost = "The run was under way on a thread of the process that this one was forked from: "
                             "wait there, or make a new action here";
    EXPECT_EQ(inChild([&] {
                  action->requestCancellation();
                  const bool bLost = action->wait().getMessage() == lost && action->run(g_sync).getMessage() == lost;
                  return bLost && !action->isFinished() ? runBoth() : 3;
              }),
              0);
    go.set_value();
    EXPECT_TRUE(action->wait().getValue());
}

TEST(Fork, RunsThatNobodyHasTakenUpAreDoneByWhoWaitsInTheChild)
{
    if (!canForkHere()) {
        GTEST_SKIP() << "sanitizers end or hang children of processes with threads";
    }
    const ScopedExecutor scope(makeTbbExecutor(2));
    std::promise<void> started;
    std::promise<void> go;
    const auto blocking = boost::make_shared<TestAction>([&, gate = go.get_future().share()](RunContext&) {
        started.set_value();
        gate.wait();
        return true;
    });
    ASSERT_TRUE(blocking->run(g_async).getValue()); // has the only thread
    started.get_future().wait();
    int nbRuns = 0;
    const auto waiting = boost::make_shared<TestAction>([&](RunContext&) { return ++nbRuns > 0; });
    ASSERT_TRUE(waiting->run(g_async).getValue());
    EXPECT_EQ(inChild([&] { return waiting->wait().getValue() && nbRuns == 1 ? 0 : 4; }), 0);
    EXPECT_TRUE(waiting->wait().getValue());
    EXPECT_EQ(nbRuns, 1);
    go.set_value();
    EXPECT_TRUE(blocking->wait().getValue());
}

TEST(Fork, WhileOtherThreadsRunAndPost)
{
    if (!canForkHere()) {
        GTEST_SKIP() << "sanitizers end or hang children of processes with threads";
    }
    const ScopedExecutor scope({});
    std::atomic<bool> bOver{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&bOver] {
            while (!bOver) {
                static_cast<void>(runBoth());
            }
        });
    }
    for (int repetition = 0; repetition < 30; ++repetition) {
        EXPECT_EQ(inChild(runBoth), 0) << repetition;
    }
    bOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace
} // namespace orlix::core
