// A class's weight: what it states, else 1.
#include "ORLIX/ORLIXBaseProcessing/DispatchWeight.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

struct Plain
{};
struct Heavy
{
    static constexpr unsigned g_dispatchWeight = 16;
};
struct Heir : Heavy
{};

TEST(DispatchWeight, IsWhatTheClassStatesElseOne)
{
    static_assert(dispatchWeightOf<Plain>() == 1);
    static_assert(dispatchWeightOf<Heavy>() == 16);
    EXPECT_EQ(dispatchWeightOf<Heir>(), 16u);
}

} // namespace
} // namespace orlix::processor::test
