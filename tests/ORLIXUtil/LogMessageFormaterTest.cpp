// Building a message from its arguments.
#include "ORLIX/ORLIXUtil/LogMessageFormater.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
#include "support/ScopedLocale.h"

#include <boost/filesystem/path.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <stdexcept>

namespace orlix {
namespace {

template <class... TArgs>
std::string format(const std::string& text, const TArgs&... args)
{
    LogMessageManager manager("test");
    manager.addMessage("key", 1, text);
    LogMessageFormater formatter(manager);
    formatter.setMsgId("key", 1);
    static_cast<void>((formatter % ... % args));
    return formatter.string();
}

struct Streamed
{
    int value;
};

std::ostream& operator<<(std::ostream& stream, const Streamed& streamed)
{
    return stream << "streamed " << streamed.value;
}

struct Unprintable
{};

std::ostream& operator<<(std::ostream&, const Unprintable&)
{
    throw std::runtime_error("can't be printed");
}

TEST(LogMessageFormater, givesATextWithoutPlacesAsItIs)
{
    EXPECT_EQ(format("Generates oriented lines  on Gpu"), "Generates oriented lines  on Gpu");
    EXPECT_EQ(format("100 %% done"), "100 % done");
    EXPECT_EQ(format(""), "");
}

TEST(LogMessageFormater, printsIntegersInFull)
{
    EXPECT_EQ(format("[%d, %d[", 0, 18446744073709551615UL), "[0, 18446744073709551615[");
    EXPECT_EQ(format("%d %d", NumericLimits<long>::s_min, NumericLimits<int>::s_min),
              "-9223372036854775808 -2147483648");
    EXPECT_EQ(format("%d %d", static_cast<unsigned char>(65), static_cast<signed char>(-65)), "65 -65");
    EXPECT_EQ(format("%s", 4294967295U), "4294967295");
}

TEST(LogMessageFormater, printsSixDecimals)
{
    EXPECT_EQ(format("{x=%f, y=%f}", 1.5, -0.0000004), "{x=1.500000, y=-0.000000}");
    EXPECT_EQ(format("%f", 2.25f), "2.250000");
    EXPECT_EQ(format("%f", 1e15), "1000000000000000.000000");
    EXPECT_EQ(format("%f", std::numeric_limits<double>::infinity()), "inf");
}

TEST(LogMessageFormater, printsEverythingThatCanBeStreamed)
{
    const std::string text = "text";
    EXPECT_EQ(format("%s %s %s %s", text, "literal", text.c_str(), 'c'), "text literal text c");
    EXPECT_EQ(format("%s", Streamed{4}), "streamed 4");
    EXPECT_EQ(format("%s", boost::filesystem::path("/a/b").string()), "/a/b");
    EXPECT_EQ(format("%s", std::string()), "");
}

TEST(LogMessageFormater, takesPercentSignsInArgumentsAsText)
{
    EXPECT_EQ(format("file %s", "100%d%s%%"), "file 100%d%s%%");
}

TEST(LogMessageFormater, doesNotDependOnTheLocale)
{
    const orlix::testing::ScopedCppLocale scope;
    EXPECT_EQ(format("%d %f %s %s", 1234567, 1234.5, 1234567.5, Streamed{1234567}),
              "1234567 1234.500000 1234567.5 streamed 1234567");
}

TEST(LogMessageFormater, doesNotDependOnTheLocaleOfTheCLibrary)
{
    const orlix::testing::ScopedCLocale scope;
    if (!scope.isFound()) {
        GTEST_SKIP() << "this system has no locale with a decimal comma, nor the package locales to make one of";
    }
    EXPECT_EQ(format("%d %f %s", 1234567, 1234.5, 1234567.5), "1234567 1234.500000 1234567.5");
}

TEST(LogMessageFormater, printsAllDigitsOfANumberWhereNoFormIsAskedFor)
{
    EXPECT_EQ(format("%s is not within 0 to %s", 4294967295.5, 4294967295.0),
              "4294967295.5 is not within 0 to 4294967295");
    EXPECT_EQ(format("%s %s", 0.1F, 0.1), "0.1 0.1");
    EXPECT_EQ(format("%s", 16777217.0), "16777217");
    EXPECT_EQ(format("%d", 1234567.5), "1234567.5");
    EXPECT_EQ(format("%s", std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(LogMessageFormater, refusesAWrongNumberOfArguments)
{
    EXPECT_THROW(format("%s and %s", "one"), ORLIXUtilException);
    EXPECT_THROW(format("%s", "one", "two"), ORLIXUtilException);
    EXPECT_THROW(format("none", 1), ORLIXUtilException);
    try {
        format("%d of %d", 1);
        FAIL();
    } catch (const ORLIXUtilException& exception) {
        EXPECT_EQ(exception.getMessage().find("Message 1 of catalogue key, \"%d of %d\", can't be built from 1 "
                                              "arguments: give as many as it has places ("),
                  0u);
    }
}

TEST(LogMessageFormater, refusesAnUnknownMessage)
{
    const LogMessageManager manager("test");
    LogMessageFormater formatter(manager);
    formatter.setMsgId("key", 3);
    EXPECT_THROW(formatter.string(), ORLIXUtilException);
}

TEST(LogMessageFormater, letsTheFailureOfAnArgumentThrough)
{
    const LogMessageManager manager("test");
    LogMessageFormater formatter(manager);
    EXPECT_THROW(formatter % Unprintable(), std::runtime_error);
}

TEST(LogMessageFormater, startsAnewWithEachMessage)
{
    LogMessageManager manager("test");
    manager.addMessage("key", 1, "first %d");
    manager.addMessage("key", 2, "second %d");
    LogMessageFormater formatter(manager);
    formatter.setMsgId("key", 1);
    formatter % 10;
    EXPECT_EQ(formatter.string(), "first 10");
    EXPECT_EQ(formatter.string(), "first 10");
    formatter.setMsgId("key", 2);
    formatter % 20;
    EXPECT_EQ(formatter.string(), "second 20");
}

RC_GTEST_PROP(LogMessageFormater, printsEveryIntegerAsTheStandardLibraryDoes, (unsigned long large, int small))
{
    RC_ASSERT(format("%d/%d", large, small) == std::to_string(large) + "/" + std::to_string(small));
}

RC_GTEST_PROP(LogMessageFormater, printsEveryNumberAsTheStandardLibraryDoes, (double value))
{
    RC_ASSERT(format("%f", value) == std::to_string(value));
}

} // namespace
} // namespace orlix
