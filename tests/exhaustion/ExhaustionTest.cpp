// Every public call survives every allocation that fails: it ends with an error or succeeds, and keeps no memory.
#include "exhaustion/Survival.h"

#include "support/Sanitizers.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <gtest/gtest.h>

#ifdef ORLIX_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

#include <cstdio>
#include <string>

namespace orlix::test {
namespace {

class ExhaustionTest : public ::testing::TestWithParam<Call>
{};

/// Each allocation of a process that has called nothing before.
TEST_P(ExhaustionTest, FirstCallSurvives)
{
    const Inputs in;
    bool bFailed = true;
    for (unsigned long first = 1; bFailed; ++first) {
        constexpr int g_ranThrough = 100;
        const int status = inChild([&] {
            static_cast<void>(core::accessExecutor()); // oneTBB looks at the machine once, and for ever if that fails
            const Round round = runOnce(GetParam(), in, {first, false, GetParam().smallestByC});
            return round.status == g_survived && !round.bFailed                ? g_ranThrough
                   : round.status == g_survived && !worksAgain(GetParam(), in) ? g_brokenAfterwards
                                                                               : round.status;
        });
        bFailed = status != g_ranThrough;
        ASSERT_TRUE(!bFailed || status == g_survived)
            << "allocation " << first << " of the first call: it " << meaningOf(status) << " (" << status << ")";
    }
}

void laterCallsSurvive(const Call& call, bool bForGood)
{
    const Inputs in;
    const int status = inChild([&] {
        static_cast<void>(worksAgain(call, in)); // threads and tables are there
        bool bFailed = true;
        for (unsigned long first = 1; bFailed; ++first) {
            const FailingAllocations failing = {first, bForGood, call.smallestByC};
            const Round round = runOnce(call, in, failing);
            bFailed = round.bFailed;
            const int status = round.status != g_survived ? round.status
                               : leaks(call, in, failing) ? g_leak
                               : !worksAgain(call, in)    ? g_brokenAfterwards
                                                          : g_survived;
            if (status != g_survived) {
                std::fprintf(stderr, "allocation %lu\n", first);
                return status;
            }
        }
#ifdef ORLIX_ADDRESS_SANITIZER
        return __lsan_do_recoverable_leak_check() != 0 ? g_leak : g_survived;
#else
        return g_survived;
#endif
    });
    EXPECT_EQ(status, g_survived) << "it " << meaningOf(status);
}

TEST_P(ExhaustionTest, SurvivesEachAllocationThatFails)
{
    laterCallsSurvive(GetParam(), false);
}

TEST_P(ExhaustionTest, SurvivesTheEndOfMemory)
{
    laterCallsSurvive(GetParam(), true);
}

INSTANTIATE_TEST_SUITE_P(Calls, ExhaustionTest, ::testing::ValuesIn(allCalls().begin(), allCalls().end()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace orlix::test
