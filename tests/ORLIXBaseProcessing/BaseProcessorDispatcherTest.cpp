// Dispatchers over a recording level below: how many elements, which ranges, what is refused.
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"

#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIXBaseProcessing/LowerProcessor.h"
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

using StaticDispatcher = StaticProcessorDispatcher<LowerProcessor>;
using DynamicDispatcher = DynamicProcessorDispatcher<LowerProcessor>;

boost::shared_ptr<NumberSplit> numbers(unsigned long nbElements, bool bHasElements = true)
{
    return boost::make_shared<NumberSplit>(nbElements, bHasElements);
}
template <class TAttribute = InLines>
boost::shared_ptr<LineSplit<TAttribute>> lines(unsigned long nbLines, unsigned long lineBytes, unsigned long multiple,
                                               bool bHasLines = true)
{
    return boost::make_shared<LineSplit<TAttribute>>(RangeDemand{bHasLines, nbLines, lineBytes, multiple});
}

std::string failureOf(const ProcessingResult<bool>& result)
{
    return result ? "no failure" : result.getMessage();
}

std::vector<double> numbersSeen()
{
    std::vector<double> found;
    for (const Seen& seen : LowerProcessor::takeSeen()) {
        found.push_back(seen.number);
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// Ranges of a run in order of their lines, with a failure where the two attributes had different ones.
std::vector<LineRange> rangesSeen()
{
    std::vector<LineRange> found;
    for (const Seen& seen : LowerProcessor::takeSeen()) {
        EXPECT_EQ(seen.lines, seen.moreLines);
        found.push_back(seen.lines);
    }
    std::sort(found.begin(), found.end());
    return found;
}

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

TEST(DynamicDispatcher, LowerProcessorsAreLessUrgentByOne)
{
    DynamicDispatcher dispatcher;
    EXPECT_EQ(failureOf(dispatcher.init(BasePriority(4), lines(10, 1, 1))), "no failure");
    boost::shared_ptr<core::BaseAction> action;
    EXPECT_EQ(failureOf(dispatcher.queryNextAction(core::BaseRequestOrigin(0), action)), "no failure");
    EXPECT_EQ(action->getPriority().getDepth(), 5u);
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
