// Attributes that carry images and strips: set, null, cleared, and what they tell of what they hold.
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageBufferTypeIdentifier.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <set>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;

template <class TAttribute>
void expectImageBehaviour(bool bOutput)
{
    TAttribute attribute;
    EXPECT_EQ(attribute.isOutput(), bOutput);
    EXPECT_EQ(TAttribute::g_bOutput, bOutput);
    EXPECT_EQ(attribute.getAttributeType(), processor::eAttributeType::eImageProcessingAttribute);
    EXPECT_EQ(attribute.getImageProcessingAttributeType(), eImageProcessingAttributeType::eImageAttribute);
    EXPECT_FALSE(attribute.isSet());
    EXPECT_FALSE(attribute.getImagePtr());

    attribute.init(typename TAttribute::StorageType());
    EXPECT_TRUE(attribute.isSet());
    EXPECT_TRUE(attribute.isNull());
    EXPECT_FALSE(attribute.getImagePtr());

    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int16, 3, 2));
    attribute.init(image);
    EXPECT_TRUE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_EQ(attribute.getStorage(), image);
    EXPECT_EQ(attribute.getImagePtr(), image);
    EXPECT_EQ(&attribute.getImage(), image.get());
    EXPECT_EQ(attribute.getImageBufferType(), eImageBufferType::Int16);

    typename TAttribute::StorageType moved = createImage(*geometry2d(eImageBufferType::Real32, 1, 1));
    attribute.init(std::move(moved));
    EXPECT_EQ(image.use_count(), 1);
    EXPECT_EQ(attribute.getImageBufferType(), eImageBufferType::Real32);
    attribute.clear();
    EXPECT_FALSE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_FALSE(attribute.getImagePtr());
}

template <class TAttribute, class TStrip>
void expectStripBehaviour(bool bOutput)
{
    TAttribute attribute;
    EXPECT_EQ(attribute.isOutput(), bOutput);
    EXPECT_EQ(attribute.getImageProcessingAttributeType(), eImageProcessingAttributeType::eStripAttribute);
    EXPECT_EQ(attribute.getImageBufferType(), eImageBufferType::eNoBuffer) << "nothing is held";
    attribute.init(typename TAttribute::StorageType());
    EXPECT_TRUE(attribute.isSet());
    EXPECT_TRUE(attribute.isNull());
    EXPECT_EQ(attribute.getImageBufferType(), eImageBufferType::eNoBuffer);

    const ImagePtr image = createImage(*geometry2d(eImageBufferType::eBufferBinary, 5, 9));
    const auto strip = boost::make_shared<TStrip>(*image, 3, 4);
    attribute.init(strip);
    EXPECT_FALSE(attribute.isNull());
    EXPECT_EQ(attribute.getStorage(), strip);
    EXPECT_EQ(&attribute.getBaseImageYStrip2d(), strip.get());
    EXPECT_EQ(attribute.getImageBufferType(), eImageBufferType::eBufferBinary);
    attribute.clear();
    EXPECT_FALSE(attribute.isSet());
    EXPECT_EQ(strip.use_count(), 1);
}

TEST(ImageAttributes, TellUnsetFromNull)
{
    expectImageBehaviour<InPicture>(false);
    expectImageBehaviour<OutPicture>(true);
}

TEST(ImageAttributes, OutputsTellTheTypeThatTheyFix)
{
    EXPECT_EQ(OutPicture().getFixedBufferType(), eImageBufferType::eNoBuffer);
    EXPECT_EQ(OutMask().getFixedBufferType(), eImageBufferType::eBufferBinary);
}

TEST(StripAttributes, TellUnsetFromNull)
{
    expectStripBehaviour<InStrip, image::InputImageYStrip2d>(false);
    expectStripBehaviour<OutStrip, image::OutputImageYStrip2d>(true);
}

TEST(ImageAttributes, TakeNoText)
{
    InPicture in;
    EXPECT_EQ(in.getValueKind(), "image");
    EXPECT_FALSE(in.takesText());
    EXPECT_EQ(failureOf(in.setFromText("head.tif")), "InPicture (image) can't be given as text: set it from a program");
    EXPECT_EQ(OutMask().getValueKind(), "image");
    EXPECT_EQ(OutMask().getValueText(), std::nullopt);
    EXPECT_EQ(OutStrip().getValueKind(), "strip");
    EXPECT_FALSE(InStrip().takesText());
}

struct InType final : processor::NamedAttribute<InType, processor::IPEnumAttribute<eImageBufferType>>
{
    static constexpr const char* g_name = "InType";
    static constexpr const char* g_toolTip = "An element type";
};

TEST(BufferTypeAttribute, TakesTheNameOfEveryType)
{
    InType attribute;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        EXPECT_TRUE(attribute.setFromText(image::getBufferTypeName(type)));
        EXPECT_EQ(attribute.getValue(), type);
        EXPECT_EQ(attribute.getValueText(), image::getBufferTypeName(type));
        EXPECT_TRUE(attribute.setFromText(std::to_string(static_cast<int>(type))));
        EXPECT_EQ(attribute.getValue(), type);
    }
    EXPECT_TRUE(attribute.setFromText("uint16like"));
    EXPECT_EQ(attribute.getValue(), eImageBufferType::eBufferUInt16Like);
    EXPECT_EQ(
        failureOf(attribute.setFromText("none")),
        "InType: expected one of Int8, UInt8, Int16, UInt16, Int32, UInt32, Real32, Binary, UInt8Like, UInt16Like, "
        "UInt32Like, found \"none\"");
    EXPECT_FALSE(attribute.setFromText("12"));
}

TEST(IsInSitu, LooksAtThePixelsNotAtThePointers)
{
    InPicture in;
    OutPicture out;
    EXPECT_FALSE(isInSitu(in, out)) << "neither is set";
    const ImagePtr volume = createImage(*geometry3d(eImageBufferType::UInt8, 4, 4, 3));
    in.init(volume);
    EXPECT_FALSE(isInSitu(in, out));
    out.init(ImagePtr());
    EXPECT_FALSE(isInSitu(in, out));
    out.init(volume);
    EXPECT_TRUE(isInSitu(in, out));

    ImagePtr second;
    ImagePtr secondAgain;
    ImagePtr third;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *volume, second).getValue());
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *volume, secondAgain).getValue());
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(2, 0, 0, *volume, third).getValue());
    in.init(second);
    EXPECT_FALSE(isInSitu(in, out)) << "a plan of the volume is not the volume";
    out.init(secondAgain);
    EXPECT_TRUE(isInSitu(in, out));
    out.init(third);
    EXPECT_FALSE(isInSitu(in, out));
}

TEST(ImageBufferTypeIdentifier, DiffersForEachType)
{
    std::set<unsigned> ids = {ImageBufferTypeIdentifier().getId()};
    for (const eImageBufferType type : image::g_allBufferTypes) {
        ids.insert(ImageBufferTypeIdentifier(type).getId());
        ImageBufferTypeIdentifier again;
        again.init(type);
        EXPECT_EQ(again.getId(), ImageBufferTypeIdentifier(type).getId());
    }
    EXPECT_EQ(ids.size(), 12u);
}

} // namespace
} // namespace orlix::imaproc::test
