// Memory that fails, on which the test of the calls leans.
#include "exhaustion/FailingMemory.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace orlix::test {
namespace {

TEST(FailingMemoryTest, FailsAsChosen)
{
    const auto pattern = [](const FailingAllocations& failing) {
        std::string text;
        text.reserve(8);
        const FailingMemory memory(failing);
        for (int i = 0; i < 5; ++i) {
            void* const block = ::operator new(400, std::nothrow);
            text += block ? '+' : '-';
            ::operator delete(block);
        }
        return text;
    };
    EXPECT_EQ(pattern({2, false}), "+-+++");
    EXPECT_EQ(pattern({2, true}), "+----");
    EXPECT_EQ(pattern({6, true}), "+++++");
}

} // namespace
} // namespace orlix::test
