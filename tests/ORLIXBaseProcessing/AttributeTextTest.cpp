// Attributes from text and as text.
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXBaseProcessing/TestLibrary.h"
#include "support/ScopedLocale.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace orlix::processor::test {

struct eColour
{
    enum domain { eRed = 3, eGreen = 1, eNameless = 2 };
    ORLIX_ENUMERATION(eColour, eGreen);
};

} // namespace orlix::processor::test

namespace orlix {

template <>
struct EnumerationNames<processor::test::eColour>
{
    using eColour = processor::test::eColour;
    static constexpr std::array<eColour::domain, 2> g_values = {eColour::eRed, eColour::eGreen};
    static const char* nameOf(const eColour& value) { return value == eColour::eRed ? "Red" : "Green"; }
};

} // namespace orlix

namespace orlix::processor::test {
namespace {

template <class TValue>
class InValue final : public NamedAttribute<InValue<TValue>, BaseValueAttribute<TValue>>
{
public:
    static constexpr const char* g_name = "InValue";
    static constexpr const char* g_toolTip = "A value";
    explicit InValue(TValue value = {}) : NamedAttribute<InValue<TValue>, BaseValueAttribute<TValue>>(value) {}
};

class InColour final : public NamedAttribute<InColour, IPEnumAttribute<eColour>>
{
public:
    static constexpr const char* g_name = "InColour";
    static constexpr const char* g_toolTip = "A colour";
};

template <class TValue>
TValue valueOf(const std::string& text)
{
    InValue<TValue> attribute;
    const ProcessingResult<bool> result = attribute.setFromText(text);
    EXPECT_TRUE(result) << text << ": " << result.getMessage();
    EXPECT_TRUE(attribute.isSet()) << text;
    return attribute.getValue();
}

template <class TValue>
std::string refusalOf(const std::string& text)
{
    InValue<TValue> attribute(TValue(1));
    const ProcessingResult<bool> result = attribute.setFromText(text);
    EXPECT_FALSE(result) << text;
    EXPECT_FALSE(attribute.isSet()) << text;
    EXPECT_EQ(attribute.getValue(), TValue(1)) << text;
    return result.getMessage();
}

TEST(AttributeText, NumberIsTheNearestToWhatTheTextSays)
{
    EXPECT_EQ(valueOf<double>("0.1"), 0.1);
    EXPECT_EQ(valueOf<double>("-1e300"), -1e300);
    EXPECT_EQ(valueOf<double>("12"), 12);
    EXPECT_EQ(valueOf<float>("16777217"), 16777216.0F);
    EXPECT_EQ(valueOf<float>("0.1"), 0.1F);
}

TEST(AttributeText, NanAndInfinityAreNumbers)
{
    EXPECT_TRUE(std::isnan(valueOf<double>("nan")));
    EXPECT_EQ(valueOf<double>("inf"), HUGE_VAL);
    EXPECT_EQ(valueOf<float>("-INF"), -HUGE_VALF);
}

TEST(AttributeText, NumberTakesTheWholeText)
{
    for (const char* text : {"", " ", "1 ", " 1", "1x", "1,5", "0x10", "one", "1e999", "--1", "1.5.2"}) {
        EXPECT_EQ(refusalOf<double>(text), "InValue: expected number, found \"" + std::string(text) + "\"");
        refusalOf<float>(text);
    }
}

TEST(AttributeText, WholeNumberHasTheRangeOfItsType)
{
    EXPECT_EQ(valueOf<signed char>("-128"), -128);
    EXPECT_EQ(valueOf<unsigned char>("255"), 255);
    EXPECT_EQ(valueOf<unsigned long>("18446744073709551615"), 18446744073709551615UL);
    EXPECT_EQ(valueOf<long>("-9223372036854775808"), std::numeric_limits<long>::lowest());
    EXPECT_EQ(refusalOf<signed char>("128"), "InValue: expected whole number from -128 to 127, found \"128\"");
    EXPECT_EQ(refusalOf<unsigned int>("-1"), "InValue: expected whole number from 0 to 4294967295, found \"-1\"");
    for (const char* text : {"-129", "1.0", "1e2", "", "18446744073709551616", "nan"}) {
        refusalOf<signed char>(text);
        refusalOf<unsigned long>(text);
    }
}

TEST(AttributeText, YesOrNoHasThreeSpellings)
{
    for (const char* text : {"yes", "YES", "true", "True", "1"}) {
        EXPECT_TRUE(valueOf<bool>(text)) << text;
    }
    for (const char* text : {"no", "No", "false", "0"}) {
        InValue<bool> attribute(true);
        EXPECT_TRUE(attribute.setFromText(text)) << text;
        EXPECT_FALSE(attribute.getValue()) << text;
    }
    EXPECT_EQ(refusalOf<bool>("2"), "InValue: expected yes or no, found \"2\"");
    refusalOf<bool>("y");
}

TEST(AttributeText, EnumerationTakesNamesInAnyCaseAndNumbers)
{
    InColour attribute;
    for (const char* text : {"Red", "red", "RED", "3"}) {
        attribute.clear();
        EXPECT_TRUE(attribute.setFromText(text)) << text;
        EXPECT_EQ(attribute.getValue(), eColour::eRed) << text;
    }
    for (const char* text : {"Blue", "Re", "Redd", "", "2", "0", "3.0"}) {
        const ProcessingResult<bool> result = attribute.setFromText(text);
        EXPECT_FALSE(result) << text;
        EXPECT_EQ(result.getMessage(), "InColour: expected one of Red, Green, found \"" + std::string(text) + "\"");
        EXPECT_EQ(attribute.getValue(), eColour::eRed) << text;
    }
}

TEST(AttributeText, DoesNotDependOnTheLocale)
{
    const orlix::testing::ScopedCppLocale scope;
    EXPECT_EQ(valueOf<double>("1234567.5"), 1234567.5);
    EXPECT_EQ(InValue<double>(1234567.5).getDefaultText(), "1234567.5");
    EXPECT_EQ(InValue<int>(1234567).getDefaultText(), "1234567");
    refusalOf<double>("1,5");
}

TEST(AttributeText, TellsKindValueAndDefault)
{
    InOptNumber number;
    EXPECT_TRUE(number.takesText());
    EXPECT_EQ(number.getValueKind(), "number");
    EXPECT_EQ(number.getDefaultText(), "5");
    EXPECT_EQ(number.getValueText(), "5");
    number.init(0.1);
    EXPECT_EQ(number.getDefaultText(), "5");
    EXPECT_EQ(number.getValueText(), "0.1");
    EXPECT_EQ(InValue<bool>().getDefaultText(), "no");
    EXPECT_EQ(InValue<unsigned char>(7).getDefaultText(), "7");
    EXPECT_EQ(InValue<unsigned char>().getValueKind(), "whole number from 0 to 255");
    EXPECT_EQ(InColour().getDefaultText(), "Green");
    EXPECT_EQ(InColour().getValueKind(), "one of Red, Green");
}

struct Opaque
{
    int value;
    bool operator==(const Opaque&) const = default;
};

TEST(AttributeText, TypeThatHasNoneSaysSo)
{
    InValue<Opaque> attribute(Opaque{4});
    EXPECT_FALSE(attribute.takesText());
    EXPECT_EQ(attribute.getValueKind(), "object");
    EXPECT_EQ(attribute.getDefaultText(), std::nullopt);
    EXPECT_EQ(attribute.getValueText(), std::nullopt);
    const ProcessingResult<bool> result = attribute.setFromText("4");
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "InValue (object) can't be given as text: set it from a program");
    EXPECT_FALSE(attribute.isSet());
}

struct SpanRecord
{
    static constexpr const char* g_className = "orlix::processor::test::Span";
    double from = 0;
    double to = 1;
    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("from", &SpanRecord::from);
        visitor("to", &SpanRecord::to);
    }
};

class Span final : public DataItemNode<Span, SpanRecord>
{};

class OutSpan final : public NamedAttribute<OutSpan, BaseOutputDataItemAttribute<Span>>
{
public:
    static constexpr const char* g_name = "OutSpan";
    static constexpr const char* g_toolTip = "A span that comes out";
};

TEST(AttributeText, DataItemIsShownButNotRead)
{
    InNumbers in;
    EXPECT_EQ(in.getValueKind(), "data item");
    EXPECT_EQ(in.setFromText("1").getMessage(), "InNumbers (data item) can't be given as text: set it from a program");
    OutSpan out;
    EXPECT_FALSE(out.takesText());
    EXPECT_EQ(out.getValueText(), std::nullopt);
    const auto span = boost::make_shared<Span>();
    span->to = 2.5;
    out.init(span);
    EXPECT_EQ(out.getValueText(), "{from: 0, to: 2.5}");
    EXPECT_EQ(OutNumbers().getValueText(), std::nullopt);
}

} // namespace
} // namespace orlix::processor::test
