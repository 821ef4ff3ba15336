// Data items that are given to attributes, and taken from them, without knowing their classes.
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"
#include "ORLIXBaseProcessing/TestLibrary.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

using ItemPtr = boost::shared_ptr<BaseDataItem>;

struct LengthRecord
{
    static constexpr const char* g_className = "orlix::processor::test::Length";
    double metres = 0;
    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("Metres", &LengthRecord::metres);
    }
};
class Length : public DataItemNode<Length, LengthRecord>
{};
/// Stands in for its base.
class LongLength final : public Length
{};

struct WeightRecord
{
    static constexpr const char* g_className = "orlix::processor::test::Weight";
    template <class TVisitor>
    static void visit(TVisitor&&)
    {}
};
class Weight final : public DataItemNode<Weight, WeightRecord>
{};

struct InLength final : NamedAttribute<InLength, BaseInputMandatoryDataItemAttribute<Length>>
{
    static constexpr const char* g_name = "InLength";
    static constexpr const char* g_toolTip = "A length";
};
struct OutLength final : NamedAttribute<OutLength, BaseOutputDataItemAttribute<Length>>
{
    static constexpr const char* g_name = "OutLength";
    static constexpr const char* g_toolTip = "A length";
};

void expectRefused(const ProcessingResult<bool>& result, eAttributeMessage::domain id, const std::string& text)
{
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage().getNumber(), messageNumber<eAttributeMessage>(id));
    EXPECT_EQ(result.getMessage(), text);
}

TEST(AttributeItems, AreHeldByInputsAsTheyAreGiven)
{
    InLength attribute;
    BaseAttribute& base = attribute;
    EXPECT_EQ(base.getItem(), nullptr);
    for (const ItemPtr& item : {ItemPtr(boost::make_shared<Length>()), ItemPtr(boost::make_shared<LongLength>())}) {
        EXPECT_TRUE(base.setInputItem(item));
        EXPECT_TRUE(base.isHeld());
        EXPECT_EQ(base.getItem(), item);
        EXPECT_EQ(&attribute.getDataItemNode(), item.get());
    }
    base.clear();
    EXPECT_EQ(base.getItem(), nullptr);
}

TEST(AttributeItems, OfOutputsAreThoseThatAreWritten)
{
    OutLength attribute;
    BaseAttribute& base = attribute;
    const auto item = boost::make_shared<Length>();
    EXPECT_TRUE(base.setOutputItem(item));
    attribute.getDataItemNode().metres = 3;
    EXPECT_EQ(item->metres, 3);
    EXPECT_EQ(base.getItem(), item);
    InLength next;
    EXPECT_TRUE(next.setInputItem(base.getItem())) << "an output becomes an input";
    EXPECT_EQ(next.getStorage(), item);
}

TEST(AttributeItems, OfAnotherClassAreRefusedAndChangeNothing)
{
    InLength input;
    OutLength output;
    const auto item = boost::make_shared<Length>();
    const auto weight = boost::make_shared<Weight>();
    for (const bool bHeld : {false, true}) {
        if (bHeld) {
            input.init(item);
            output.init(item);
        }
        expectRefused(input.setInputItem(weight), eAttributeMessage::eOtherItemClass,
                      "InLength holds an object of class orlix::processor::test::Length, the item is one of class "
                      "orlix::processor::test::Weight: "
                      "give one of the attribute's class");
        EXPECT_FALSE(output.setOutputItem(weight));
        EXPECT_EQ(input.isSet(), bHeld);
        EXPECT_EQ(input.getItem(), bHeld ? item : nullptr);
        EXPECT_EQ(output.getItem(), bHeld ? item : nullptr);
    }
    expectRefused(input.setOutputItem(item), eAttributeMessage::eOtherDirection,
                  "InLength is an input: give its item with setInputItem");
    expectRefused(output.setInputItem(item), eAttributeMessage::eOtherDirection,
                  "OutLength is an output: give its item with setOutputItem");
}

TEST(AttributeItems, ThatAreNullAreNullPointers)
{
    InLength input;
    OutLength output;
    EXPECT_TRUE(input.setInputItem({}));
    EXPECT_TRUE(output.setOutputItem({}));
    EXPECT_TRUE(input.isSet() && input.isNull());
    EXPECT_TRUE(output.isSet() && output.isNull());
    EXPECT_EQ(input.getItem(), nullptr);
}

TEST(AttributeItems, ThatAreLentCantBeKept)
{
    const Length lent;
    InLength attribute;
    attribute.borrow(&lent);
    EXPECT_TRUE(attribute.isHeld());
    EXPECT_EQ(attribute.getItem(), nullptr);
}

TEST(AttributeItems, AreRefusedWhereTheAttributeHoldsNone)
{
    const auto item = boost::make_shared<Length>();
    InNumbers plain;
    OutNumbers plainOutput;
    expectRefused(plain.setInputItem(item), eAttributeMessage::eNoItemClass,
                  "InNumbers holds a class that isn't derived from BaseDataItem: set it by its own class, with init");
    EXPECT_FALSE(plainOutput.setOutputItem(item));
    plain.init(boost::make_shared<const Numbers>());
    EXPECT_EQ(plain.getItem(), nullptr);
    InNumber number;
    expectRefused(number.setInputItem(item), eAttributeMessage::eHoldsNoItem,
                  "InNumber (number) holds no data item: set it by its own class");
    EXPECT_FALSE(number.isSet());
    EXPECT_EQ(number.getItem(), nullptr);
}

} // namespace
} // namespace orlix::processor::test
