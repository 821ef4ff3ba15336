// A result for each range: made for its lines, kept in order, whatever ran it.
#include "ORLIX/ORLIXBaseProcessing/DynamicByCreationResultSplit.h"

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXBaseProcessing/ResultProcessor.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <boost/weak_ptr.hpp>
#include <gtest/gtest.h>

#include <stdexcept>

namespace orlix::processor::test {
namespace {

using core::BasePriority;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;
using Split = DynamicByCreationResultSplit<SumProcessor, OutSum>;
using Dispatcher = DynamicProcessorDispatcher<SumProcessor>;
using Results = CreationResultMap<Sum>;

/// The sum of the lines of each range, by ranges of so many lines.
void expectSums(Results& results, unsigned long nbLines, unsigned long linesPerRange)
{
    EXPECT_EQ(results.size(), (nbLines + linesPerRange - 1) / linesPerRange);
    unsigned long next = 0;
    for (const auto& [range, sum] : results) {
        EXPECT_EQ(range.start, next);
        EXPECT_EQ(range.size, std::min(linesPerRange, nbLines - next));
        double total = 0;
        for (; next < range.start + range.size; ++next) {
            total += static_cast<double>(next);
        }
        EXPECT_EQ(sum->total, total);
        EXPECT_EQ(sum->nbRanges, 1u) << "a result is new, and one range's alone";
    }
    EXPECT_EQ(next, nbLines);
}

TEST(DynamicByCreationResultSplit, KeepsAResultForEachRangeInTheirOrder)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const auto split = boost::make_shared<Split>();
        Dispatcher dispatcher;
        Results results;
        for (const unsigned long nbLines : {1UL, 100UL, 403UL, 0UL}) {
            ASSERT_TRUE(split->initBase(results).getValue());
            ASSERT_TRUE(dispatcher.init(BasePriority(), split, linesOf<SumProcessor>(nbLines, 4)).getValue());
            ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
            expectSums(results, nbLines, 4);
        }
    }
}

TEST(DynamicByCreationResultSplit, MakesWhatTheGivenFunctionMakesOfTheRange)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        std::vector<ElementsRange> asked;
        const CreationFunction<Sum> create = [&asked](unsigned long start, unsigned long size) {
            asked.emplace_back(start, size);
            return boost::make_shared<Sum>(Sum{1000.0 * static_cast<double>(start), 10 * size});
        };
        Results results;
        Dispatcher dispatcher;
        ASSERT_TRUE(dispatcher
                        .init(BasePriority(), linesOf<SumProcessor>(23, 5),
                              dynamicByCreationResultSplit<SumProcessor, OutSum>(create, results))
                        .getValue());
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        std::sort(asked.begin(), asked.end());
        EXPECT_EQ(asked, (std::vector<ElementsRange>{{0, 5}, {5, 5}, {10, 5}, {15, 5}, {20, 3}}));
        std::vector<double> totals;
        std::vector<unsigned long> counts;
        for (const auto& [range, sum] : results) {
            totals.push_back(sum->total);
            counts.push_back(sum->nbRanges);
        }
        EXPECT_EQ(totals, (std::vector<double>{10, 5035, 10060, 15085, 20063}));
        EXPECT_EQ(counts, (std::vector<unsigned long>{51, 51, 51, 51, 31}));
    }
}

TEST(DynamicByCreationResultSplit, KeepsAFunctionThatNobodyElseKeepsAndItsResults)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        auto base = boost::make_shared<double>(1000);
        const boost::weak_ptr<double> watch = base;
        const auto split =
            dynamicByCreationResultSplit<SumProcessor, OutSum>([base](unsigned long start, unsigned long) {
                return boost::make_shared<Sum>(Sum{*base + static_cast<double>(start), 0});
            });
        base.reset();
        ASSERT_FALSE(watch.expired()) << "the split holds what it calls";
        Dispatcher dispatcher;
        ASSERT_TRUE(dispatcher.init(BasePriority(), linesOf<SumProcessor>(7, 3), split).getValue());
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        EXPECT_TRUE(watch.expired()) << "and lets go of it after the run";
        std::vector<double> totals;
        for (const auto& [range, sum] : split->accessResults()) {
            totals.push_back(sum->total);
        }
        EXPECT_EQ(totals, (std::vector<double>{1000 + 0 + 1 + 2, 1003 + 3 + 4 + 5, 1006 + 6}));

        ASSERT_TRUE(split->initBase().getValue());
        EXPECT_TRUE(split->accessResults().empty()) << "a set-up empties the map";
        ASSERT_TRUE(dispatcher.init(BasePriority(), linesOf<SumProcessor>(100, 4), split).getValue());
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        expectSums(split->accessResults(), 100, 4);
    }
}

TEST(DynamicByCreationResultSplit, AnEmptyFunctionRaises)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const CreationFunction<Sum> empty;
        Results results;
        Dispatcher dispatcher;
        const auto split = dynamicByCreationResultSplit<SumProcessor, OutSum>(empty, results);
        ASSERT_TRUE(dispatcher.init(BasePriority(), split, linesOf<SumProcessor>(20, 5)).getValue());
        try {
            static_cast<void>(core::runOn(*each.executor, dispatcher));
            ADD_FAILURE() << "no exception";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "call to empty boost::function");
        }
        EXPECT_TRUE(results.empty());
        ASSERT_TRUE(split->initBase(empty, results).getValue());
        ASSERT_TRUE(dispatcher.init(BasePriority(), split, linesOf<SumProcessor>(0, 5)).getValue());
        EXPECT_TRUE(core::runOn(*each.executor, dispatcher).getValue()) << "nobody asks for a result";
    }
}

TEST(DynamicByCreationResultSplit, AnExceptionOfTheFunctionArrivesUnchanged)
{
    const CreationFunction<Sum> create = [](unsigned long start, unsigned long) {
        return start == 5 ? throw std::range_error("no result from 5") : boost::make_shared<Sum>();
    };
    Results results;
    Dispatcher dispatcher;
    ASSERT_TRUE(dispatcher
                    .init(BasePriority(), dynamicByCreationResultSplit<SumProcessor, OutSum>(create, results),
                          linesOf<SumProcessor>(20, 5))
                    .getValue());
    EXPECT_THROW(static_cast<void>(core::runOn(*core::makeTbbExecutor(1), dispatcher)), std::range_error);
}

TEST(DynamicByCreationResultSplit, ANullResultRaises)
{
    const CreationFunction<Sum> create = [](unsigned long, unsigned long) { return boost::shared_ptr<Sum>(); };
    Results results;
    Dispatcher dispatcher;
    ASSERT_TRUE(dispatcher
                    .init(BasePriority(), dynamicByCreationResultSplit<SumProcessor, OutSum>(create, results),
                          linesOf<SumProcessor>(20, 5))
                    .getValue());
    try {
        static_cast<void>(core::runOn(*core::makeTbbExecutor(1), dispatcher));
        ADD_FAILURE() << "no exception";
    } catch (const ORLIXBaseProcessingException& error) {
        EXPECT_STREQ(error.what(), "The split for attribute OutSum was given a null pointer: give it data that exists");
    }
    EXPECT_TRUE(results.empty());
}

TEST(DynamicByCreationResultSplit, UsesAResultAgainOnceNobodyHoldsIt)
{
    Split split;
    Results results;
    const auto lower = boost::make_shared<SumProcessor>();
    ASSERT_TRUE(lower->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    const auto give = [&] {
        EXPECT_TRUE(split.initBase(results).getValue());
        EXPECT_TRUE(results.empty()) << "a set-up empties the map";
        EXPECT_TRUE(split.processAttribute(*lower, 2, 3, core::BaseRequestOrigin(0)).getValue());
        boost::shared_ptr<Sum> given = lower->getStorage<OutSum>();
        EXPECT_EQ(results.begin()->second, given);
        EXPECT_EQ(given->nbRanges, 0u) << "as new";
        given->nbRanges = 9;
        split.clear();
        EXPECT_EQ(results.size(), 1u) << "the map is the level's";
        return given;
    };
    boost::shared_ptr<Sum> kept = give();
    EXPECT_NE(give(), kept) << "somebody holds it";
    EXPECT_EQ(kept->nbRanges, 9u);
    lower->clearForReuse();
    results.clear();
    const Sum* const last = give().get();
    lower->clearForReuse();
    EXPECT_EQ(give().get(), last);
}

/// A level as operators have it: merges what its ranges come to after the run.
class SumLevel final : public Scaffold<SumLevel, BaseAsync1Processor, TestLibrary, InLines, OutSum>
{
public:
    static constexpr ProcessorText g_text{"SumLevel", eTestToolTip::eRecorder};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

    void clearIntermediateData() override { m_results.clear(); }

protected:
    using BaseAsync1Processor::retrieveProvider;
    ProviderResult retrieveProvider(const core::BasePriority& priority,
                                    boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        const auto split = boost::make_shared<Split>();
        const auto dispatcher = boost::make_shared<Dispatcher>();
        ProcessingResult<bool> result = split->initBase(m_results);
        if (result) {
            result = dispatcher->init(priority, split,
                                      linesOf<SumProcessor>(accessAttribute<InLines>()->getValue().size, 3));
        }
        provider = dispatcher;
        return result ? ProviderResult::ready() : ProviderResult::failed(result.getMessage());
    }
    StepResult postProcess() override
    {
        Sum& sum = accessAttribute<OutSum>()->getDataItemNode();
        for (const auto& [range, part] : m_results) {
            sum.nbRanges += part->nbRanges;
            sum.total = sum.total / 2 + part->total; // tells the order
        }
        return StepResult::success();
    }

private:
    Results m_results;
};

TEST(DynamicByCreationResultSplit, ALevelMergesInOrderOnEveryExecutor)
{
    double expected = 0;
    for (unsigned long start = 0; start < 100; start += 3) {
        double part = 0;
        for (unsigned long line = start; line < std::min(start + 3, 100UL); ++line) {
            part += static_cast<double>(line);
        }
        expected = expected / 2 + part;
    }
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        const auto level = boost::make_shared<SumLevel>();
        ASSERT_TRUE(level->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
        for (int repetition = 0; repetition < 3; ++repetition) {
            level->set<InLines>({0, 100});
            level->set<OutSum>(boost::make_shared<Sum>());
            executeSyncRun(level);
            EXPECT_EQ(level->getStorage<OutSum>()->nbRanges, 34u);
            EXPECT_EQ(level->getStorage<OutSum>()->total, expected);
        }
    }
}

TEST(DynamicByCreationResultSplit, FeedsItsAttributeOfItsClass)
{
    const Split split;
    EXPECT_EQ(split.getAttributeName(), "OutSum");
    EXPECT_EQ(split.getAttributeToolTip(), "A sum that comes out");
    EXPECT_EQ(split.getSplitDynamicType(), eSplitDynamicType::eDynamicByCreationResultSplit);
    EXPECT_FALSE(split.getRangeDemand().bHasLines);
    EXPECT_FALSE(split.isDataLocalized()) << "results lie nowhere before they are made";
    const std::vector<std::pair<ElementsRange, unsigned long>> location = {{{0, 1}, 0}};
    EXPECT_EQ(split.getElementsLocationInfo().getNonLocalized(), location);
    EXPECT_TRUE(split.checkProcessorType(SumProcessor()));
    EXPECT_FALSE(split.checkProcessorType(LowerProcessor()));
    DynamicProcessorDispatcher<PointProcessor> dispatcher;
    Results results;
    const CreationFunction<Sum> create = &defaultDynamicByCreationResultSplitCreationFun<Sum>;
    ASSERT_TRUE(dispatcher
                    .init(BasePriority(), dynamicByCreationResultSplit<SumProcessor, OutSum>(create, results),
                          linesOf<PointProcessor>(20, 5))
                    .getValue());
    EXPECT_EQ(
        core::runOn(*core::makeTbbExecutor(1), dispatcher).getMessage(),
        "The split for attribute OutSum does not feed processors of class PointProcessor: make it for that class");
    EXPECT_FALSE(
        dispatcher.init(BasePriority(), dynamicByCreationResultSplit<SumProcessor, OutSum>(create, results)).getValue())
        << "how many lines?";
}

} // namespace
} // namespace orlix::processor::test
