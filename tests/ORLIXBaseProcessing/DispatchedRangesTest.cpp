// Which ranges a dispatcher cuts lines into, and what they cost.
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIXBaseProcessing/DispatcherChecks.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numeric>
#include <tuple>

namespace orlix::processor::test {
namespace {

using core::BasePriority;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

TEST(DynamicDispatcher, NoLinesMeanNoElements)
{
    for (const unsigned long lineBytes : {0UL, 100UL}) {
        DynamicDispatcher dispatcher;
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(0, lineBytes, 1))), "no failure");
        EXPECT_EQ(dispatcher.getNbElements(), 0u);
    }
}

TEST(DynamicDispatcher, LinesWithNothingInThemMeanNoElements)
{
    DynamicDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(7, 100, 1), lines<InMoreLines>(7, 0, 1))), "no failure");
    EXPECT_EQ(dispatcher.getNbElements(), 0u);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(1UL << 60, 0, 1))), "no failure");
    EXPECT_EQ(dispatcher.getNbElements(), 0u);
    EXPECT_FALSE(dispatcher.init(BasePriority(), lines(7, 100, 1), lines<InMoreLines>(8, 0, 1)).getValue())
        << "their number has to be that of the others all the same";
}

TEST(DynamicDispatcher, NoRangeIsLargerThanASplitAllows)
{
    const auto linesPerElement = [](unsigned long multiple, unsigned long maxLines) {
        DynamicDispatcher dispatcher;
        EXPECT_EQ(
            failureOf(dispatcher.init(
                BasePriority(), boost::make_shared<LineSplit<InLines>>(RangeDemand{true, 1000, 1, multiple, maxLines}),
                lines<InMoreLines>(1000, 1, 1))),
            "no failure");
        return dispatcher.getLinesPerElement();
    };
    EXPECT_EQ(linesPerElement(1, ~0UL), 1000u);
    EXPECT_EQ(linesPerElement(1, 10), 10u);
    EXPECT_EQ(linesPerElement(4, 10), 8u);
    EXPECT_EQ(linesPerElement(4, 4), 4u);
    EXPECT_EQ(linesPerElement(16, 10), 16u) << "one multiple at least";
    EXPECT_EQ(linesPerElement(1, 0), 1u);
}

TEST(DynamicDispatcher, WhatASplitThatCutsNothingTouchesCountsForTheCost)
{
    const auto split = boost::make_shared<DynamicNoSplit<LowerProcessor, InOptNumber>>();
    DynamicDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(10, 7, 1), split)), "no failure");
    EXPECT_EQ(dispatcher.getCost(), 70u);
    ElementsLocationInfo location;
    location.insertNonLocalized(ElementsRange(0, 1), 300);
    location.insertNonLocalized(ElementsRange(1, 4), 30);
    EXPECT_EQ(location.getNonLocalized(),
              (std::vector<std::pair<ElementsRange, unsigned long>>{{{0, 1}, 300}, {{1, 4}, 30}}));
    split->initUnSplitted(location);
    EXPECT_FALSE(split->isDataLocalized());
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(10, 7, 1), split)), "no failure");
    EXPECT_EQ(dispatcher.getCost(), 400u);
    EXPECT_EQ(dispatcher.getNbElements(), 1u);
}

TEST(DynamicDispatcher, TheHighestStripThereIsTakesAllLines)
{
    ProcessorDispatchPolicy policy;
    policy.initStripBytes(~0UL);
    for (const unsigned long multiple : {1UL, 64UL}) {
        DynamicDispatcher dispatcher;
        dispatcher.setDispatchPolicy(policy);
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(1000, 1, multiple))), "no failure");
        EXPECT_EQ(dispatcher.getNbElements(), 1u);
    }
}

TEST(DynamicDispatcher, AllSplitsGetTheSameRangesOnEveryExecutor)
{
    std::vector<LineRange> first;
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        DynamicDispatcher dispatcher;
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(1001, 1000, 4), lines(5, 5, 5, false),
                                            lines<InMoreLines>(1001, 3000, 6))),
                  "no failure");
        EXPECT_EQ(dispatcher.getLinesPerElement() % 12, 0u) << "the least common multiple";
        EXPECT_EQ(failureOf(core::runOn(*each.executor, dispatcher)), "no failure");
        std::vector<LineRange> ranges;
        for (const Seen& seen : LowerProcessor::takeSeen()) {
            ranges.push_back(seen.moreLines);
        }
        std::sort(ranges.begin(), ranges.end());
        first = first.empty() ? ranges : first;
        EXPECT_EQ(ranges, first);
        EXPECT_FALSE(OneAtATime::wasBroken());
    }
}

TEST(DynamicDispatcher, AHeavierClassGetsLowerStripsAndASecondThreadEarlier)
{
    for (const auto& [weight, linesPerElement, cost] :
         {std::tuple{1U, 80UL, 10000UL}, std::tuple{4U, 20UL, 40000UL}, std::tuple{0U, 80UL, 10000UL},
          std::tuple{1000U, 2UL, 10000000UL}, std::tuple{~0U, 2UL, 10000UL * ~0U}}) {
        ProcessorDispatchPolicy policy;
        policy.initStripBytes(800);
        policy.initWeight(weight);
        DynamicDispatcher dispatcher;
        dispatcher.setDispatchPolicy(policy);
        EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), lines(1000, 10, 2))), "no failure");
        EXPECT_EQ(dispatcher.getLinesPerElement(), linesPerElement) << weight;
        EXPECT_EQ(dispatcher.getCost(), cost) << weight;
    }
    StaticDispatcher dispatcher;
    ProcessorDispatchPolicy policy;
    policy.initWeight(3);
    dispatcher.setDispatchPolicy(policy);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(5))), "no failure");
    EXPECT_EQ(dispatcher.getCost(), 3UL << 40);
    policy.initWeight(1U << 30);
    dispatcher.setDispatchPolicy(policy);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), numbers(5))), "no failure");
    EXPECT_EQ(dispatcher.getCost(), ~0UL) << "a product that 64 bits can't hold";
}

TEST(DynamicDispatcher, TellsItsSplitsTheRangesBeforeARun)
{
    ProcessorDispatchPolicy policy;
    policy.initStripBytes(70);
    const auto cut = lines(23, 10, 2);
    const auto whole = lines<InMoreLines>(0, 0, 1, false);
    DynamicDispatcher dispatcher;
    dispatcher.setDispatchPolicy(policy);
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(), cut, whole)), "no failure");
    for (const LineRange& told : {cut->m_ranges, whole->m_ranges}) {
        EXPECT_EQ(told.start, 23u) << "lines";
        EXPECT_EQ(told.size, 8u) << "lines per range";
    }
    EXPECT_NE(failureOf(dispatcher.init(BasePriority(), lines(23, 10, 2), lines<InMoreLines>(24, 10, 2))),
              "no failure");
}

// Whatever is demanded: ranges follow one another, cover all lines once, all but the last are as many lines as the
// multiple asks, and no more than one multiple beyond what the policy wants.
RC_GTEST_PROP(DynamicDispatcherProperty, RangesCoverAllLinesOnce, ())
{
    const unsigned long nbLines = *rc::gen::inRange(1UL, 3000UL);
    const unsigned long lineBytes = *rc::gen::inRange(1UL, 100000UL);
    const unsigned long otherBytes = *rc::gen::inRange(1UL, 100000UL);
    const unsigned long multiple = *rc::gen::elementOf(std::vector<unsigned long>{1, 2, 4, 16, 64});
    const unsigned long otherMultiple = *rc::gen::elementOf(std::vector<unsigned long>{1, 3, 8});
    ProcessorDispatchPolicy policy;
    policy.initStripBytes(*rc::gen::inRange(1UL, 1UL << 20));
    DynamicDispatcher dispatcher;
    dispatcher.setDispatchPolicy(policy);
    RC_ASSERT(dispatcher
                  .init(BasePriority(), lines(nbLines, lineBytes, multiple),
                        lines<InMoreLines>(nbLines, otherBytes, otherMultiple))
                  .getValue());
    RC_ASSERT(core::runOn(*core::makeTbbExecutor(1), dispatcher).getValue());
    const std::vector<LineRange> ranges = rangesSeen();
    const unsigned long common = std::lcm(multiple, otherMultiple);
    unsigned long next = 0;
    for (const LineRange& range : ranges) {
        RC_ASSERT(range.start == next);
        RC_ASSERT(range.size > 0);
        next += range.size;
        RC_ASSERT(next == nbLines || range.size % common == 0);
        RC_ASSERT(range.size <= common ||
                  (range.size - common) * std::max(lineBytes, otherBytes) < policy.getStripBytes());
    }
    RC_ASSERT(next == nbLines);
}

} // namespace
} // namespace orlix::processor::test
