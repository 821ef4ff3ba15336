// The states of an action, what comes of a run, and how it is cancelled.
#include "ORLIX/ORLIXCore/BaseAction.h"

#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <boost/weak_ptr.hpp>
#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <thread>

namespace orlix::core {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr auto g_sync = eSynchroType::eSynchroSync;
constexpr auto g_async = eSynchroType::eSynchroAsync;

struct OwnError : std::runtime_error
{
    OwnError() : std::runtime_error("own error") {}
    int m_number = 17;
};

boost::shared_ptr<TestAction> makeAction(TestAction::Work work)
{
    return boost::make_shared<TestAction>(std::move(work));
}

std::string textOf(eORLIXCoreMessage::domain id)
{
    return formatMessage<eORLIXCoreMessage>(id);
}

/// Those whose `post` is on another thread.
std::vector<NamedExecutor> makePostingExecutors()
{
    std::vector<NamedExecutor> executors = makeAllExecutors();
    std::erase_if(executors, [](const NamedExecutor& each) { return each.name.starts_with("shuffled"); });
    return executors;
}

TEST(BaseAction, SaysThatItWasNeverRun)
{
    const auto action = makeAction([](RunContext&) { return true; });
    EXPECT_FALSE(action->isFinished());
    EXPECT_FALSE(action->wait().getValue());
    EXPECT_EQ(action->wait().getMessage(), "There is nothing to wait for: start the action with run first");
    EXPECT_TRUE(action->m_hooks.empty());
}

TEST(BaseAction, RunsToTheEndOnTheCallingThread)
{
    std::thread::id thread;
    const auto action = makeAction([&](RunContext&) {
        thread = std::this_thread::get_id();
        return true;
    });
    const ProcessingResult<bool> result = action->run(g_sync);
    EXPECT_TRUE(result.getValue());
    EXPECT_EQ(result.getMessage(), "");
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_TRUE(action->isFinished());
    EXPECT_TRUE(action->wait().getValue());
    EXPECT_EQ(action->m_hooks, (std::vector<std::string>{"run", "globalClean"}));
}

TEST(BaseAction, AFailedRunIsCleanedAndKeepsItsMessage)
{
    const auto action = makeAction([](RunContext&) { return ProcessingResult<bool>::failure("no luck"); });
    EXPECT_EQ(action->run(g_sync).getMessage(), "no luck");
    EXPECT_TRUE(action->isFinished());
    EXPECT_FALSE(action->wait().getValue());
    EXPECT_EQ(action->wait().getMessage(), "no luck");
    EXPECT_EQ(action->m_hooks, (std::vector<std::string>{"run", "cleanOnError", "globalClean"}));
}

TEST(BaseAction, CanBeRunAgain)
{
    int nbRuns = 0;
    const auto action = makeAction([&](RunContext&) {
        return ++nbRuns == 1 ? ProcessingResult<bool>::failure("only once") : ProcessingResult<bool>(true);
    });
    EXPECT_FALSE(action->run(g_sync).getValue());
    EXPECT_TRUE(action->run(g_sync).getValue());
    EXPECT_TRUE(action->wait().getValue());
    EXPECT_TRUE(action->run(g_async).getValue());
    EXPECT_TRUE(action->wait().getValue());
    EXPECT_EQ(nbRuns, 3);
}

TEST(BaseAction, RefusesToRunWhileItRuns)
{
    std::vector<std::string> messages;
    boost::shared_ptr<TestAction> action;
    action = makeAction([&](RunContext&) {
        EXPECT_FALSE(action->isFinished());
        messages = {action->run(g_sync).getMessage(), action->run(g_async).getMessage()};
        return true;
    });
    EXPECT_TRUE(action->run(g_sync).getValue());
    EXPECT_EQ(messages, std::vector<std::string>(2, textOf(eORLIXCoreMessage::eAlreadyRunning)));
    EXPECT_TRUE(action->wait().getValue());
    action.reset();
}

TEST(BaseAction, AsynchronousRunsKeepTheActionAliveUntilTheyEnd)
{
    for (const NamedExecutor& each : makePostingExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::promise<void> dropped;
        std::promise<void> ended;
        auto action = makeAction([&, gate = dropped.get_future().share()](RunContext&) {
            gate.wait();
            ended.set_value();
            return true;
        });
        const boost::weak_ptr<TestAction> watch = action;
        EXPECT_TRUE(action->run(g_async).getValue());
        EXPECT_FALSE(action->isFinished());
        action.reset();
        EXPECT_FALSE(watch.expired());
        dropped.set_value();
        ended.get_future().wait();
        while (!watch.expired()) {
            std::this_thread::yield();
        }
    }
}

TEST(BaseAction, WaitBlocksUntilTheEndForAnyNumberOfThreads)
{
    for (const NamedExecutor& each : makePostingExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::promise<void> go;
        const auto action = makeAction([gate = go.get_future().share()](RunContext&) {
            gate.wait();
            return ProcessingResult<bool>::failure("late failure");
        });
        EXPECT_TRUE(action->run(g_async).getValue());
        EXPECT_EQ(action->run(g_async).getMessage(), textOf(eORLIXCoreMessage::eAlreadyRunning));
        std::vector<std::future<std::string>> waiting;
        for (int i = 0; i < 3; ++i) {
            waiting.push_back(
                std::async(std::launch::async, [&]() -> std::string { return action->wait().getMessage(); }));
        }
        go.set_value();
        for (std::future<std::string>& each : waiting) {
            EXPECT_EQ(each.get(), "late failure");
        }
        EXPECT_TRUE(action->isFinished());
    }
}

TEST(BaseAction, ExceptionsReachASynchronousCallerUnchanged)
{
    const auto action = makeAction([](RunContext&) -> ProcessingResult<bool> { throw OwnError(); });
    try {
        static_cast<void>(action->run(g_sync));
        FAIL() << "no exception";
    } catch (const OwnError& error) {
        EXPECT_EQ(error.m_number, 17);
    }
    EXPECT_TRUE(action->isFinished());
    EXPECT_FALSE(action->wait().getValue());
    EXPECT_EQ(action->wait().getMessage(), "own error");
    EXPECT_EQ(action->m_hooks, (std::vector<std::string>{"run", "cleanOnError", "globalClean"}));
}

TEST(BaseAction, ExceptionsThatAreNoExceptionObjectsPassToo)
{
    const auto action = makeAction([](RunContext&) -> ProcessingResult<bool> { throw 42; });
    EXPECT_THROW(static_cast<void>(action->run(g_sync)), int);
    EXPECT_EQ(action->wait().getMessage(), "An exception of unknown type ended the run");
}

TEST(BaseAction, ExceptionsOfAnAsynchronousRunAreTextsForWait)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        const auto known = makeAction([](RunContext&) -> ProcessingResult<bool> { throw OwnError(); });
        EXPECT_TRUE(known->run(g_async).getValue());
        EXPECT_EQ(known->wait().getMessage(), "own error");
        const auto unknown = makeAction([](RunContext&) -> ProcessingResult<bool> { throw 42; });
        EXPECT_TRUE(unknown->run(g_async).getValue());
        EXPECT_FALSE(unknown->wait().getValue());
        EXPECT_EQ(unknown->wait().getMessage(), textOf(eORLIXCoreMessage::eUnknownException));
    }
}

TEST(BaseAction, CancellationFromAnotherThreadEndsTheRunAtTheNextElement)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        boost::shared_ptr<TestAction> action;
        std::atomic<unsigned long> nbStarted{0};
        std::atomic<bool> bAsked{false};
        TestProvider provider(1000, [&](unsigned long, RunContext&) {
            if (nbStarted++ == 2) {
                std::thread([&] { action->requestCancellation(); }).join();
                bAsked = true;
            } else if (nbStarted > 2) {
                while (!bAsked) {
                    std::this_thread::yield();
                }
            }
            return true;
        });
        action = makeLevel(provider);
        const ProcessingResult<bool> result = action->run(g_sync);
        EXPECT_FALSE(result.getValue());
        EXPECT_EQ(result.getMessage(),
                  "The run was cancelled before all of its work was done: run it again for a whole result");
        EXPECT_LE(nbStarted, 3 + each.executor->getNbThreads());
        EXPECT_EQ(provider.m_nbCleared, 1u);
        EXPECT_TRUE(action->run(g_sync).getValue()) << "a cancelled action can be run again";
        action.reset();
    }
}

TEST(BaseAction, CancellationReachesNestedLevels)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        boost::shared_ptr<TestAction> action;
        std::atomic<unsigned long> nbInner{0};
        TestProvider outer(1, [&](unsigned long, RunContext& context) {
            TestProvider inner(1000, [&](unsigned long, RunContext&) {
                ++nbInner;
                action->requestCancellation();
                return true;
            });
            return runElements(inner, context);
        });
        action = makeLevel(outer);
        EXPECT_EQ(action->run(g_sync).getMessage(), textOf(eORLIXCoreMessage::eCancelled));
        EXPECT_LE(nbInner, each.executor->getNbThreads());
        action.reset();
    }
}

TEST(BaseAction, CancellationAsynchronously)
{
    for (const NamedExecutor& each : makePostingExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        std::promise<void> started;
        std::atomic<bool> bAsked{false};
        TestProvider provider(3, [&](unsigned long element, RunContext&) {
            if (element == 0) {
                started.set_value();
            }
            while (!bAsked) {
                std::this_thread::yield();
            }
            return true;
        });
        const auto action = boost::make_shared<TestAction>([&](RunContext& context) {
            ProcessingResult<bool> result = runElements(provider, context);
            TestProvider next(2, [](unsigned long, RunContext&) { return true; });
            return result ? runElements(next, context) : result;
        });
        EXPECT_TRUE(action->run(g_async).getValue());
        started.get_future().wait();
        action->requestCancellation();
        bAsked = true;
        EXPECT_EQ(action->wait().getMessage(), textOf(eORLIXCoreMessage::eCancelled));
    }
}

TEST(BaseAction, CancellationBeforeARunHasNoEffect)
{
    TestProvider provider(2, [](unsigned long, RunContext&) { return true; });
    const auto action = makeLevel(provider);
    action->requestCancellation();
    EXPECT_TRUE(action->run(g_sync).getValue());
    action->requestCancellation();
    EXPECT_TRUE(action->wait().getValue()) << "the run had ended before";
    EXPECT_EQ(action->m_hooks.front(), "requestCancellation");
}

} // namespace
} // namespace orlix::core
