// A processor's run: the order of its steps, what a failure leaves out, and what is said of attributes that are
// missing.
#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXBaseProcessing/RecordingProcessor.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

using Steps = std::vector<std::string>;

boost::shared_ptr<RecordingProcessor> makeReady()
{
    auto processor = boost::make_shared<RecordingProcessor>();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    processor->set<InNumber>(41);
    return processor;
}

std::string failureOf(BaseProcessor& processor)
{
    const ProcessingResult<bool> result = processor.run(core::eSynchroType::eSynchroSync);
    return result ? "no failure" : result.getMessage();
}

TEST(BaseProcessor, ARunGoesThroughItsStepsInOrder)
{
    const auto processor = makeReady();
    executeSyncRun(processor);
    EXPECT_EQ(processor->takeSteps(),
              (Steps{"syncInput", "initializer", "rule", "preProcess", "retrieveProvider", "element", "element",
                     "postProcess", "endProcess", "syncOutput", "clearIntermediateData"}));
    EXPECT_EQ(*processor->getStorage<OutNumbers>(), Numbers(2, 42));
}

TEST(BaseProcessor, WithNothingToDispatchTheRunGoesOn)
{
    const auto processor = makeReady();
    processor->m_bNothingToDo = true;
    executeSyncRun(processor);
    EXPECT_EQ(processor->takeSteps(), (Steps{"syncInput", "initializer", "rule", "preProcess", "retrieveProvider",
                                             "postProcess", "endProcess", "syncOutput", "clearIntermediateData"}));
    EXPECT_TRUE(processor->getStorage<OutNumbers>()->empty());
}

TEST(BaseProcessor, HandsItsPriorityToItsProvider)
{
    const auto processor = makeReady();
    executeSyncRun(processor);
    EXPECT_EQ(processor->m_seenPriority, 0u) << "what a caller starts";
    processor->setPriority(core::BasePriority(3));
    executeSyncRun(processor);
    EXPECT_EQ(processor->m_seenPriority, 3u);
    processor->clearForReuse();
    EXPECT_EQ(processor->getPriority().getDepth(), 0u);
}

TEST(BaseProcessor, AGivenOutputIsNotMadeAgain)
{
    const auto processor = makeReady();
    const auto given = boost::make_shared<Numbers>(1, 7);
    processor->set<OutNumbers>(given);
    executeSyncRun(processor);
    EXPECT_EQ(processor->takeSteps()[1], "rule");
    EXPECT_EQ(*given, (Numbers{7, 42, 42}));
    EXPECT_EQ(processor->getStorage<OutNumbers>(), given);
}

TEST(BaseProcessor, RunsAgainWithWhatItHolds)
{
    const auto processor = makeReady();
    executeSyncRun(processor);
    const Steps first = processor->takeSteps();
    executeSyncRun(processor);
    EXPECT_EQ(processor->takeSteps().size(), first.size() - 1) << "the output is there, the rest is done again";
    EXPECT_EQ(processor->getStorage<OutNumbers>()->size(), 4u);
}

TEST(BaseProcessor, AFailedStepEndsTheRunWithItsMessage)
{
    // On several threads a second element may be under way when the first fails.
    const orlix::testing::ScopedExecutor scope(core::makePlainThreadExecutor(1));
    const Steps inOrder = {"initializer", "rule", "preProcess", "retrieveProvider", "element", "postProcess"};
    for (const std::string& failing : inOrder) {
        SCOPED_TRACE(failing);
        const auto processor = makeReady();
        processor->accessRecord().failing = failing;
        EXPECT_EQ(failureOf(*processor), failing + " failed");
        const Steps steps = processor->takeSteps();
        EXPECT_EQ(std::count(steps.begin(), steps.end(), failing), 1);
        for (auto later = std::find(inOrder.begin(), inOrder.end(), failing) + 1; later != inOrder.end(); ++later) {
            EXPECT_EQ(std::count(steps.begin(), steps.end(), *later), 0) << *later;
        }
        EXPECT_EQ(steps.back(), "clearIntermediateData");
        EXPECT_EQ(std::count(steps.begin(), steps.end(), "cleanOnError"), 1);
        EXPECT_EQ(std::count(steps.begin(), steps.end(), "syncOutput"), 1);

        processor->accessRecord().failing.clear();
        EXPECT_EQ(failureOf(*processor), "no failure") << "it can be run again";
    }
}

TEST(BaseProcessor, AFailedSynchronousRunThrowsTheStepsMessage)
{
    const auto processor = makeReady();
    processor->accessRecord().failing = "element";
    try {
        executeSyncRun(processor);
        FAIL() << "no exception";
    } catch (const ORLIXBaseProcessingException& error) {
        EXPECT_STREQ(error.what(), "element failed");
    }
}

TEST(BaseProcessor, ExceptionsOfAnyStepArriveUnchangedAndLeaveItUsable)
{
    for (const std::string throwing :
         {"initializer", "rule", "preProcess", "retrieveProvider", "element", "postProcess"}) {
        SCOPED_TRACE(throwing);
        const auto processor = makeReady();
        processor->accessRecord().throwing = throwing;
        try {
            executeSyncRun(processor);
            FAIL() << "no exception";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), throwing + " threw");
        }
        EXPECT_EQ(processor->takeSteps().back(), "clearIntermediateData");
        EXPECT_TRUE(processor->run(core::eSynchroType::eSynchroAsync).getValue());
        EXPECT_EQ(processor->wait().getMessage(), throwing + " threw");

        processor->accessRecord().throwing.clear();
        executeSyncRun(processor);
    }
}

TEST(BaseProcessor, MandatoryAttributesMustBeSet)
{
    const auto processor = boost::make_shared<RecordingProcessor>();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    EXPECT_EQ(failureOf(*processor),
              "RecordingProcessor: attribute InNumber has not been set: set InNumber before the run");
    const Steps steps = processor->takeSteps();
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "initializer"), 0);
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "rule"), 0);
}

TEST(BaseProcessor, TellsWhichOutputsItMakes)
{
    const auto processor = makeReady();
    EXPECT_TRUE(processor->makesOutput("OutNumbers"));
    EXPECT_FALSE(processor->makesOutput("InNumber"));
    EXPECT_FALSE(processor->makesOutput("OutSomething"));
}

TEST(BaseProcessor, NullPointersAreRefusedEvenWhereAnInitializerWouldHelp)
{
    const auto processor = makeReady();
    processor->set<OutNumbers>(boost::shared_ptr<Numbers>());
    EXPECT_EQ(failureOf(*processor),
              "RecordingProcessor: attribute OutNumbers holds a null pointer: give it an object that exists");
}

TEST(BaseProcessor, WithoutARuleNothingIsChecked)
{
    const auto processor = boost::make_shared<RecordingProcessor>();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicySkip).getValue());
    processor->set<InNumber>(1);
    processor->accessRecord().failing = "rule";
    EXPECT_EQ(failureOf(*processor), "no failure");
}

TEST(BaseProcessor, BeforeInitNothingWorks)
{
    const auto processor = boost::make_shared<RecordingProcessor>();
    EXPECT_FALSE(processor->isInitialised());
    EXPECT_TRUE(processor->getAttributeColl().empty());
    const std::string text =
        "Processor RecordingProcessor has not been initialised: call init before its attributes are used";
    const auto textOf = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const ORLIXBaseProcessingException& error) {
            return error.what();
        }
        return "no exception";
    };
    EXPECT_EQ(textOf([&] { processor->set<InNumber>(1); }), text);
    const double number = 1;
    EXPECT_EQ(textOf([&] { processor->set<InNumber>(number); }), text);
    EXPECT_EQ(textOf([&] { static_cast<void>(processor->getStorage<OutNumbers>()); }), text);
    EXPECT_EQ(textOf([&] { executeSyncRun(processor); }), text);
}

TEST(BaseProcessor, AttributesAreFoundByName)
{
    const auto processor = makeReady();
    EXPECT_EQ(processor->getAttributeNameColl(), (Steps{"InNumber", "InOptNumber", "OutNumbers"}));
    EXPECT_EQ(processor->getAttributeColl().size(), 3u);
    EXPECT_TRUE(processor->getAttribute("InNumber").isSet());
    EXPECT_FALSE(processor->getAttribute("InOptNumber").isSet());
    try {
        static_cast<void>(processor->getAttribute("InNothing"));
        FAIL() << "no exception";
    } catch (const ORLIXBaseProcessingException& error) {
        EXPECT_STREQ(error.what(), "RecordingProcessor has no attribute InNothing");
    }
}

TEST(BaseProcessor, InputsAndOutputsAreClearedApart)
{
    const auto processor = makeReady();
    processor->set<OutNumbers>(boost::make_shared<Numbers>());
    processor->clearInputData();
    EXPECT_FALSE(processor->getAttribute("InNumber").isSet());
    EXPECT_TRUE(processor->getAttribute("OutNumbers").isSet());
    processor->set<InNumber>(3);
    processor->clearOutputData();
    EXPECT_TRUE(processor->getAttribute("InNumber").isSet());
    EXPECT_FALSE(processor->getAttribute("OutNumbers").isSet());
}

} // namespace
} // namespace orlix::processor::test
