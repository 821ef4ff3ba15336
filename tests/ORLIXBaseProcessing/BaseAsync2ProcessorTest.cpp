// Two stages: the whole of the first before any of the second, and no second after a first that did not succeed.
#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"

#include "ORLIXBaseProcessing/TestLibrary.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace orlix::processor::test {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;
using ProviderPtr = boost::shared_ptr<core::BaseActionProvider>;

/// What one stage of the processor under test does.
struct Stage
{
    unsigned long nbElements = 40;
    std::function<ProcessingResult<bool>(unsigned long element)> work; ///< of each element; may be empty
    std::function<ProviderResult()> retrieve;                          ///< in place of a provider; may be empty

    std::atomic<unsigned long> nbRetrieved{0};
    std::atomic<unsigned long> nbStarted{0};
    std::atomic<unsigned long> nbEnded{0};

    ProviderResult retrieveProvider(ProviderPtr& provider)
    {
        ++nbRetrieved;
        if (retrieve) {
            return retrieve();
        }
        provider = boost::make_shared<core::TestProvider>(nbElements, [this](unsigned long element, core::RunContext&) {
            ++nbStarted;
            ProcessingResult<bool> result = work ? work(element) : true;
            ++nbEnded;
            return result;
        });
        return ProviderResult::ready();
    }
};

class TwoStageProcessor final : public Scaffold<TwoStageProcessor, BaseAsync2Processor, TestLibrary, InOptNumber>
{
public:
    static constexpr ProcessorText g_text{"TwoStageProcessor", eTestToolTip::eRecorder};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

    Stage m_first;
    Stage m_second;
    bool m_bPreProcessed = false;
    bool m_bPostProcessed = false;

protected:
    ProviderResult retrieveFirstProvider(const core::BasePriority&, ProviderPtr& provider) override
    {
        EXPECT_TRUE(m_bPreProcessed);
        EXPECT_FALSE(provider);
        return m_first.retrieveProvider(provider);
    }
    ProviderResult retrieveSecondProvider(const core::BasePriority&, ProviderPtr& provider) override
    {
        EXPECT_EQ(m_first.nbStarted, m_first.nbEnded);
        EXPECT_FALSE(m_bPostProcessed);
        EXPECT_FALSE(provider) << "what the first stage ran is gone";
        return m_second.retrieveProvider(provider);
    }
    StepResult preProcess() override
    {
        m_bPreProcessed = true;
        return StepResult::success();
    }
    StepResult postProcess() override
    {
        EXPECT_EQ(m_second.nbStarted, m_second.nbEnded);
        m_bPostProcessed = true;
        return StepResult::success();
    }
};

boost::shared_ptr<TwoStageProcessor> makeReady()
{
    auto processor = boost::make_shared<TwoStageProcessor>();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    return processor;
}

std::string failureOf(BaseProcessor& processor)
{
    const ProcessingResult<bool> result = processor.run(core::eSynchroType::eSynchroSync);
    return result ? "no failure" : result.getMessage();
}

const std::string g_cancelled =
    "The run was cancelled before all of its work was done: run it again for a whole result";

TEST(BaseAsync2Processor, AllOfTheFirstStageEndsBeforeAnyOfTheSecondStarts)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        const auto processor = makeReady();
        std::atomic<bool> bTooEarly{false};
        processor->m_second.work = [&](unsigned long) {
            bTooEarly = bTooEarly || processor->m_first.nbEnded != 40;
            return true;
        };
        EXPECT_EQ(failureOf(*processor), "no failure");
        EXPECT_EQ(processor->m_first.nbEnded, 40u);
        EXPECT_EQ(processor->m_second.nbEnded, 40u);
        EXPECT_FALSE(bTooEarly);
        EXPECT_TRUE(processor->m_bPostProcessed);
    }
}

TEST(BaseAsync2Processor, RunsAsynchronouslyInTheSameOrder)
{
    const auto processor = makeReady();
    std::atomic<bool> bTooEarly{false};
    processor->m_second.work = [&](unsigned long) {
        bTooEarly = bTooEarly || processor->m_first.nbEnded != 40;
        return true;
    };
    EXPECT_TRUE(processor->run(core::eSynchroType::eSynchroAsync).getValue());
    EXPECT_TRUE(processor->wait().getValue());
    EXPECT_EQ(processor->m_second.nbEnded, 40u);
    EXPECT_FALSE(bTooEarly);
}

TEST(BaseAsync2Processor, AStageWithNothingToDoIsPassedOver)
{
    for (const bool bFirst : {false, true}) {
        for (const bool bSecond : {false, true}) {
            SCOPED_TRACE(std::to_string(bFirst) + std::to_string(bSecond));
            const auto processor = makeReady();
            if (bFirst) {
                processor->m_first.retrieve = [] { return ProviderResult::none(); };
            }
            if (bSecond) {
                processor->m_second.retrieve = [] { return ProviderResult::none(); };
            }
            EXPECT_EQ(failureOf(*processor), "no failure");
            EXPECT_EQ(processor->m_first.nbRetrieved, 1u);
            EXPECT_EQ(processor->m_second.nbRetrieved, 1u);
            EXPECT_EQ(processor->m_first.nbEnded, bFirst ? 0u : 40u);
            EXPECT_EQ(processor->m_second.nbEnded, bSecond ? 0u : 40u);
            EXPECT_TRUE(processor->m_bPostProcessed);
        }
    }
}

TEST(BaseAsync2Processor, AStageWithoutElementsIsOverAtOnce)
{
    const auto processor = makeReady();
    processor->m_first.nbElements = 0;
    EXPECT_EQ(failureOf(*processor), "no failure");
    EXPECT_EQ(processor->m_second.nbEnded, 40u);
}

TEST(BaseAsync2Processor, AStageThatCannotBeSetUpEndsTheRun)
{
    const auto processor = makeReady();
    processor->m_first.retrieve = [] { return ProviderResult::failed("no first stage"); };
    EXPECT_EQ(failureOf(*processor), "no first stage");
    EXPECT_EQ(processor->m_second.nbRetrieved, 0u);

    const auto other = makeReady();
    other->m_second.retrieve = [] { return ProviderResult::failed("no second stage"); };
    EXPECT_EQ(failureOf(*other), "no second stage");
    EXPECT_EQ(other->m_first.nbEnded, 40u);
    EXPECT_FALSE(other->m_bPostProcessed);
}

TEST(BaseAsync2Processor, TheSecondStageDoesNotStartAfterAFailureInTheFirst)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        const auto processor = makeReady();
        processor->m_first.work = [](unsigned long element) {
            return element % 10 != 7
                       ? true
                       : ProcessingResult<bool>::failure("element " + std::to_string(element) + " failed");
        };
        EXPECT_EQ(failureOf(*processor), "element 7 failed");
        EXPECT_EQ(processor->m_second.nbRetrieved, 0u);
        EXPECT_FALSE(processor->m_bPostProcessed);

        processor->m_first.work = {};
        EXPECT_EQ(failureOf(*processor), "no failure") << "it can be run again";
        EXPECT_EQ(processor->m_second.nbEnded, 40u);
    }
}

TEST(BaseAsync2Processor, AFailureInTheSecondStageIsTheRuns)
{
    const auto processor = makeReady();
    processor->m_second.work = [](unsigned long element) {
        return element != 3 ? true : ProcessingResult<bool>::failure("second failed");
    };
    EXPECT_EQ(failureOf(*processor), "second failed");
    EXPECT_EQ(processor->m_first.nbEnded, 40u);
    EXPECT_FALSE(processor->m_bPostProcessed);
}

TEST(BaseAsync2Processor, ACancellationInTheFirstStageLeavesTheSecondOut)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        const auto processor = makeReady();
        processor->m_first.nbElements = 1000;
        processor->m_first.work = [&](unsigned long) {
            processor->requestCancellation();
            return true;
        };
        EXPECT_EQ(failureOf(*processor), g_cancelled);
        EXPECT_LT(processor->m_first.nbStarted, 1000u);
        EXPECT_EQ(processor->m_second.nbRetrieved, 0u);
    }
}

TEST(BaseAsync2Processor, ACancellationAtTheVeryEndOfTheFirstStageStartsNoElementOfTheSecond)
{
    const auto processor = makeReady();
    processor->m_first.nbElements = 1;
    processor->m_first.work = [&](unsigned long) {
        processor->requestCancellation();
        return true;
    };
    EXPECT_EQ(failureOf(*processor), g_cancelled);
    EXPECT_EQ(processor->m_second.nbStarted, 0u);
    EXPECT_FALSE(processor->m_bPostProcessed);
}

TEST(BaseAsync2Processor, ACancellationInTheSecondStageEndsIt)
{
    const auto processor = makeReady();
    processor->m_second.nbElements = 1000;
    processor->m_second.work = [&](unsigned long) {
        processor->requestCancellation();
        return true;
    };
    EXPECT_EQ(failureOf(*processor), g_cancelled);
    EXPECT_EQ(processor->m_first.nbEnded, 40u);
    EXPECT_LT(processor->m_second.nbStarted, 1000u);
    EXPECT_FALSE(processor->m_bPostProcessed);
}

TEST(BaseAsync2Processor, ExceptionsArriveUnchanged)
{
    const auto expectThrow = [](TwoStageProcessor& processor, const std::string& text) {
        try {
            static_cast<void>(processor.run(core::eSynchroType::eSynchroSync));
            ADD_FAILURE() << "no exception";
        } catch (const std::range_error& error) {
            EXPECT_EQ(error.what(), text);
        }
        EXPECT_FALSE(processor.m_bPostProcessed);
    };
    const auto throwAtFive = [](unsigned long element) {
        if (element == 5) {
            throw std::range_error("five");
        }
        return ProcessingResult<bool>(true);
    };
    const auto throwAtOnce = []() -> ProviderResult { throw std::range_error("no provider"); };
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const ScopedExecutor scope(each.executor);
        auto processor = makeReady();
        processor->m_first.work = throwAtFive;
        expectThrow(*processor, "five");
        EXPECT_EQ(processor->m_second.nbRetrieved, 0u);
        processor = makeReady();
        processor->m_second.work = throwAtFive;
        expectThrow(*processor, "five");
        EXPECT_EQ(processor->m_first.nbEnded, 40u);
        processor = makeReady();
        processor->m_first.retrieve = throwAtOnce;
        expectThrow(*processor, "no provider");
        EXPECT_EQ(processor->m_second.nbRetrieved, 0u);
        processor = makeReady();
        processor->m_second.retrieve = throwAtOnce;
        expectThrow(*processor, "no provider");
        EXPECT_EQ(processor->m_first.nbEnded, 40u);
    }
}

} // namespace
} // namespace orlix::processor::test
