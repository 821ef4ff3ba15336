// Numbers as text: all digits and no more, and back, in any locale.
#include "ORLIX/ORLIXUtil/NumberText.h"

#include "support/ScopedLocale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace orlix {
namespace {

void expectTexts()
{
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(0.1F), "0.1");
    EXPECT_EQ(numberText(static_cast<double>(0.1F)), "0.10000000149011612");
    EXPECT_EQ(numberText(4294967295.5), "4294967295.5");
    EXPECT_EQ(numberText(-1234567.0), "-1234567");
    EXPECT_EQ(numberText(1e300), "1e+300");
    EXPECT_EQ(numberText(5e-324), "5e-324");
    EXPECT_EQ(numberText(-1.7976931348623157e308), "-1.7976931348623157e+308"); // as long as a double gets
    EXPECT_EQ(numberText(-0.0), "-0");
    EXPECT_EQ(numberText(std::numeric_limits<float>::max()), "3.4028235e+38");
    EXPECT_EQ(numberText(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(numberText(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(numberText(18446744073709551615UL), "18446744073709551615");
    EXPECT_EQ(numberText(-9223372036854775807L - 1), "-9223372036854775808");
    EXPECT_EQ(numberText(static_cast<signed char>(-65)), "-65");
}

void expectReadings()
{
    double real = 0;
    EXPECT_TRUE(readNumber("1234567.25", real));
    EXPECT_EQ(real, 1234567.25);
    EXPECT_TRUE(readNumber("-1.5e-3", real));
    EXPECT_EQ(real, -0.0015);
    for (const char* text : {"", " 1", "1 ", "1,5", "1.234.567", "0x10", "+1", "1e400", "one"}) {
        EXPECT_FALSE(readNumber(text, real)) << text;
    }
    EXPECT_EQ(real, -0.0015) << "as it was";
    unsigned short count = 7;
    EXPECT_FALSE(readNumber("65536", count));
    EXPECT_FALSE(readNumber("-1", count));
    EXPECT_EQ(count, 7);
    EXPECT_TRUE(readNumber("65535", count));
    EXPECT_EQ(count, 65535);
}

TEST(NumberText, IsTheShortestThatGivesTheValueBack)
{
    expectTexts();
}

TEST(NumberText, IsReadAsAWhole)
{
    expectReadings();
}

TEST(NumberText, FollowsNoCppLocale)
{
    const orlix::testing::ScopedCppLocale scope;
    expectTexts();
    expectReadings();
}

TEST(NumberText, FollowsNoCLocale)
{
    const orlix::testing::ScopedCLocale scope;
    if (!scope.isFound()) {
        GTEST_SKIP() << "this system has no locale with a decimal comma, nor the package locales to make one of";
    }
    expectTexts();
    expectReadings();
}

template <class TNumber, class TBits>
void expectItComesBack(TBits bits)
{
    const auto value = std::bit_cast<TNumber>(bits);
    TNumber read = 0;
    RC_ASSERT(readNumber(numberText(value), read));
    RC_ASSERT((std::isnan(value) ? std::isnan(read) : std::bit_cast<TBits>(read) == bits));
}

RC_GTEST_PROP(NumberTextProperty, ComesBackAsTheSameBits, (std::uint64_t bits, std::uint32_t fewer))
{
    expectItComesBack<double>(bits);
    expectItComesBack<float>(fewer);
}

} // namespace
} // namespace orlix
