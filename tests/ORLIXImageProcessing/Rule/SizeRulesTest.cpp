// Rules about sizes and kinds of geometry: when they hold, and what they say where they don't.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIXImageProcessing/Rule/Pictures.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

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

TEST(MatchSize, NamesTheAxesThatItComparesOfImages)
{
    Pictures pictures;
    pictures.set(*geometry5d(g_uint8, 5, 4, 3, 2, 2), *geometry5d(g_uint8, 6, 4, 2, 3, 3));
    const std::string found = "OutPicture is 6x4x2x3x3 UInt8, InPicture is 5x4x3x2x2 UInt8: ";
    for (const auto& [type, sizes] : {std::pair(eMatchImageSizeType::eAllSizes, "sizes"),
                                      {eMatchImageSizeType::eAllButTime, "sizes on x, y, z and c"},
                                      {eMatchImageSizeType::eColorAndTime, "sizes on c and t"},
                                      {eMatchImageSizeType::eVolumeColorAndTime, "sizes on z, c and t"}}) {
        EXPECT_EQ(failureOf(matchSize(pictures.in, pictures.out, type)->check()),
                  found + sizes + " have to be the same");
    }
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

} // namespace
} // namespace orlix::imaproc::test
