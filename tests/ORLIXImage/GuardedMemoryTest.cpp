// The support memory itself: where it lies, and that its borders are forbidden.
#include "support/GuardedMemory.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orlix::testing {
namespace {

std::uintptr_t addressOf(const std::byte* place)
{
    return reinterpret_cast<std::uintptr_t>(place);
}

const auto g_page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));

TEST(GuardedMemory, TouchesItsPageExactly)
{
    for (const std::size_t bytes : {0ul, 1ul, 63ul, 4096ul, 5000ul}) {
        const GuardedMemory atEnd(bytes, GuardEdge::eEnd);
        EXPECT_EQ(addressOf(atEnd.data() + bytes) % g_page, 0u);
        EXPECT_TRUE(atEnd.isSurroundingIntact());
        const GuardedMemory atBegin(bytes, GuardEdge::eBegin);
        EXPECT_EQ(addressOf(atBegin.data()) % g_page, 0u);
        EXPECT_TRUE(atBegin.isSurroundingIntact());
    }
}

TEST(GuardedMemory, HasTheMisalignmentAskedFor)
{
    for (const std::size_t misalignment : {0ul, 1ul, 4ul, 63ul}) {
        for (const std::size_t bytes : {1ul, 100ul, 4096ul}) {
            const GuardedMemory atEnd(bytes, GuardEdge::eEnd, misalignment);
            EXPECT_EQ(addressOf(atEnd.data()) % 64, misalignment);
            EXPECT_LT(g_page - addressOf(atEnd.data() + bytes - 1) % g_page, 65u);
            const GuardedMemory atBegin(bytes, GuardEdge::eBegin, misalignment);
            EXPECT_EQ(addressOf(atBegin.data()) % g_page, misalignment);
        }
    }
}

TEST(GuardedMemory, TellsOfAWriteBesideIt)
{
    const GuardedMemory before(100, GuardEdge::eEnd);
    before.data()[-1] = std::byte{0};
    EXPECT_FALSE(before.isSurroundingIntact());
    const GuardedMemory behind(100, GuardEdge::eBegin);
    behind.data()[100] = std::byte{0};
    EXPECT_FALSE(behind.isSurroundingIntact());
}

TEST(GuardedMemoryDeathTest, ForbidsItsPages)
{
    ::testing::FLAGS_gtest_death_test_style = "fast";
    const GuardedMemory atEnd(100, GuardEdge::eEnd);
    const GuardedMemory atBegin(100, GuardEdge::eBegin);
    EXPECT_DEATH({ static_cast<volatile std::byte*>(atEnd.data())[100] = std::byte{1}; }, "");
    EXPECT_DEATH({ static_cast<volatile std::byte*>(atBegin.data())[-1] = std::byte{1}; }, "");
}

} // namespace
} // namespace orlix::testing
