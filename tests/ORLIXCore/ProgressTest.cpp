// What a progress observer is told: by one thread at a time, never backwards, and all of it in the end.
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orlix::core {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr unsigned long g_nbOuter = 12;
constexpr unsigned long g_nbInner = 30;

/// 12 elements of 30 each; the inner ones do `work`.
ProcessingResult<bool> runTwoLevels(RunContext& context, const TestProvider::Work& work)
{
    TestProvider outer(g_nbOuter, [&](unsigned long, RunContext& outerContext) {
        TestProvider inner(g_nbInner, work);
        return runElements(inner, outerContext);
    });
    return runElements(outer, context);
}

struct Record
{
    std::atomic<int> nbInside{0};
    bool bTwoAtOnce = false;
    bool bBackwards = false;
    bool bTooMany = false;
    unsigned long nbCalls = 0;
    Progress last;

    ProgressObserver observer()
    {
        return [this](const Progress& progress) {
            bTwoAtOnce = nbInside++ != 0 || bTwoAtOnce;
            bBackwards = bBackwards || progress.done < last.done || progress.known < last.known;
            bTooMany = bTooMany || progress.done > progress.known;
            last = progress;
            ++nbCalls;
            --nbInside;
        };
    }
};

TEST(Progress, DoneReachesKnown)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        Record record;
        const auto action = boost::make_shared<TestAction>(
            [](RunContext& context) { return runTwoLevels(context, [](unsigned long, RunContext&) { return true; }); });
        action->setProgressObserver(record.observer());
        EXPECT_TRUE(action->run(eSynchroType::eSynchroSync).getValue());
        EXPECT_EQ(record.last.done, g_nbOuter + g_nbOuter * g_nbInner);
        EXPECT_EQ(record.last.known, record.last.done);
        EXPECT_FALSE(record.bTwoAtOnce);
        EXPECT_FALSE(record.bBackwards);
        EXPECT_FALSE(record.bTooMany);

        record.last = {};
        EXPECT_TRUE(action->run(eSynchroType::eSynchroAsync).getValue());
        EXPECT_TRUE(action->wait().getValue());
        EXPECT_EQ(record.last.done, g_nbOuter + g_nbOuter * g_nbInner) << "every run counts from 0";
        EXPECT_FALSE(record.bBackwards);
    }
}

TEST(Progress, AnObserverCanCancel)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        Progress last;
        const auto action = boost::make_shared<TestAction>(
            [](RunContext& context) { return runTwoLevels(context, [](unsigned long, RunContext&) { return true; }); });
        action->setProgressObserver([&](const Progress& progress) {
            last = progress;
            if (progress.done == 20) {
                action->requestCancellation();
            }
        });
        EXPECT_FALSE(action->run(eSynchroType::eSynchroSync).getValue());
        EXPECT_LT(last.done, 20 + 3 * each.executor->getNbThreads());
        action->setProgressObserver({});
    }
}

TEST(Progress, EndsShortOfKnownWhereTheRunFails)
{
    Record record;
    const auto action = boost::make_shared<TestAction>([](RunContext& context) {
        return runTwoLevels(context, [](unsigned long element, RunContext&) { return element != 4; });
    });
    action->setProgressObserver(record.observer());
    EXPECT_FALSE(action->run(eSynchroType::eSynchroSync).getValue());
    EXPECT_LT(record.last.done, record.last.known);

    const unsigned long nbCalls = record.nbCalls;
    action->setProgressObserver({});
    EXPECT_FALSE(action->run(eSynchroType::eSynchroSync).getValue());
    EXPECT_EQ(record.nbCalls, nbCalls) << "nobody watches the second run";
}

} // namespace
} // namespace orlix::core
