// The answers of core about instruction sets, and their names.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orlix::core {
namespace {

TEST(InstructionSetAvailability, listHoldsWhatIsAvailable)
{
    const auto& sets = getAvailableInstructionSets();
    for (const auto set : g_allInstructionSets) {
        EXPECT_EQ(isAvailable(set), std::count(sets.begin(), sets.end(), set) == 1) << getInstructionSetName(set);
    }
    EXPECT_TRUE(isAvailable(eInstructionSet::eNone));
    EXPECT_TRUE(isAvailable(eInstructionSet::eSSE2)) << "every x86-64 processor has it";
    EXPECT_FALSE(isAvailable(static_cast<eInstructionSet::domain>(2)));
}

TEST(InstructionSetAvailability, namesLeadBackToTheirSet)
{
    for (const auto set : g_allInstructionSets) {
        const auto found = findInstructionSet(getInstructionSetName(set));
        ASSERT_TRUE(found.has_value());
        EXPECT_EQ(*found, set);
    }
    EXPECT_EQ(findInstructionSet("avx2"), eInstructionSet(eInstructionSet::eAVX2));
    EXPECT_EQ(findInstructionSet("Plain"), eInstructionSet(eInstructionSet::eNone));
}

TEST(InstructionSetAvailability, otherNamesAndValuesAreNone)
{
    for (const char* name : {"", "avx3", "sse", "avx512 ", "unknown"}) {
        EXPECT_FALSE(findInstructionSet(name).has_value()) << name;
    }
    EXPECT_STREQ(getInstructionSetName(static_cast<eInstructionSet::domain>(4)), "unknown");
}

} // namespace
} // namespace orlix::core
