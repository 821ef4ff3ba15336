// Idle processors: what comes out of the pool behaves as new, and the calls that use it.
#include "ORLIX/ORLIXBaseProcessing/ProcessorPool.h"

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIXBaseProcessing/RecordingProcessor.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace orlix::processor::test {
namespace {

using Pool = ProcessorPool<RecordingProcessor>;

void emptyPool()
{
    while (Pool::take()) {
    }
}

boost::shared_ptr<RecordingProcessor> makeUsed(const boost::shared_ptr<Numbers>& output)
{
    auto processor = boost::make_shared<RecordingProcessor>();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    processor->set<InNumber>(1);
    processor->set<InOptNumber>(2);
    processor->set<OutNumbers>(output);
    executeSyncRun(processor);
    return processor;
}

TEST(ProcessorPool, WhatComesOutBehavesAsNew)
{
    emptyPool();
    const auto output = boost::make_shared<Numbers>();
    int nbObserved = 0;
    auto used = makeUsed(output);
    used->setProgressObserver([&](const core::Progress&) { ++nbObserved; });
    RecordingProcessor* const object = used.get();
    Pool::giveBack(std::move(used));
    EXPECT_EQ(output.use_count(), 1) << "idle processors hold no data";

    const boost::shared_ptr<RecordingProcessor> again = Pool::take();
    EXPECT_EQ(again.get(), object);
    EXPECT_EQ(again.use_count(), 1);
    EXPECT_TRUE(again->isInitialised());
    for (const boost::shared_ptr<BaseAttribute>& attribute : again->getAttributeColl()) {
        EXPECT_FALSE(attribute->isSet()) << attribute->getObjectName();
    }
    EXPECT_EQ(dynamic_cast<const InOptNumber&>(again->getAttribute("InOptNumber")).getValue(), 5);
    EXPECT_FALSE(again->isFinished());
    EXPECT_EQ(again->wait().getMessage(), formatMessage<core::eORLIXCoreMessage>(core::eORLIXCoreMessage::eNeverRun));
    EXPECT_FALSE(again->run(core::eSynchroType::eSynchroSync).getValue()) << "its number is not set any more";
    again->set<InNumber>(4);
    EXPECT_TRUE(again->run(core::eSynchroType::eSynchroSync).getValue());
    EXPECT_EQ(*again->getStorage<OutNumbers>(), Numbers(2, 5));
    EXPECT_TRUE(output->size() == 2) << "the output of the use before";
    EXPECT_EQ(nbObserved, 0);
}

TEST(ProcessorPool, KeepsNoProcessorThatSomebodyElseHolds)
{
    emptyPool();
    const auto output = boost::make_shared<Numbers>();
    const auto held = makeUsed(output);
    Pool::giveBack(held);
    EXPECT_EQ(Pool::take(), nullptr);
    EXPECT_EQ(held->getStorage<OutNumbers>(), output);
}

TEST(ProcessorPool, IsBoundedAndOfEachThread)
{
    emptyPool();
    for (int i = 0; i < 100; ++i) {
        Pool::giveBack(makeUsed(boost::make_shared<Numbers>()));
    }
    std::thread([] { EXPECT_EQ(Pool::take(), nullptr) << "of another thread"; }).join();
    int nbIdle = 0;
    while (Pool::take()) {
        ++nbIdle;
    }
    EXPECT_GT(nbIdle, 0);
    EXPECT_LT(nbIdle, 20);
}

TEST(ProcessorPool, EndsInAllThreadsBeforeCodeGoes)
{
    emptyPool();
    boost::weak_ptr<RecordingProcessor> own, other;
    const auto keep = [](boost::weak_ptr<RecordingProcessor>& kept) {
        auto processor = makeUsed(boost::make_shared<Numbers>());
        kept = processor;
        Pool::giveBack(std::move(processor));
    };
    keep(own);
    std::promise<void> filled, ended;
    std::thread thread([&] {
        keep(other);
        filled.set_value();
        ended.get_future().get();
        EXPECT_EQ(Pool::take(), nullptr);
        keep(other); // for the thread's end
    });
    filled.get_future().get();
    EXPECT_FALSE(own.expired());
    EXPECT_FALSE(other.expired());
    endIdleProcessors();
    EXPECT_TRUE(own.expired());
    EXPECT_TRUE(other.expired());
    EXPECT_EQ(Pool::take(), nullptr);
    ended.set_value();
    thread.join();
    EXPECT_TRUE(other.expired()) << "idle processors end with their thread";
}

TEST(OperatorCall, SetsRunsAndReadsBack)
{
    const double number = 6;
    const boost::shared_ptr<Numbers> made = runForOutput<RecordingProcessor, OutNumbers>(with<InNumber>(number));
    EXPECT_EQ(*made, Numbers(2, 7));
    EXPECT_EQ(made.use_count(), 1) << "nothing of the call is kept";

    const auto given = boost::make_shared<Numbers>();
    run<RecordingProcessor>(with<InNumber>(number), with<OutNumbers>(given));
    EXPECT_EQ(*given, Numbers(2, 7));
    EXPECT_EQ(given.use_count(), 1);
}

TEST(OperatorCall, FailuresAreExceptionsAndLeaveNothingBehind)
{
    const auto given = boost::make_shared<Numbers>();
    for (int repetition = 0; repetition < 3; ++repetition) {
        try {
            run<RecordingProcessor>(with<OutNumbers>(given));
            FAIL() << "no exception";
        } catch (const ORLIXBaseProcessingException& error) {
            EXPECT_STREQ(error.what(),
                         "RecordingProcessor: attribute InNumber has not been set: set InNumber before the run");
        }
        EXPECT_EQ(given.use_count(), 1);
    }
    const double number = 1;
    const auto made = runForOutput<RecordingProcessor, OutNumbers>(with<InNumber>(number));
    EXPECT_EQ(made->size(), 2u);
}

TEST(OperatorCall, StartedCallsReturnTheRunningProcessor)
{
    const double number = 2;
    const auto processor = start<RecordingProcessor>(with<InNumber>(number));
    EXPECT_TRUE(processor->wait().getValue());
    EXPECT_TRUE(processor->isFinished());
    EXPECT_EQ(*processor->getStorage<OutNumbers>(), Numbers(2, 3));

    const auto failed = start<RecordingProcessor>();
    EXPECT_EQ(failed->wait().getMessage(),
              "RecordingProcessor: attribute InNumber has not been set: set InNumber before the run");
}

} // namespace
} // namespace orlix::processor::test
