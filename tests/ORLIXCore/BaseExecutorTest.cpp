// Executors: every element exactly once, nested, in which order, on how many threads.
#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXCore/ORLIXCoreException.h"
#include "support/Executors.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <numeric>
#include <set>
#include <thread>

#include <sched.h>

namespace orlix::core {
namespace {

using orlix::testing::g_bTbbIsVisible;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using orlix::testing::ScopedExecutor;

constexpr unsigned long g_muchWork = 1UL << 40;

std::vector<unsigned long> orderOf(BaseExecutor& executor, unsigned long nbElements)
{
    std::vector<unsigned long> order;
    auto note = [&](unsigned long element) { order.push_back(element); };
    executor.forEach(nbElements, g_muchWork, ElementBody(note));
    return order;
}

void expectEachOnce(BaseExecutor& executor, unsigned long nbElements, unsigned long cost)
{
    std::vector<std::atomic<int>> nbCalls(nbElements);
    auto count = [&](unsigned long element) { ++nbCalls[element]; };
    executor.forEach(nbElements, cost, ElementBody(count));
    EXPECT_TRUE(std::all_of(nbCalls.begin(), nbCalls.end(), [](const auto& calls) { return calls == 1; }))
        << nbElements << " elements, cost " << cost;
}

TEST(BaseExecutor, TakesEachElementExactlyOnce)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        for (const unsigned long nbElements : {0UL, 1UL, 2UL, 7UL, 64UL, 1001UL}) {
            expectEachOnce(*each.executor, nbElements, 0);
            expectEachOnce(*each.executor, nbElements, g_muchWork);
        }
    }
}

TEST(BaseExecutor, CallsNest)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        std::array<std::atomic<int>, 9 * 7 * 5> nbCalls{};
        auto top = [&](unsigned long first) {
            auto middle = [&](unsigned long second) {
                auto bottom = [&](unsigned long third) { ++nbCalls[(first * 7 + second) * 5 + third]; };
                each.executor->forEach(5, g_muchWork, ElementBody(bottom));
            };
            each.executor->forEach(7, g_muchWork, ElementBody(middle));
        };
        each.executor->forEach(9, g_muchWork, ElementBody(top));
        EXPECT_EQ(std::count(nbCalls.begin(), nbCalls.end(), 1), 9 * 7 * 5) << each.name;
    }
}

TEST(BaseExecutor, RunsPostedTasks)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        std::promise<std::thread::id> done;
        each.executor->post([&] { done.set_value(std::this_thread::get_id()); });
        const std::thread::id thread = done.get_future().get();
        if (!each.name.starts_with("shuffled")) {
            EXPECT_NE(thread, std::this_thread::get_id());
        }
    }
}

TEST(BaseExecutor, NeverUsesMoreThreadsThanItTells)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        std::mutex mutex;
        std::set<std::thread::id> threads;
        auto note = [&](unsigned long) {
            const std::lock_guard<std::mutex> lock(mutex);
            threads.insert(std::this_thread::get_id());
        };
        each.executor->forEach(500, g_muchWork, ElementBody(note));
        EXPECT_GE(each.executor->getNbThreads(), 1u);
        EXPECT_LE(threads.size(), each.executor->getNbThreads());
    }
}

TEST(BaseExecutor, OneThreadMeansTheCallingThreadInOrder)
{
    std::vector<unsigned long> rising(100);
    std::iota(rising.begin(), rising.end(), 0UL);
    for (const auto& executor : {makeTbbExecutor(1), makePlainThreadExecutor(1), makePlainThreadExecutor(0)}) {
        EXPECT_EQ(executor->getNbThreads(), 1u);
        EXPECT_EQ(orderOf(*executor, 100), rising);
    }
}

TEST(BaseExecutor, ShufflesByItsSeedAndAnewForEachCall)
{
    const auto first = makeShuffledExecutor(5);
    const std::vector<unsigned long> order = orderOf(*first, 100);
    const std::vector<unsigned long> second = orderOf(*first, 100);
    EXPECT_FALSE(std::is_sorted(order.begin(), order.end()));
    EXPECT_NE(order, second);
    EXPECT_NE(order, orderOf(*makeShuffledExecutor(6), 200));

    const auto again = makeShuffledExecutor(5);
    EXPECT_EQ(orderOf(*again, 100), order);
    EXPECT_EQ(orderOf(*again, 100), second);
}

TEST(BaseExecutor, NumbersOfThreadsFromOneTo64)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    const ScopedExecutor scope({});
    for (unsigned long nbThreads = 1; nbThreads <= 64; ++nbThreads) {
        setNbThreads(nbThreads);
        EXPECT_EQ(accessExecutor().getNbThreads(), nbThreads);
        expectEachOnce(accessExecutor(), 100, g_muchWork);
    }
    setNbThreads(0);
    EXPECT_GE(accessExecutor().getNbThreads(), 1u);
    EXPECT_LE(accessExecutor().getNbThreads(), getNbUsableThreads());
}

/// All elements meet before any of them ends, so each needs a thread of its own.
bool canMeet(BaseExecutor& executor, unsigned long nbElements)
{
    std::mutex mutex;
    std::condition_variable arrived;
    unsigned long nbArrived = 0;
    std::atomic<bool> bMet{true};
    auto meet = [&](unsigned long) {
        std::unique_lock<std::mutex> lock(mutex);
        if (++nbArrived == nbElements) {
            arrived.notify_all();
        }
        if (!arrived.wait_for(lock, std::chrono::seconds(60), [&] { return nbArrived == nbElements; })) {
            bMet = false;
        }
    };
    executor.forEach(nbElements, g_muchWork, ElementBody(meet));
    return bMet;
}

unsigned long countThreadsOfProcess()
{
    return static_cast<unsigned long>(std::distance(boost::filesystem::directory_iterator("/proc/self/task"),
                                                    boost::filesystem::directory_iterator()));
}

TEST(BaseExecutor, AsManyThreadsAsAskedForComeAndInSilence)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    ::testing::internal::CaptureStderr();
    for (const unsigned long nbThreads : {64UL, getMostThreads()}) {
        const auto executor = makeTbbExecutor(nbThreads);
        EXPECT_EQ(executor->getNbThreads(), nbThreads);
        EXPECT_TRUE(canMeet(*executor, nbThreads)) << nbThreads;
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(BaseExecutor, MoreThreadsThanCanBeHadAreRefused)
{
    const BaseExecutor* const former = &accessExecutor();
    EXPECT_GE(getMostThreads(), 256u);
    if (std::thread::hardware_concurrency() <= 256) {
        EXPECT_EQ(getMostThreads(), 256u) << "what is refused differs between machines with many processors alone";
    }
    for (const unsigned long nbThreads : {getMostThreads() + 1, 1UL << 32, ~0UL}) {
        const std::string most = std::to_string(getMostThreads());
        const std::string text = std::to_string(nbThreads) + " threads were asked for, but at most " + most +
                                 " can work at a time: give 0 to " + most;
        try {
            setNbThreads(nbThreads);
            FAIL() << nbThreads;
        } catch (const ORLIXCoreException& error) {
            EXPECT_EQ(error.what(), text);
        }
        EXPECT_THROW(makeTbbExecutor(nbThreads), ORLIXCoreException);
        EXPECT_EQ(&accessExecutor(), former);
    }
}

TEST(BaseExecutor, ThreadsThatAreNoLongerNeededEnd)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    const ScopedExecutor scope({});
    for (int repetition = 0; repetition < 3; ++repetition) {
        setNbThreads(40);
        ASSERT_TRUE(canMeet(accessExecutor(), 40));
        EXPECT_GE(countThreadsOfProcess(), 40u);
        setNbThreads(3);
        EXPECT_LT(countThreadsOfProcess(), 40u);
        ASSERT_TRUE(canMeet(accessExecutor(), 3));
    }
}

TEST(BaseExecutor, ThreadsOfAProgramThatUsesThemItselfStay)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    const ScopedExecutor scope({});
    setNbThreads(8);
    std::atomic<bool> bChanged{false};
    std::atomic<int> nbInside{0};
    std::thread own([&] {
        tbb::task_arena(4).execute([&] {
            tbb::parallel_for(0, 100, [&](int) {
                ++nbInside;
                while (!bChanged) {
                    std::this_thread::yield();
                }
            });
        });
    });
    while (nbInside == 0) {
        std::this_thread::yield();
    }
    setNbThreads(2);
    expectEachOnce(accessExecutor(), 100, g_muchWork);
    bChanged = true;
    own.join();
    EXPECT_EQ(nbInside, 100);
}

TEST(BaseExecutor, TheOneThatWasSetIsUsedUntilNullBringsTheDefaultBack)
{
    const ScopedExecutor scope({});
    const auto own = makeShuffledExecutor(1);
    setExecutor(own);
    EXPECT_EQ(&accessExecutor(), own.get());
    EXPECT_EQ(own.use_count(), 2);
    setExecutor({});
    EXPECT_NE(&accessExecutor(), own.get());
    EXPECT_EQ(own.use_count(), 1);
}

TEST(BaseExecutor, TheDefaultWorksInTheArenaOfTheCaller)
{
    if (!g_bTbbIsVisible) {
        GTEST_SKIP() << "oneTBB can't be watched here";
    }
    const auto executor = makeTbbExecutor(0);
    tbb::task_arena single(1);
    single.execute([&] {
        EXPECT_EQ(executor->getNbThreads(), 1u);
        const std::vector<unsigned long> order = orderOf(*executor, 50); // one thread, so no lock is needed
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    });
    tbb::task_arena(2).execute([&] {
        EXPECT_LE(executor->getNbThreads(), 2u);
        expectEachOnce(*executor, 100, g_muchWork);
    });
}

TEST(BaseExecutor, UsableThreadsAreAtLeastOneAndAtMostTheAffinityMask)
{
    cpu_set_t set;
    ASSERT_EQ(sched_getaffinity(0, sizeof(set), &set), 0);
    EXPECT_GE(getNbUsableThreads(), 1u);
    EXPECT_LE(getNbUsableThreads(), static_cast<unsigned long>(CPU_COUNT(&set)));
}

} // namespace
} // namespace orlix::core
