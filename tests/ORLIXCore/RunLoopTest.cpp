// The loop that runs the elements of a provider: each once, which failure counts, what starts after it.
#include "ORLIX/ORLIXCore/RunLoop.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <mutex>
#include <numeric>
#include <stdexcept>
#include <thread>

namespace orlix::core {
namespace {

using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

struct ElementError : std::runtime_error
{
    explicit ElementError(unsigned long element) : std::runtime_error("thrown"), m_element(element) {}
    unsigned long m_element;
};

ProcessingResult<bool> failureOf(unsigned long element)
{
    return ProcessingResult<bool>::failure("element " + std::to_string(element));
}

TEST(RunLoop, RunsEachElementOnce)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {0UL, 1UL, 2UL, 3UL, 500UL}) {
            SCOPED_TRACE(each.name + ", " + std::to_string(nbElements));
            std::vector<std::atomic<int>> nbRuns(nbElements);
            TestProvider provider(nbElements, [&](unsigned long element, RunContext&) {
                ++nbRuns[element];
                return true;
            });
            const ProcessingResult<bool> result = runOn(*each.executor, provider);
            EXPECT_TRUE(result.getValue());
            EXPECT_EQ(result.getMessage(), "");
            EXPECT_TRUE(std::all_of(nbRuns.begin(), nbRuns.end(), [](const auto& count) { return count == 1; }));
            EXPECT_EQ(provider.m_queried.size(), nbElements);
            EXPECT_EQ(provider.m_nbSucceeded, nbElements);
            EXPECT_EQ(provider.m_nbFailed, 0u);
            EXPECT_EQ(provider.m_nbCleared, 1u);
            EXPECT_FALSE(provider.m_bEmptyNotice);
            EXPECT_FALSE(provider.m_bTwoAtOnce);
        }
    }
}

TEST(RunLoop, TheFirstFailingElementByIndexDecides)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (int repetition = 0; repetition < 50; ++repetition) {
            TestProvider provider(64, [](unsigned long element, RunContext&) {
                if (element % 3 == 0) {
                    std::this_thread::yield();
                }
                return element < 5 ? ProcessingResult<bool>(true) : failureOf(element);
            });
            ASSERT_EQ(runOn(*each.executor, provider).getMessage(), "element 5") << each.name << ", " << repetition;
            ASSERT_GT(provider.m_nbFailed, 0u);
        }
    }
}

TEST(RunLoop, NothingBehindAFailedElementStarts)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        constexpr unsigned long g_failing = 10;
        std::mutex mutex;
        std::vector<unsigned long> startedAfter;
        bool bFailed = false;
        TestProvider provider(2000, [&](unsigned long element, RunContext&) {
            {
                const std::lock_guard<std::mutex> lock(mutex);
                if (bFailed && element > g_failing) {
                    startedAfter.push_back(element);
                }
                bFailed = bFailed || element == g_failing;
            }
            if (element != g_failing) {
                std::this_thread::sleep_for(std::chrono::microseconds(20));
                return ProcessingResult<bool>(true);
            }
            return failureOf(element);
        });
        EXPECT_EQ(runOn(*each.executor, provider).getMessage(), "element 10");
        // Each other thread may have one on its way before the failure has been noted.
        EXPECT_LE(startedAfter.size(), 2 * (each.executor->getNbThreads() - 1));
        EXPECT_EQ(provider.m_nbCleared, 1u);
    }
}

TEST(RunLoop, ExceptionsTravelUnchanged)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {1UL, 40UL}) {
            SCOPED_TRACE(each.name + ", " + std::to_string(nbElements));
            TestProvider provider(nbElements, [](unsigned long element, RunContext&) -> ProcessingResult<bool> {
                throw ElementError(element);
            });
            try {
                static_cast<void>(runOn(*each.executor, provider));
                ADD_FAILURE() << "no exception";
            } catch (const ElementError& error) {
                EXPECT_EQ(error.m_element, 0u);
            }
            EXPECT_EQ(provider.m_nbCleared, 1u);
        }
    }
}

TEST(RunLoop, OfExceptionsAndFailuresTheFirstElementDecides)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        TestProvider failureFirst(20, [](unsigned long element, RunContext&) {
            return element == 0 ? failureOf(element) : throw ElementError(element);
        });
        EXPECT_EQ(runOn(*each.executor, failureFirst).getMessage(), "element 0");
        TestProvider exceptionFirst(20, [](unsigned long element, RunContext&) {
            return element == 0 ? throw ElementError(element) : failureOf(element);
        });
        EXPECT_THROW(static_cast<void>(runOn(*each.executor, exceptionFirst)), ElementError);
    }
}

TEST(RunLoop, AFailedQueryIsTheElementsFailure)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        for (const unsigned long nbElements : {1UL, 30UL}) {
            SCOPED_TRACE(each.name + ", " + std::to_string(nbElements));
            std::atomic<unsigned long> nbRuns{0};
            TestProvider provider(nbElements, [&](unsigned long, RunContext&) {
                ++nbRuns;
                return true;
            });
            provider.m_query = failureOf;
            EXPECT_EQ(runOn(*each.executor, provider).getMessage(), "element 0");
            EXPECT_EQ(nbRuns, 0u);
            EXPECT_EQ(provider.m_nbSucceeded + provider.m_nbFailed, 0u);
            EXPECT_EQ(provider.m_nbCleared, 1u);

            provider.m_query = [](unsigned long element) -> ProcessingResult<bool> { throw ElementError(element); };
            EXPECT_THROW(static_cast<void>(runOn(*each.executor, provider)), ElementError);
            EXPECT_EQ(provider.m_nbCleared, 2u);
        }
    }
}

TEST(RunLoop, LevelsNest)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        std::array<std::atomic<int>, 6 * 5 * 4> nbRuns{};
        TestProvider top(6, [&](unsigned long first, RunContext& topContext) {
            TestProvider middle(5, [&](unsigned long second, RunContext& middleContext) {
                TestProvider bottom(4, [&](unsigned long third, RunContext&) {
                    ++nbRuns[(first * 5 + second) * 4 + third];
                    return true;
                });
                return runElements(bottom, middleContext);
            });
            return runElements(middle, topContext);
        });
        EXPECT_TRUE(runOn(*each.executor, top).getValue());
        EXPECT_EQ(std::count(nbRuns.begin(), nbRuns.end(), 1), 120);
    }
}

TEST(RunLoop, FailuresOfNestedLevelsComeUpUnchanged)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        TestProvider top(8, [](unsigned long first, RunContext& context) {
            TestProvider bottom(8, [first](unsigned long second, RunContext&) {
                return second < 3 ? ProcessingResult<bool>(true) : failureOf(10 * first + second);
            });
            return first < 2 ? ProcessingResult<bool>(true) : runElements(bottom, context);
        });
        EXPECT_EQ(runOn(*each.executor, top).getMessage(), "element 23");
    }
}

TEST(RunLoop, SmallWorkStaysOnTheCallingThreadInOrder)
{
    for (const unsigned long nbThreads : {0UL, 1UL, 8UL}) {
        std::vector<unsigned long> order;
        TestProvider provider(50, [&](unsigned long element, RunContext&) {
            order.push_back(element);
            return true;
        });
        provider.m_cost = 1000;
        EXPECT_TRUE(runOn(*makeTbbExecutor(nbThreads), provider).getValue());
        std::vector<unsigned long> expected(50);
        std::iota(expected.begin(), expected.end(), 0UL);
        EXPECT_EQ(order, expected);
    }
}

} // namespace
} // namespace orlix::core
