// Data items from text and as text: leaves by name, collections as tables.
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXBaseProcessing/ResultProcessor.h"
#include "support/ScopedLocale.h"

#include <boost/filesystem.hpp>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <fstream>

namespace orlix::processor::test {
namespace {

struct LimitsRecord
{
    static constexpr const char* g_className = "orlix::processor::test::Limits";
    double min = -5;
    float max = 5;
    unsigned char steps = 3;
    bool open = false;
    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("Min", &LimitsRecord::min);
        visitor("Max", &LimitsRecord::max);
        visitor("Steps", &LimitsRecord::steps);
        visitor("Open", &LimitsRecord::open);
    }
};
class Limits final : public DataItemNode<Limits, LimitsRecord>
{
public:
    std::string findFlaw() const { return min <= max ? "" : "Min must not be above Max"; }
};

struct NumbersLeaves
{
    struct Coll : DataItemColl<double>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct NumberListRecord : NumbersLeaves, DataItemLeaves<NumbersLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::processor::test::NumberList";
};
class NumberList final : public DataItemNode<NumberList, NumberListRecord>
{};

struct NestedRecord
{
    static constexpr const char* g_className = "orlix::processor::test::Nested";
    LimitsRecord limits;
    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("limits", &NestedRecord::limits);
    }
};
class Nested final : public DataItemNode<Nested, NestedRecord>
{};

template <class TItem>
struct InItem final : NamedAttribute<InItem<TItem>, BaseInputOptionalDataItemAttribute<TItem>>
{
    static constexpr const char* g_name = "InItem";
    static constexpr const char* g_toolTip = "An item";
};

template <class TItem>
std::string refusalOf(const std::string& text)
{
    InItem<TItem> attribute;
    const auto before = boost::make_shared<TItem>();
    attribute.init(before);
    const ProcessingResult<bool> result = attribute.setFromText(text);
    EXPECT_FALSE(result) << text;
    EXPECT_EQ(attribute.getStorage(), before) << "it stays as it was";
    return result.getMessage();
}

template <class TItem>
const TItem& itemOf(InItem<TItem>& attribute, const std::string& text)
{
    const ProcessingResult<bool> result = attribute.setFromText(text);
    EXPECT_TRUE(result) << text << ": " << result.getMessage();
    EXPECT_TRUE(attribute.isHeld());
    return attribute.getDataItemNode();
}

TEST(DataItemText, LeavesComeByNameInAnyOrder)
{
    InItem<Limits> attribute;
    EXPECT_TRUE(attribute.takesText());
    EXPECT_EQ(attribute.getValueText(), std::nullopt);
    const Limits& all = itemOf(attribute, "Open=yes, max = 2.5,STEPS=7,Min=-0.1");
    EXPECT_EQ(all.min, -0.1);
    EXPECT_EQ(all.max, 2.5F);
    EXPECT_EQ(all.steps, 7);
    EXPECT_TRUE(all.open);
    EXPECT_EQ(attribute.getValueText(), "Min=-0.1,Max=2.5,Steps=7,Open=yes");
    const Limits& some = itemOf(attribute, "Max=9");
    EXPECT_EQ(some.min, -5) << "a leaf that is left out has its start value, not the last one";
    EXPECT_EQ(some.max, 9);
    EXPECT_EQ(itemOf(attribute, "").steps, 3);
    EXPECT_EQ(attribute.getValueText(), "Min=-5,Max=5,Steps=3,Open=no");
}

TEST(DataItemText, WhatDoesNotFitIsRefusedByName)
{
    const std::string kind = "Min=<number>,Max=<number>,Steps=<whole number from 0 to 255>,Open=<yes or no>";
    EXPECT_EQ(InItem<Limits>().getValueKind(), kind);
    EXPECT_EQ(refusalOf<Limits>("Mim=1"), "InItem: there is no Mim: give " + kind);
    EXPECT_EQ(refusalOf<Limits>("=1"), "InItem: there is no : give " + kind);
    EXPECT_EQ(refusalOf<Limits>("Min=1,Max=2,min=3"), "InItem: min is given twice: give it once");
    EXPECT_EQ(refusalOf<Limits>("Min=x"), "InItem: Min: expected number, found \"x\"");
    EXPECT_EQ(refusalOf<Limits>("Steps=256"), "InItem: Steps: expected whole number from 0 to 255, found \"256\"");
    for (const char* text : {"1,2", "Min", "Min=1,", ",", "Min=1,,Max=2"}) {
        EXPECT_EQ(refusalOf<Limits>(text), "InItem: expected " + kind + ", found \"" + text + "\"");
    }
    EXPECT_EQ(refusalOf<Limits>("Min=6"), "InItem: Min must not be above Max") << "the item checks itself";
}

TEST(DataItemText, TheLocaleDoesNotMatter)
{
    const orlix::testing::ScopedCppLocale scope;
    InItem<Limits> attribute;
    itemOf(attribute, "Min=-1234567.5");
    EXPECT_EQ(attribute.getValueText(), "Min=-1234567.5,Max=5,Steps=3,Open=no");
}

TEST(DataItemText, ACollectionComesAsATable)
{
    InItem<Points> attribute;
    const auto& rows = itemOf(attribute, "value,y;1.5,2;-1,1e300").get<Points::Coll>();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0]->get<Point::Value>(), 1.5);
    EXPECT_EQ(rows[0]->get<Point::Y>(), 2);
    EXPECT_EQ(rows[0]->get<Point::Row>(), 0u) << "a column that is left out";
    EXPECT_EQ(rows[1]->get<Point::Y>(), 1e300);
    EXPECT_EQ(attribute.getValueText(), "Y,Row,Value;2,0,1.5;1e+300,0,-1");
    EXPECT_EQ(itemOf(attribute, "0.1,2,3").get<Points::Coll>().front()->get<Point::Row>(), 2u) << "without names";
    EXPECT_TRUE(itemOf(attribute, "").get<Points::Coll>().empty());
    EXPECT_EQ(attribute.getValueText(), "Y,Row,Value");
    EXPECT_TRUE(itemOf(attribute, "Y,Row,Value").get<Points::Coll>().empty());
    const auto broken = boost::make_shared<Points>();
    broken->access<Points::Coll>().resize(1);
    attribute.init(broken);
    EXPECT_EQ(attribute.getValueText(), std::nullopt) << "no text tells a null pointer";
}

TEST(DataItemText, ATableThatDoesNotFitIsRefusedWithItsPlace)
{
    EXPECT_EQ(refusalOf<Points>("1,2"), "InItem: line 1, column 1: expected 3 values, found 2");
    EXPECT_EQ(refusalOf<Points>("Y,Q;1,2"), "InItem: line 1, column 3: there is no column Q: give Y, Row, Value");
    EXPECT_EQ(refusalOf<Points>("Y,Row,y\n1,2,3"), "InItem: line 1, column 7: column y is given twice: give it once");
    EXPECT_EQ(refusalOf<Points>("Y\n1\n\nx"), "InItem: line 4, column 1: Y: expected number, found \"x\"");
    EXPECT_EQ(refusalOf<Points>("1,-2,3"), "InItem: line 1, column 3: Row: expected whole number from 0 to "
                                           "18446744073709551615, found \"-2\"");
    EXPECT_EQ(refusalOf<Points>("Y;\"1"), "InItem: line 1, column 3: a quote that is never closed: close it");
}

TEST(DataItemText, ATableMayBeAFile)
{
    const std::string file =
        (boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("orlix-%%%%%%%%.csv")).string();
    std::ofstream(file, std::ios::binary) << "# points\r\nRow, Y, Value\r\n4,0.25,8\r\n5,x,9\r\n";
    EXPECT_EQ(refusalOf<Points>("@" + file), "InItem: " + file + ", line 4, column 3: Y: expected number, found \"x\"");
    std::ofstream(file, std::ios::binary) << "# points\r\nRow, Y, Value\r\n4,0.25,8\r\n";
    InItem<Points> attribute;
    itemOf(attribute, "@" + file);
    EXPECT_EQ(attribute.getValueText(), "Y,Row,Value;0.25,4,8");
    boost::filesystem::remove(file);
    EXPECT_EQ(refusalOf<Points>("@" + file),
              "InItem: " + file + " can't be read: name a file that exists and may be read");
}

TEST(DataItemText, AListOfValuesIsATableOfOneColumn)
{
    InItem<NumberList> attribute;
    EXPECT_EQ(itemOf(attribute, "1;-0.5\n3").get<NumberList::Coll>(), (std::vector<double>{1, -0.5, 3}));
    EXPECT_EQ(attribute.getValueText(), "1;-0.5;3");
    EXPECT_EQ(refusalOf<NumberList>("1,2"), "InItem: line 1, column 1: expected 1 values, found 2");
    EXPECT_EQ(refusalOf<NumberList>("1;x"), "InItem: line 1, column 3: expected number, found \"x\"");
}

TEST(DataItemText, WhatIsNeitherRecordOfValuesNorTableTakesNone)
{
    InItem<Nested> attribute;
    EXPECT_FALSE(attribute.takesText());
    EXPECT_EQ(attribute.getValueKind(), "data item");
    EXPECT_EQ(refusalOf<Nested>("limits=1"), "InItem (data item) can't be given as text: set it from a program");
    attribute.init(boost::make_shared<Nested>());
    EXPECT_EQ(attribute.getValueText(), std::nullopt);
}

RC_GTEST_PROP(DataItemTextProperty, TheTextOfAnItemGivesItBack,
              (double min, float max, unsigned char steps, bool bOpen))
{
    const auto item = boost::make_shared<Limits>();
    item->min = std::min(min, static_cast<double>(max));
    item->max = max;
    item->steps = steps;
    item->open = bOpen;
    InItem<Limits> attribute;
    attribute.init(item);
    InItem<Limits> other;
    RC_ASSERT(other.setFromText(*attribute.getValueText()).getValue());
    RC_ASSERT(other.getDataItemNode().isEqual(*item));
}

struct InDoubled final : NamedAttribute<InDoubled, BaseValueAttribute<double>>
{
    static constexpr const char* g_name = "InDoubled";
    static constexpr const char* g_toolTip = "Twice what it holds";
    double getValue() const override { return 2 * accessValue(); }
};

TEST(ValueAttribute, AClassMayGiveAnotherValue)
{
    InDoubled attribute;
    attribute.init(4);
    const BaseValueAttribute<double>& base = attribute;
    EXPECT_EQ(base.getValue(), 8);
}

} // namespace
} // namespace orlix::processor::test
