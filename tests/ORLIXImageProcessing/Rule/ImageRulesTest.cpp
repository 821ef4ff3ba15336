// Rules about images and strips: when they hold, and what they say where they don't.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/TestAttributes.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <cmath>

#include <cfloat>
#include <cmath>
#include <limits>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
const std::string g_gone = "An attribute of the rule no longer exists: keep the processor that the rule was made for";

template <class TValue>
struct InValue final : processor::NamedAttribute<InValue<TValue>, processor::BaseValueAttribute<TValue>>
{
    static constexpr const char* g_name = "InValue";
    static constexpr const char* g_toolTip = "A value";
};

struct Pictures
{
    boost::shared_ptr<InPicture> in = boost::make_shared<InPicture>();
    boost::shared_ptr<OutPicture> out = boost::make_shared<OutPicture>();

    void set(const image::BaseImageGeometry& first, const image::BaseImageGeometry& second)
    {
        in->init(createImage(first));
        out->init(createImage(second));
    }
};

TEST(MatchSizeAndType, HoldsForSameSizesAndTypes)
{
    Pictures pictures;
    const processor::RulePtr rule = matchSizeAndType(pictures.in, pictures.out);
    for (const eImageBufferType type : image::g_allBufferTypes) {
        pictures.set(*geometry5d(type, 5, 4, 3, 2, 2), *geometry5d(type, 5, 4, 3, 2, 2));
        EXPECT_EQ(failureOf(rule->check()), "no failure");
    }
    const std::vector<eImageBufferType> types = {g_uint8, g_uint16, g_uint8};
    pictures.set(mixedGeometry(types, 4, 3, 2), mixedGeometry(types, 4, 3, 2));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.set(*geometry2d(g_uint8, 0, 7), *geometry2d(g_uint8, 0, 7));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
}

TEST(MatchSizeAndType, NamesWhatWasFoundOnAnyAxis)
{
    Pictures pictures;
    const processor::RulePtr rule = matchSizeAndType(pictures.in, pictures.out);
    pictures.set(*geometry2d(g_uint8, 512, 512), *geometry2d(g_uint8, 512, 256));
    EXPECT_EQ(failureOf(rule->check()),
              "OutPicture is 512x256x1x1x1 UInt8, InPicture is 512x512x1x1x1 UInt8: sizes and "
              "element types have to be the same");
    const auto same = geometry5d(g_uint8, 5, 4, 3, 2, 2);
    for (const auto& other :
         {geometry5d(g_uint8, 6, 4, 3, 2, 2), geometry5d(g_uint8, 5, 5, 3, 2, 2), geometry5d(g_uint8, 5, 4, 4, 2, 2),
          geometry5d(g_uint8, 5, 4, 3, 3, 2), geometry5d(g_uint8, 5, 4, 3, 2, 3), geometry5d(g_uint16, 5, 4, 3, 2, 2),
          geometry5d(eImageBufferType::eBufferUInt8Like, 5, 4, 3, 2, 2)}) {
        pictures.set(*same, *other);
        EXPECT_EQ(failureOf(rule->check()), "OutPicture is " + other->toString() + ", InPicture is " +
                                                same->toString() + ": sizes and element types have to be the same");
    }
    pictures.set(mixedGeometry({g_uint8, g_uint16}, 4, 3, 2), mixedGeometry({g_uint8, g_uint8}, 4, 3, 2));
    EXPECT_NE(failureOf(rule->check()), "no failure") << "types are compared step by step";
}

TEST(MatchSizeAndType, ReadsTheAttributesWhenItIsChecked)
{
    Pictures pictures;
    const processor::RulePtr rule =
        matchSizeAndType(boost::weak_ptr<InPicture>(pictures.in), boost::weak_ptr<OutPicture>(pictures.out));
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    pictures.in->init(createImage(*geometry2d(g_uint8, 2, 2)));
    EXPECT_EQ(failureOf(rule->check()), "OutPicture holds no image: set it before the run");
    pictures.out->init(ImagePtr());
    EXPECT_EQ(failureOf(rule->check()), "OutPicture holds no image: set it before the run");
    pictures.out->init(createImage(*geometry2d(g_uint8, 2, 2)));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.out.reset();
    EXPECT_EQ(failureOf(rule->check()), g_gone);
}

TEST(MatchSizeAndType, OfStripsLooksAtLinesAndType)
{
    const auto in = boost::make_shared<InStrip>();
    const auto out = boost::make_shared<OutStrip>();
    const processor::RulePtr rule = matchSizeAndType(in, out);
    EXPECT_EQ(failureOf(rule->check()), "InStrip holds no image: set it before the run");
    const ImagePtr wide = createImage(*geometry2d(g_uint8, 9, 20));
    const ImagePtr narrow = createImage(*geometry2d(g_uint8, 8, 20));
    const ImagePtr deep = createImage(*geometry2d(g_uint16, 9, 30));
    in->init(boost::make_shared<image::InputImageYStrip2d>(*wide, 2, 5));
    const auto against = [&](const ImagePtr& image, unsigned long start, unsigned long size) {
        out->init(boost::make_shared<image::OutputImageYStrip2d>(*image, start, size));
        return failureOf(rule->check());
    };
    EXPECT_EQ(against(wide, 0, 5), "no failure") << "from whatever line";
    const std::string rest = ", that of InStrip is 9x5 UInt8: sizes and element types have to be the same";
    EXPECT_EQ(against(wide, 2, 6), "The strip of OutStrip is 9x6 UInt8" + rest);
    EXPECT_EQ(against(narrow, 2, 5), "The strip of OutStrip is 8x5 UInt8" + rest);
    EXPECT_EQ(against(deep, 2, 5), "The strip of OutStrip is 9x5 UInt16" + rest);
}

TEST(MatchSize, LooksAtNoType)
{
    Pictures pictures;
    const processor::RulePtr rule = matchSize(pictures.in, pictures.out);
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    for (const eImageBufferType type : image::g_allBufferTypes) {
        pictures.set(*geometry5d(g_uint16, 5, 4, 3, 2, 2), *geometry5d(type, 5, 4, 3, 2, 2));
        EXPECT_EQ(failureOf(rule->check()), "no failure");
    }
    const auto same = geometry5d(g_uint8, 5, 4, 3, 2, 2);
    for (const auto& other :
         {geometry5d(g_uint8, 6, 4, 3, 2, 2), geometry5d(g_uint8, 5, 5, 3, 2, 2), geometry5d(g_uint8, 5, 4, 4, 2, 2),
          geometry5d(g_uint8, 5, 4, 3, 3, 2), geometry5d(g_uint16, 5, 4, 3, 2, 3)}) {
        pictures.set(*same, *other);
        EXPECT_EQ(failureOf(rule->check()), "OutPicture is " + other->toString() + ", InPicture is " +
                                                same->toString() + ": sizes have to be the same");
    }
    pictures.out.reset();
    EXPECT_EQ(failureOf(rule->check()), g_gone);
}

TEST(MatchSize, OfStripsLooksAtLines)
{
    const auto in = boost::make_shared<InStrip>();
    const auto out = boost::make_shared<OutStrip>();
    const processor::RulePtr rule = matchSize(in, out);
    EXPECT_EQ(failureOf(rule->check()), "InStrip holds no image: set it before the run");
    const ImagePtr wide = createImage(*geometry2d(g_uint8, 9, 20));
    const ImagePtr narrow = createImage(*geometry2d(g_uint8, 8, 20));
    const ImagePtr deep = createImage(*geometry2d(g_uint16, 9, 30));
    in->init(boost::make_shared<image::InputImageYStrip2d>(*wide, 2, 5));
    const auto against = [&](const ImagePtr& image, unsigned long start, unsigned long size) {
        out->init(boost::make_shared<image::OutputImageYStrip2d>(*image, start, size));
        return failureOf(rule->check());
    };
    EXPECT_EQ(against(wide, 0, 5), "no failure");
    EXPECT_EQ(against(deep, 7, 5), "no failure");
    const std::string rest = ", that of InStrip is 9x5: sizes have to be the same";
    EXPECT_EQ(against(wide, 2, 6), "The strip of OutStrip is 9x6" + rest);
    EXPECT_EQ(against(narrow, 2, 5), "The strip of OutStrip is 8x5" + rest);
}

TEST(GeometryTypes, OfVolumesCompareTheKindAlone)
{
    Pictures pictures;
    const processor::RulePtr rule = matchVolumeGeometryType(pictures.in, pictures.out);
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    pictures.set(*geometry2d(g_uint8, 5, 4), *geometry5d(g_uint16, 7, 3, 1, 2, 2));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.set(*image::geometry3d(g_uint8, 5, 4, 1), *image::geometry3d(g_uint8, 5, 4, 9));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.set(*image::geometry3d(g_uint8, 5, 4, 1), *geometry2d(g_uint8, 5, 4));
    EXPECT_EQ(failureOf(rule->check()),
              "OutPicture has single plans, InPicture has volumes: give volumes or single plans for both");
    pictures.in.reset();
    EXPECT_EQ(failureOf(rule->check()), g_gone);
}

TEST(GeometryTypes, OfColorsTellOneChannelFromSeveral)
{
    Pictures pictures;
    const processor::RulePtr rule = matchColorGeometryType(pictures.in, pictures.out);
    pictures.set(*geometry5d(g_uint8, 5, 4, 1, 3, 1), *geometry5d(g_uint16, 7, 3, 2, 2, 2));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.set(*geometry5d(g_uint8, 5, 4, 1, 1, 1), *geometry5d(g_uint16, 7, 3, 2, 1, 2));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    pictures.set(*geometry5d(g_uint8, 5, 4, 1, 1, 1), *geometry5d(g_uint8, 5, 4, 1, 3, 1));
    EXPECT_EQ(failureOf(rule->check()), "OutPicture has 3 channels, InPicture has 1: give images of one channel, or of "
                                        "several, for both");
}

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
              "InPicture holds an image in main memory, but an image on a GPU is required");
    in->clear();
    EXPECT_EQ(failureOf(imageType(in, eImageType::eOwnedImage)->check()),
              "InPicture holds no image: set it before the run");
}

struct RangeRow
{
    eImageBufferType::domain type;
    double smallest;
    double largest;
};

TEST(ValueRange, IsThatOfTheTypeComparedAsDoubles)
{
    using enum eImageBufferType::domain;
    const RangeRow table[] = {{Int8, -128, 127},
                              {UInt8, 0, 255},
                              {Int16, -32768, 32767},
                              {UInt16, 0, 65535},
                              {Int32, -2147483648.0, 2147483647.0},
                              {UInt32, 0, 4294967295.0},
                              {Real32, -FLT_MAX, FLT_MAX},
                              {eBufferBinary, 0, 1},
                              {eBufferUInt16Like, 0, 65535},
                              {eBufferUInt32Like, 0, 4294967295.0},
                              {eBufferUInt8Like, 0, 255}};
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto in = boost::make_shared<InPicture>();
    const auto strip = boost::make_shared<InStrip>();
    const auto value = boost::make_shared<InValue<double>>();
    const processor::RulePtr imageRule = matchImageRange<InValue<double>>(in, value);
    const processor::RulePtr stripRule = matchStripRange<InValue<double>>(strip, value);
    for (const RangeRow& row : table) {
        const ImagePtr image = createImage(*geometry2d(row.type, 2, 2));
        in->init(image);
        strip->init(boost::make_shared<image::InputImageYStrip2d>(*image, 0, 2));
        const auto holds = [&](double number) {
            value->init(number);
            const bool bHolds = imageRule->check().getValue();
            EXPECT_EQ(stripRule->check().getValue(), bHolds);
            return bHolds;
        };
        EXPECT_TRUE(holds(row.smallest)) << row.type;
        EXPECT_TRUE(holds(row.largest)) << row.type;
        EXPECT_TRUE(holds(0.25)) << row.type;
        EXPECT_FALSE(holds(std::nextafter(row.smallest, -infinity))) << row.type;
        EXPECT_FALSE(holds(std::nextafter(row.largest, infinity))) << row.type;
        EXPECT_FALSE(holds(infinity) || holds(-infinity) || holds(nan)) << row.type;
    }
}

TEST(ValueRange, IsThatOfEveryTimeStep)
{
    const auto in = boost::make_shared<InPicture>();
    const auto value = boost::make_shared<InValue<double>>();
    const processor::RulePtr rule = matchImageRange<InValue<double>>(in, value);
    in->init(createImage(mixedGeometry({g_uint16, eImageBufferType::Int8, g_uint8}, 3, 2, 1)));
    const auto against = [&](double number) {
        value->init(number);
        return failureOf(rule->check());
    };
    EXPECT_EQ(against(127), "no failure");
    EXPECT_EQ(against(128), "InValue is 128, but has to lie within the range of Int8, the element type of InPicture: "
                            "-128 to 127");
    EXPECT_EQ(against(-1), "InValue is -1, but has to lie within the range of UInt16, the element type of InPicture: 0 "
                           "to 65535");
}

TEST(ValueRange, NamesValueTypeAndRange)
{
    const auto in = boost::make_shared<InPicture>();
    const auto value = boost::make_shared<InValue<float>>();
    const processor::RulePtr rule = matchImageRange<InValue<float>>(in, value);
    value->init(255.5F);
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    in->init(createImage(*geometry2d(g_uint8, 2, 2)));
    EXPECT_EQ(failureOf(rule->check()),
              "InValue is 255.5, but has to lie within the range of UInt8, the element type of "
              "InPicture: 0 to 255");
    value->init(254.9F);
    EXPECT_EQ(failureOf(rule->check()), "no failure");
}

TEST(ValueRange, ItsTextHasAllDigitsInEveryLocale)
{
    const auto in = boost::make_shared<InPicture>();
    in->init(createImage(*geometry2d(eImageBufferType::UInt32, 2, 2)));
    const auto real = boost::make_shared<InValue<double>>();
    const auto single = boost::make_shared<InValue<float>>();
    real->init(4294967295.5);
    single->init(-0.1F);
    const std::string range =
        ", but has to lie within the range of UInt32, the element type of InPicture: 0 to 4294967295";
    const auto expectTexts = [&] {
        EXPECT_EQ(failureOf(matchImageRange<InValue<double>>(in, real)->check()), "InValue is 4294967295.5" + range);
        EXPECT_EQ(failureOf(matchImageRange<InValue<float>>(in, single)->check()), "InValue is -0.1" + range);
    };
    expectTexts();
    const orlix::testing::ScopedCppLocale scope;
    expectTexts();
    const auto out = boost::make_shared<OutPicture>();
    out->init(createImage(*geometry2d(eImageBufferType::UInt32, 1234, 2)));
    EXPECT_EQ(failureOf(matchSize(in, out)->check()),
              "OutPicture is 1234x2x1x1x1 UInt32, InPicture is 2x2x1x1x1 UInt32: sizes have to be the same");
}

} // namespace
} // namespace orlix::imaproc::test
