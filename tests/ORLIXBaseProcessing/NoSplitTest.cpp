// No-splits: the value that was there when the split was made, for every element and every range.
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXBaseProcessing/LowerProcessor.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orlix::processor::test {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

const RangeDemand g_hundredLines = {true, 100, 1 << 20, 1};

TEST(NoSplit, EveryElementGetsTheValue)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        double value = 42;
        const auto split = staticNoSplit<LowerProcessor, InOptNumber>(value);
        value = 43; // read when the split was made
        const auto lines = staticNoSplit<LowerProcessor, InLines>({3, 4});
        StaticProcessorDispatcher<LowerProcessor> dispatcher;
        ASSERT_TRUE(
            dispatcher.init(core::BasePriority(), boost::make_shared<NumberSplit>(50), lines, split).getValue());
        EXPECT_EQ(dispatcher.getNbElements(), 50u);
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        const std::vector<Seen> seen = LowerProcessor::takeSeen();
        EXPECT_EQ(seen.size(), 50u);
        for (const Seen& element : seen) {
            EXPECT_EQ(element.number, 42) << "the last split that feeds an attribute has the word";
            EXPECT_EQ(element.lines, (LineRange{3, 4}));
            EXPECT_EQ(element.moreLines, LineRange());
        }
    }
}

TEST(NoSplit, EveryRangeGetsTheValue)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        double value = 42;
        const auto split = dynamicNoSplit<LowerProcessor, InOptNumber>(value);
        value = 43;
        DynamicProcessorDispatcher<LowerProcessor> dispatcher;
        ASSERT_TRUE(dispatcher.init(core::BasePriority(), split, boost::make_shared<LineSplit<InLines>>(g_hundredLines))
                        .getValue());
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        const std::vector<Seen> seen = LowerProcessor::takeSeen();
        EXPECT_EQ(seen.size(), 100u);
        EXPECT_TRUE(std::all_of(seen.begin(), seen.end(), [](const Seen& range) { return range.number == 42; }));
    }
}

TEST(NoSplit, CanBeSetUpAgainAndKeepsNothingAfterARun)
{
    StaticNoSplit<LowerProcessor, InOptNumber> split;
    LowerProcessor lower;
    ASSERT_TRUE(lower.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    for (const double value : {7.0, 8.0}) {
        ASSERT_TRUE(split.initBase(value).getValue());
        ASSERT_TRUE(split.processAttribute(lower, 0, core::BaseRequestOrigin(0)).getValue());
        EXPECT_EQ(static_cast<const BaseValueAttribute<double>&>(lower.getAttribute("InOptNumber")).getValue(), value);
        split.clear();
        ASSERT_TRUE(split.processAttribute(lower, 0, core::BaseRequestOrigin(0)).getValue());
        EXPECT_EQ(static_cast<const BaseValueAttribute<double>&>(lower.getAttribute("InOptNumber")).getValue(), 0);
    }
    DynamicNoSplit<LowerProcessor, InOptNumber> ranges;
    ASSERT_TRUE(ranges.initBase(9).getValue());
    ranges.clear();
    ASSERT_TRUE(ranges.processAttribute(lower, 0, 1, core::BaseRequestOrigin(0)).getValue());
    EXPECT_EQ(static_cast<const BaseValueAttribute<double>&>(lower.getAttribute("InOptNumber")).getValue(), 0);
}

TEST(NoSplit, HasNoCountOfItsOwn)
{
    const auto values = staticNoSplit<LowerProcessor, InOptNumber>(1);
    EXPECT_FALSE(values->getElementDemand().bHasElements);
    EXPECT_EQ(values->getElementDemand().cost, 0u);
    EXPECT_EQ(values->getSplitStaticType(), eSplitStaticType::eStaticNoSplit);
    const auto ranges = dynamicNoSplit<LowerProcessor, InOptNumber>(1);
    EXPECT_FALSE(ranges->getRangeDemand().bHasLines);
    EXPECT_EQ(ranges->getSplitDynamicType(), eSplitDynamicType::eDynamicNoSplit);
    StaticProcessorDispatcher<LowerProcessor> elements;
    EXPECT_FALSE(elements.init(core::BasePriority(), values).getValue()) << "how many elements?";
}

TEST(NoSplit, FeedsItsAttributeOfItsClass)
{
    const auto split = dynamicNoSplit<LowerProcessor, InOptNumber>(1);
    EXPECT_EQ(split->getAttributeName(), "InOptNumber");
    EXPECT_EQ(split->getAttributeToolTip(), "A number that may be left out");
    EXPECT_TRUE(split->checkProcessorType(LowerProcessor()));
    EXPECT_FALSE(split->checkProcessorType(OtherProcessor()));
    DynamicProcessorDispatcher<OtherProcessor> dispatcher;
    ASSERT_TRUE(dispatcher.init(core::BasePriority(), split, boost::make_shared<LineSplit<InLines>>(g_hundredLines))
                    .getValue());
    EXPECT_EQ(core::runOn(*core::makeTbbExecutor(1), dispatcher).getMessage(),
              "The split for attribute InOptNumber does not feed processors of class OtherProcessor: make it for that "
              "class");
}

} // namespace
} // namespace orlix::processor::test
