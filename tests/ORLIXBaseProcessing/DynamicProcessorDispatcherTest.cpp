// Dispatchers of ranges: what each element is given, what is refused.
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIXBaseProcessing/DispatcherChecks.h"
#include "ORLIXCore/TestActions.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

using core::BasePriority;

TEST(DynamicDispatcher, LowerProcessorsAreLessUrgentByOne)
{
    DynamicDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(4), lines(10, 1, 1))), "no failure");
    boost::shared_ptr<core::BaseAction> action;
    EXPECT_EQ(failureOf(dispatcher.queryNextAction(core::BaseRequestOrigin(0), action)), "no failure");
    EXPECT_EQ(action->getPriority().getDepth(), 5u);
}

TEST(DynamicDispatcher, RefusesCountsThatDifferAndNoCountAtAll)
{
    DynamicDispatcher dispatcher;
    EXPECT_EQ(
        failureOf(dispatcher.init(BasePriority(), lines(10, 1, 1), lines<InMoreLines>(11, 1, 1))),
        "LowerProcessor: all splits must have the same number of elements, but InLines has 10 and InMoreLines has "
        "11");
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(10, 1, 1, false))),
              "LowerProcessor: there is no split that tells the number of elements: add one for an attribute that is "
              "cut");
}

TEST(DynamicDispatcher, ARangeThatCannotBeMadeFailsTheRun)
{
    const auto split = lines(100, 1 << 20, 1);
    split->m_failingStart = 3;
    DynamicDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), split, lines<InMoreLines>(100, 1, 1))), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)), "no lines from 3");
    EXPECT_EQ(rangesSeen().size(), 3u);
    EXPECT_EQ(split->m_nbCleared, 1);
}

TEST(DynamicDispatcher, ChecksTheClassOfTheLowerProcessor)
{
    DynamicProcessorDispatcher<OtherProcessor> dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(2, 1, 1))), "no failure");
    EXPECT_EQ(
        failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)),
        "The split for attribute InLines does not feed processors of class OtherProcessor: make it for that class");
}

TEST(DynamicDispatcher, ChecksTheClassAgainForOtherSplits)
{
    DynamicDispatcher dispatcher;
    const auto known = lines(2, 1, 1);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), known)), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)), "no failure");
    EXPECT_EQ(LowerProcessor::takeSeen().size(), 1u);
    const auto stranger = boost::make_shared<DynamicNoSplit<OtherProcessor, InOptNumber>>();
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), known, stranger)), "no failure");
    EXPECT_EQ(failureOf(core::runOn(*core::makeTbbExecutor(1), dispatcher)),
              "The split for attribute InOptNumber does not feed processors of class LowerProcessor: make it for that "
              "class");
    EXPECT_TRUE(LowerProcessor::takeSeen().empty());
}

} // namespace
} // namespace orlix::processor::test
