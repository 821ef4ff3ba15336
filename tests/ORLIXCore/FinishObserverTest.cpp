// What a finish observer is told, when, and on which thread; and that a run lets go of its action before it ends.
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

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

/// What an observer was told.
struct Told
{
    std::atomic<int> nbCalls{0};
    bool bFinished = false;
    std::string text;
    MessageNumber number;
    std::thread::id thread;

    FinishObserver observer(const boost::shared_ptr<TestAction>& action)
    {
        return [this, weak = boost::weak_ptr<TestAction>(action)](const ProcessingResult<bool>& result) {
            const auto held = weak.lock();
            bFinished = held && held->isFinished();
            text = result ? "success" : static_cast<const std::string&>(result.getMessage());
            number = result.getMessage().getNumber();
            thread = std::this_thread::get_id();
            ++nbCalls;
            nbCalls.notify_all();
        };
    }
    void waitForCall() { nbCalls.wait(0); }
};

boost::shared_ptr<TestAction> makeAction(TestAction::Work work)
{
    return boost::make_shared<TestAction>(std::move(work));
}

TEST(FinishObserver, IsToldOfASynchronousRunOnItsThread)
{
    Told told;
    const auto action = makeAction([](RunContext&) { return true; });
    action->setFinishObserver(told.observer(action));
    EXPECT_TRUE(action->run(g_sync).getValue());
    EXPECT_EQ(told.nbCalls, 1);
    EXPECT_TRUE(told.bFinished);
    EXPECT_EQ(told.text, "success");
    EXPECT_EQ(told.thread, std::this_thread::get_id());

    EXPECT_TRUE(action->run(g_sync).getValue());
    EXPECT_EQ(told.nbCalls, 2) << "once for every run";
    action->clearFinishObserver();
    EXPECT_TRUE(action->run(g_sync).getValue());
    action->setFinishObserver({});
    EXPECT_TRUE(action->run(g_sync).getValue());
    EXPECT_EQ(told.nbCalls, 2);
}

TEST(FinishObserver, IsToldOfFailuresAndExceptions)
{
    Told told;
    const auto failing = makeAction([](RunContext&) {
        return ProcessingResult<bool>::failure(formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eNeverRun));
    });
    failing->setFinishObserver(told.observer(failing));
    EXPECT_FALSE(failing->run(g_sync).getValue());
    EXPECT_EQ(told.text, formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eNeverRun));
    EXPECT_EQ(told.number, messageNumber<eORLIXCoreMessage>(eORLIXCoreMessage::eNeverRun));

    const auto raising = makeAction([](RunContext&) -> ProcessingResult<bool> {
        raise<eORLIXCoreMessage>(ORLIX_HERE, eORLIXCoreMessage::eTooManyThreads, 9, 8, 8);
    });
    raising->setFinishObserver(told.observer(raising));
    ASSERT_TRUE(raising->run(g_async).getValue());
    EXPECT_EQ(raising->wait().getMessage().getNumber(),
              messageNumber<eORLIXCoreMessage>(eORLIXCoreMessage::eTooManyThreads));
    while (told.nbCalls != 2) {
        std::this_thread::yield();
    }
    EXPECT_EQ(told.number, messageNumber<eORLIXCoreMessage>(eORLIXCoreMessage::eTooManyThreads));

    const auto throwing =
        makeAction([](RunContext&) -> ProcessingResult<bool> { throw std::runtime_error("no luck"); });
    throwing->setFinishObserver(told.observer(throwing));
    EXPECT_THROW(static_cast<void>(throwing->run(g_sync)), std::runtime_error);
    EXPECT_EQ(told.text, "no luck");
    EXPECT_EQ(told.nbCalls, 3);
}

TEST(FinishObserver, IsToldOnceOfAnAsynchronousRun)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        for (const bool bWait : {true, false}) {
            Told told;
            std::thread::id runner;
            const auto action = makeAction([&](RunContext&) {
                runner = std::this_thread::get_id();
                return ProcessingResult<bool>::failure("late failure");
            });
            action->setFinishObserver(told.observer(action));
            ASSERT_TRUE(action->run(g_async).getValue());
            if (bWait) {
                EXPECT_EQ(action->wait().getMessage(), "late failure");
            }
            told.waitForCall();
            EXPECT_EQ(told.nbCalls, 1);
            EXPECT_TRUE(told.bFinished);
            EXPECT_EQ(told.text, "late failure");
            EXPECT_EQ(told.thread, runner);
        }
    }
}

TEST(FinishObserver, IsToldOfACancelledRun)
{
    Told told;
    std::atomic<bool> bStarted{false};
    TestProvider provider(1000, [&](unsigned long, RunContext& context) {
        bStarted = true;
        bStarted.notify_all();
        while (!context.isCancelled()) {
            std::this_thread::yield();
        }
        return true;
    });
    const auto action = makeLevel(provider);
    action->setFinishObserver(told.observer(action));
    ASSERT_TRUE(action->run(g_async).getValue());
    std::thread canceller([&] {
        bStarted.wait(false);
        action->requestCancellation();
    });
    EXPECT_FALSE(action->wait());
    canceller.join();
    told.waitForCall();
    EXPECT_EQ(told.number, messageNumber<eORLIXCoreMessage>(eORLIXCoreMessage::eCancelled));
}

TEST(FinishObserver, MayStartTheActionAgain)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const eSynchroType::domain how : {eSynchroType::eSynchroSync, eSynchroType::eSynchroAsync}) {
            SCOPED_TRACE(each.name);
            const ScopedExecutor scope(each.executor);
            constexpr int nbWanted = 50;
            std::atomic<int> nbRuns{0};
            std::promise<void> over;
            const auto action = makeAction([&](RunContext&) {
                ++nbRuns;
                return true;
            });
            action->setFinishObserver([&, how](const ProcessingResult<bool>& result) {
                EXPECT_TRUE(result.getValue());
                if (nbRuns == nbWanted) {
                    over.set_value();
                } else {
                    EXPECT_TRUE(action->run(how).getValue());
                }
            });
            ASSERT_TRUE(action->run(g_async).getValue());
            while (nbRuns != nbWanted) {
                EXPECT_TRUE(action->wait().getValue()) << "of whichever run";
            }
            over.get_future().wait();
            EXPECT_TRUE(action->wait().getValue());
            EXPECT_EQ(nbRuns, nbWanted);
        }
    }
}

TEST(FinishObserver, MayWaitForTheAction)
{
    std::promise<bool> waited;
    const auto action = makeAction([](RunContext&) { return true; });
    action->setFinishObserver([&](const ProcessingResult<bool>&) { waited.set_value(action->wait().getValue()); });
    ASSERT_TRUE(action->run(g_async).getValue());
    EXPECT_TRUE(waited.get_future().get());
}

TEST(FinishObserver, IsToldWhereNobodyHoldsTheActionAnyMore)
{
    Told told;
    std::atomic<bool> bGo{false};
    auto action = makeAction([&](RunContext&) {
        bGo.wait(false);
        return true;
    });
    const boost::weak_ptr<TestAction> weak = action;
    bool bGone = false;
    action->setFinishObserver([&](const ProcessingResult<bool>&) {
        bGone = weak.expired();
        ++told.nbCalls;
        told.nbCalls.notify_all();
    });
    ASSERT_TRUE(action->run(g_async).getValue());
    action.reset();
    bGo = true;
    bGo.notify_all();
    told.waitForCall();
    EXPECT_TRUE(bGone);
}

TEST(FinishedRun, HasLetGoOfItsActionWhenWaitReturns)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        for (int repetition = 0; repetition < 300; ++repetition) {
            const auto action = makeAction([](RunContext&) { return true; });
            ASSERT_TRUE(action->run(g_async).getValue());
            while (repetition % 3 != 0 && !action->isFinished()) { // that a thread of the executor does it
            }
            ASSERT_TRUE(action->wait().getValue());
            ASSERT_EQ(action.use_count(), 1);
        }
    }
}

} // namespace
} // namespace orlix::core
