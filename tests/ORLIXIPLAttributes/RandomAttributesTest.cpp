// How random values are spread, as data: archives, texts, what a person can't have meant.
#include "ORLIXIPL/ORLIXIPLAttributes/RandomAttributes.h"

#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::attr {
namespace {

template <class TItem>
void expectRoundTrip(const TItem& item, const std::vector<std::string>& leaves)
{
    EXPECT_EQ(item.getChildNames(), leaves);
    TextOArchive out;
    std::string text;
    ASSERT_TRUE(item.write(out) && out.saveToString(text));
    TextIArchive in;
    ASSERT_TRUE(in.loadFromString(text));
    const auto made = DynamicObjectFactory::getInstance().createShared(TItem::getTypeName());
    ASSERT_NE(made, nullptr);
    auto& read = dynamic_cast<TItem&>(*made);
    EXPECT_FALSE(read.isEqual(item));
    ASSERT_TRUE(read.read(in));
    EXPECT_TRUE(read.isEqual(item));
}

TEST(RandomItemsTest, archivesKeepEveryDigit)
{
    expectRoundTrip(*createRange(-1e300, 0.1), {"Min", "Max"});
    expectRoundTrip(*createGaussianParameter(1.0 / 3, 5e-324), {"Mean", "StdDev"});
}

TEST(RandomAttributesTest, takeAndGiveText)
{
    InOptOutputRange range;
    EXPECT_TRUE(range.isOptional());
    EXPECT_TRUE(range.setFromText("Max=20.5,Min=-3"));
    EXPECT_EQ(range.getDataItemNode().get<Range::Min>(), -3);
    EXPECT_EQ(range.getValueText(), "Min=-3,Max=20.5");
    InGaussianParameter law;
    EXPECT_FALSE(law.isOptional());
    EXPECT_TRUE(law.setFromText("Mean=100,StdDev=0"));
    EXPECT_EQ(law.getValueText(), "Mean=100,StdDev=0");
}

TEST(RandomAttributesTest, whatAPersonCannotHaveMeantIsRefused)
{
    InOutputRange range;
    EXPECT_NE(
        range.setFromText("Min=5,Max=4").getMessage().find("Min: expected a number up to Max, which is 4, found 5"),
        std::string::npos);
    EXPECT_FALSE(range.setFromText("Min=nan,Max=4"));
    EXPECT_TRUE(range.setFromText("Min=4,Max=4"));
    InGaussianParameter law;
    for (const char* text :
         {"Mean=nan,StdDev=1", "Mean=0,StdDev=-1", "Mean=0,StdDev=nan", "Mean=1e39,StdDev=1", "Mean=0,StdDev=inf"}) {
        EXPECT_FALSE(law.setFromText(text)) << text;
    }
    EXPECT_NE(law.setFromText("Mean=0,StdDev=-1").getMessage().find("StdDev: expected a number from 0 to"),
              std::string::npos);
}

} // namespace
} // namespace orlix::imaproc::attr
