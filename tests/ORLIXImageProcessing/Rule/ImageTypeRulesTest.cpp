// Rules about pixels, element types and kinds of images: when they hold, and what they say where they don't.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXImageProcessing/Rule/Pictures.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

TEST(InSituRules, CompareThePixels)
{
    Pictures pictures;
    const processor::RulePtr same = isInSitu(pictures.in, pictures.out);
    const processor::RulePtr different = noInSitu(pictures.in, pictures.out);
    EXPECT_EQ(failureOf(same->check()), "InPicture holds no image: set it before the run");
    const ImagePtr volume = createImage(*image::geometry3d(g_uint8, 4, 4, 2));
    ImagePtr plan;
    ImagePtr planAgain;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *volume, plan).getValue());
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *volume, planAgain).getValue());
    pictures.in->init(plan);
    pictures.out->init(planAgain);
    EXPECT_EQ(failureOf(same->check()), "no failure");
    EXPECT_EQ(failureOf(different->check()), "InPicture and OutPicture must not hold the same image: give two");
    pictures.out->init(volume);
    EXPECT_EQ(failureOf(same->check()), "InPicture and OutPicture have to hold the same image");
    EXPECT_EQ(failureOf(different->check()), "no failure");
}

TEST(BufferType, ComparesEveryTimeStep)
{
    const auto in = boost::make_shared<InPicture>();
    auto kind = boost::make_shared<InKind>();
    const processor::RulePtr rule = bufferType(in, processor::AttributeRef<const BufferTypeAttribute>(kind));
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    in->init(createImage(*geometry2d(g_uint16, 3, 2)));
    kind->init(g_uint16);
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    kind->init(g_uint8);
    EXPECT_EQ(failureOf(rule->check()),
              "InPicture is 3x2x1x1x1 UInt16, but has to be of element type UInt8, as InKind tells");
    in->init(createImage(mixedGeometry({g_uint8, g_uint8, g_uint16}, 3, 2, 1)));
    EXPECT_EQ(failureOf(rule->check()),
              "InPicture is 3x2x1x1x3 UInt8/UInt16, but has to be of element type UInt8, as InKind tells");
    in->init(createImage(mixedGeometry({g_uint8, g_uint8}, 3, 2, 1)));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    kind.reset();
    EXPECT_EQ(failureOf(rule->check()), g_gone);
}

TEST(FixedType, IsThatOfTheAttributeInEveryTimeStep)
{
    constexpr auto binary = eImageBufferType::eBufferBinary;
    const auto any = boost::make_shared<OutPicture>();
    auto mask = boost::make_shared<OutMask>();
    const processor::RulePtr anyRule = hasFixedType(any);
    const processor::RulePtr rule = hasFixedType(mask);
    EXPECT_EQ(failureOf(rule->check()), "OutMask holds no image: set it before the run");
    for (const eImageBufferType type : image::g_allBufferTypes) {
        any->init(createImage(*geometry2d(type, 3, 2)));
        EXPECT_EQ(failureOf(anyRule->check()), "no failure") << "it fixes none";
        mask->init(createImage(*geometry2d(type, 3, 2)));
        EXPECT_EQ(failureOf(rule->check()), type == binary ? "no failure"
                                                           : std::string("OutMask is 3x2x1x1x1 ") +
                                                                 image::getBufferTypeName(type) +
                                                                 ", but has to be of element type Binary");
    }
    mask->init(createImage(mixedGeometry({binary, binary}, 3, 2, 1)));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    mask->init(createImage(mixedGeometry({binary, g_uint8}, 3, 2, 1)));
    EXPECT_EQ(failureOf(rule->check()), "OutMask is 3x2x1x1x2 Binary/UInt8, but has to be of element type Binary");
    mask.reset();
    EXPECT_EQ(failureOf(rule->check()), g_gone);
}

TEST(FixedType, OfStrips)
{
    const auto any = boost::make_shared<OutStrip>();
    const auto mask = boost::make_shared<OutMaskStrip>();
    const processor::RulePtr rule = hasFixedType(mask);
    EXPECT_EQ(failureOf(rule->check()), "OutMaskStrip holds no image: set it before the run");
    const ImagePtr binary = createImage(*geometry2d(eImageBufferType::eBufferBinary, 9, 20));
    const ImagePtr grey = createImage(*geometry2d(g_uint8, 9, 20));
    mask->init(boost::make_shared<image::OutputImageYStrip2d>(*binary, 2, 5));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    mask->init(boost::make_shared<image::OutputImageYStrip2d>(*grey, 2, 5));
    EXPECT_EQ(failureOf(rule->check()), "OutMaskStrip is 9x5 UInt8, but has to be of element type Binary");
    any->init(boost::make_shared<image::OutputImageYStrip2d>(*grey, 2, 5));
    EXPECT_EQ(failureOf(hasFixedType(any)->check()), "no failure");
}

TEST(ImageType, TellsOwnedWrappedAndPart)
{
    using image::eImageBaseType;
    using image::eImageType;
    const auto in = boost::make_shared<InPicture>();
    const ImagePtr owned = createImage(*geometry2d(g_uint8, 4, 4));
    unsigned char memory[16] = {};
    const ImagePtr wrapped = image::wrapImage(*geometry2d(g_uint8, 4, 4), memory, {4, 0, 0, 0}, nullptr);
    const ImagePtr part = boost::make_shared<image::SubImage>(*owned, image::planGeometry(*owned, 0), 0, 0, 0);
    const std::pair<ImagePtr, eImageType> table[] = {
        {owned, eImageType::eOwnedImage}, {wrapped, eImageType::eWrappedImage}, {part, eImageType::eSubImage}};
    for (const auto& [image, type] : table) {
        in->init(image);
        for (const auto& [otherImage, otherType] : table) {
            EXPECT_EQ(imageType(in, otherType)->check().getValue(), type == otherType);
        }
        EXPECT_EQ(failureOf(imageBaseType(in, eImageBaseType::eHostImage)->check()), "no failure");
    }
    EXPECT_EQ(failureOf(imageType(in, eImageType::eOwnedImage)->check()),
              "InPicture holds part of another image, but an image that owns its pixels is required");
    EXPECT_EQ(failureOf(imageType(in, eImageType::eWrappedImage)->check()),
              "InPicture holds part of another image, but an image over a caller's pixels is required");
    EXPECT_EQ(failureOf(imageBaseType(in, eImageBaseType::eGpuImage)->check()),
              "InPicture holds an image in main memory, but an image on a GPU is required: bring it there with "
              "toDevice first");
    in->clear();
    EXPECT_EQ(failureOf(imageType(in, eImageType::eOwnedImage)->check()),
              "InPicture holds no image: set it before the run");
}

} // namespace
} // namespace orlix::imaproc::test
