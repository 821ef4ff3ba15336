// Dispatchers of numbered elements: how many, what each is given, what is refused.
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIXBaseProcessing/DispatcherChecks.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

using core::BasePriority;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

TEST(StaticDispatcher, GivesEveryElementToAProcessorOfItsOwn)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {0UL, 1UL, 2UL, 100UL}) {
            SCOPED_TRACE(each.name + ", " + std::to_string(nbElements));
            const auto split = numbers(nbElements);
            StaticDispatcher dispatcher;
            EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), split)), "no failure");
            EXPECT_EQ(dispatcher.getNbElements(), nbElements);
            EXPECT_EQ(dispatcher.getCost(), split->m_cost);
            EXPECT_EQ(dispatcher.hasPendingAction(), nbElements > 0);
            EXPECT_EQ(failureOf(core::runOn(*each.executor, dispatcher)), "no failure");
            EXPECT_FALSE(dispatcher.hasPendingAction());
            std::vector<double> expected;
            for (unsigned long i = 0; i < nbElements; ++i) {
                expected.push_back(10.0 * static_cast<double>(i));
            }
            EXPECT_EQ(numbersSeen(), expected);
            EXPECT_EQ(split->m_nbCleared, 1);
            EXPECT_FALSE(OneAtATime::wasBroken());
        }
    }
}

TEST(StaticDispatcher, CanBeSetUpAgain)
{
    StaticDispatcher dispatcher;
    for (const unsigned long nbElements : {3UL, 1UL, 5UL}) {
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(nbElements))), "no failure");
        EXPECT_TRUE(dispatcher.hasPendingAction());
        EXPECT_EQ(failureOf(core::runOn(core::accessExecutor(), dispatcher)), "no failure");
        EXPECT_EQ(numbersSeen().size(), nbElements);
    }
}

TEST(StaticDispatcher, SplitsWithoutACountGoWithTheOthers)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(77, false), numbers(4), numbers(9, false))),
              "no failure");
    EXPECT_EQ(dispatcher.getNbElements(), 4u);
}

TEST(StaticDispatcher, RefusesCountsThatDifferAndNoCountAtAll)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(4), numbers(4), numbers(5))),
              "LowerProcessor: all splits must have the same number of elements, but InOptNumber has 4 and InOptNumber "
              "has 5");
    const std::string noSplit = "LowerProcessor: there is no split that tells the number of elements: add one for an "
                                "attribute that is cut";
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority())), noSplit);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(4, false))), noSplit);
}

TEST(StaticDispatcher, AnElementThatCannotBeMadeFailsTheRun)
{
    const auto split = numbers(6);
    split->m_failing = 2;
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), split)), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)), "no element 2");
    EXPECT_EQ(numbersSeen(), (std::vector<double>{0, 10}));
    EXPECT_EQ(split->m_nbCleared, 1);
}

TEST(StaticDispatcher, ChecksTheClassOfTheLowerProcessor)
{
    StaticProcessorDispatcher<OtherProcessor> dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(2))), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)),
              "The split for attribute InOptNumber does not feed processors of class OtherProcessor: make it for that "
              "class");
}

TEST(StaticDispatcher, ChecksTheClassAgainForOtherSplits)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(2))), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)), "no failure");
    EXPECT_EQ(numbersSeen().size(), 2u);
    const auto stranger = boost::make_shared<StaticNoSplit<OtherProcessor, InOptNumber>>();
    for (const bool bFirst : {true, false}) { // wherever it stands among the splits
        const auto known = numbers(2);
        EXPECT_EQ(failureOf(bFirst ? dispatcher.init(BasePriority(), stranger, known)
                                   : dispatcher.init(BasePriority(), known, stranger)),
                  "no failure");
        EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)),
                  "The split for attribute InOptNumber does not feed processors of class LowerProcessor: make it for "
                  "that class");
        EXPECT_TRUE(numbersSeen().empty());
    }
}

TEST(StaticDispatcher, SpeaksForItsProcessorClass)
{
    const StaticDispatcher dispatcher;
    EXPECT_EQ(dispatcher.getProcessorName(), "LowerProcessor");
    EXPECT_EQ(dispatcher.getProcessorToolTip(), "One element");
    EXPECT_NE(boost::dynamic_pointer_cast<LowerProcessor>(dispatcher.createProcessor()), nullptr);
    EXPECT_EQ(numbers(1)->getSplitBaseType(), eSplitBaseType::eStaticSplit);
    EXPECT_EQ(lines(1, 1, 1)->getSplitBaseType(), eSplitBaseType::eDynamicSplit);
}

TEST(StaticDispatcher, RefusesMoreElementsThanCanBeNumbered)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(4294967296))), "no failure");
    EXPECT_EQ(dispatcher.getNbElements(), 4294967296u);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(4294967297))),
              "LowerProcessor: 4294967297 elements are more than the 4294967296 that can be numbered: give it the work "
              "in parts");
    EXPECT_EQ(dispatcher.getNbElements(), 0u);
    EXPECT_FALSE(dispatcher.hasPendingAction());
}

TEST(StaticDispatcher, LowerProcessorsAreLessUrgentByOne)
{
    StaticDispatcher dispatcher;
    for (const unsigned depth : {0u, 1u, 7u}) {
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(depth), numbers(2))), "no failure");
        for (unsigned long element = 0; element < 2; ++element) {
            boost::shared_ptr<core::BaseAction> action;
            EXPECT_EQ(failureOf(dispatcher.queryNextAction(core::BaseRequestOrigin(element), action)), "no failure");
            EXPECT_EQ(action->getPriority().getDepth(), depth + 1);
            dispatcher.notifyDerived(action, true); // and the next one is made from it
        }
    }
}

TEST(StaticDispatcher, OnlyProcessorsThatSucceededAreUsedAgain)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(2))), "no failure");
    for (const bool bSuccess : {false, true}) {
        boost::shared_ptr<core::BaseAction> action;
        EXPECT_EQ(failureOf(dispatcher.queryNextAction(core::BaseRequestOrigin(bSuccess), action)), "no failure");
        const boost::weak_ptr<core::BaseAction> processor = action;
        dispatcher.notifyDerived(action, bSuccess);
        EXPECT_EQ(processor.expired(), !bSuccess);
    }
}

TEST(StaticDispatcher, ACancelledProviderHasNothingPending)
{
    StaticDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(3))), "no failure");
    dispatcher.requestCancellationDerived();
    EXPECT_FALSE(dispatcher.hasPendingAction());
}

TEST(DataSplit, LocalizationIsOnUntilItIsSwitchedOff)
{
    NumberSplit split(1);
    EXPECT_TRUE(split.isDataLocalized());
    split.disableDataLocalization();
    EXPECT_FALSE(split.isDataLocalized());
    split.enableDataLocalization();
    EXPECT_TRUE(split.isDataLocalized());
}

} // namespace
} // namespace orlix::processor::test
