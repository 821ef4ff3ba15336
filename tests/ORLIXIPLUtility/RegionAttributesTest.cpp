// Offsets, sizes, axes and numbers of slices: as text, and the data items in archives.
#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::attr {
namespace {

template <class TAttribute>
std::string valueOf(const std::string& text)
{
    TAttribute attribute;
    const ProcessingResult<bool> result = attribute.setFromText(text);
    return result ? attribute.getValueText().value_or("no text") : std::string(result.getMessage());
}

TEST(RegionAttributes, TakeTheirAxesByName)
{
    EXPECT_EQ(valueOf<InInputImg2dOffset>("X=3,Y=18446744073709551615"), "X=3,Y=18446744073709551615");
    EXPECT_EQ(valueOf<InInputImg2dOffset>("y=4"), "X=0,Y=4");
    EXPECT_EQ(valueOf<InInputImg3dOffset>("Z=5, X=1"), "X=1,Y=0,Z=5");
    EXPECT_EQ(valueOf<InOutputImg2dSize>("X=64,Y=48"), "X=64,Y=48");
    EXPECT_EQ(valueOf<InOutputImg3dSize>("X=64,Y=48,Z=32"), "X=64,Y=48,Z=32");
    EXPECT_EQ(valueOf<InSliceIndex>("7"), "7");
    EXPECT_EQ(valueOf<InAxis>("y"), "y");
    for (const char* const wrong : {"X=-1", "X=1.5", "X=18446744073709551616", "Z=1", "X=1,X=2", "5", "X", "X="}) {
        const std::string failure = valueOf<InInputImg2dOffset>(wrong);
        EXPECT_NE(failure.find("InInputImg2dOffset"), std::string::npos) << wrong << ": " << failure;
    }
    EXPECT_NE(valueOf<InAxis>("w").find("InAxis"), std::string::npos);
    EXPECT_NE(valueOf<InSliceIndex>("-1").find("InSliceIndex"), std::string::npos);
}

/// The item that comes out of an archive which this one was written into.
template <class TItem>
boost::shared_ptr<TItem> passThrough(const TItem& item)
{
    TextOArchive output;
    EXPECT_TRUE(item.write(output));
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
    TextIArchive input;
    EXPECT_TRUE(input.loadFromString(text));
    const auto made =
        boost::dynamic_pointer_cast<TItem>(DynamicObjectFactory::getInstance().createShared(item.getClassName()));
    EXPECT_NE(made, nullptr) << item.getClassName();
    EXPECT_TRUE(made->read(input));
    return made;
}

template <class TRecord, class TItem>
void expectRoundTrip(const TItem& item)
{
    const boost::shared_ptr<TItem> read = passThrough(item);
    EXPECT_TRUE(static_cast<const TRecord&>(*read) == static_cast<const TRecord&>(item)) << item.getClassName();
}

TEST(RegionDataItems, ComeOutOfArchivesAsTheyWentIn)
{
    expectRoundTrip<Img2dOffsetRecord>(*createImg2dOffset(3, ~0UL));
    expectRoundTrip<Img3dOffsetRecord>(*createImg3dOffset(1, 2, ~0UL));
    expectRoundTrip<Img2dSizeRecord>(*createImg2dSize(3, 4));
    expectRoundTrip<Img3dSizeRecord>(*createImg3dSize(5, 6, 7));
    EXPECT_EQ(createImg3dSize(5, 6, 7)->getClassName(), "orlix::imaproc::attr::Img3dSize");
}

} // namespace
} // namespace orlix::imaproc::attr
