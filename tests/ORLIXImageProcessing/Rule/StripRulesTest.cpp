// Rules about strips of any kind: of plans and of volumes, with margins and without.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::Margin;

struct OutMaskVolumeStrip final : processor::NamedAttribute<OutMaskVolumeStrip, BaseOutputZStrip3dAttribute>
{
    static constexpr const char* g_name = "OutMaskVolumeStrip";
    static constexpr const char* g_toolTip = "A strip of a mask";
    eImageBufferType getFixedBufferType() const override { return eImageBufferType::eBufferBinary; }
};

const Margin g_margin{2, 3};

/// Strips don't keep their images alive.
ImagePtr kept(const ImagePtr& image)
{
    static std::vector<ImagePtr> g_images;
    return g_images.emplace_back(image);
}
ImagePtr volume(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY)
{
    return kept(createImage(*geometry3d(type, sizeX, sizeY, 9)));
}

TEST(StripRules, MarginsDoNotCount)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 9, 20));
    const auto in = stripAttribute<InMarginStrip>(image, 3UL, 5UL, g_margin, g_margin);
    const auto out = boost::make_shared<OutStrip>();
    const auto check = [&](unsigned long size) {
        out->init(boost::make_shared<image::OutputImageYStrip2d>(*image, 0, size));
        EXPECT_EQ(matchSizeAndType(out, in)->check().getValue(), size == 5);
        return failureOf(matchSize(in, out)->check());
    };
    EXPECT_EQ(check(5), "no failure");
    EXPECT_EQ(check(6), "The strip of OutStrip is 9x6, that of InMarginStrip is 9x5: sizes have to be the same");
}

TEST(StripRules, StripsOfVolumesAreComparedOnAllAxes)
{
    const auto in = stripAttribute<InVolumeStrip>(volume(eImageBufferType::UInt8, 5, 4), 2UL, 3UL);
    auto out = boost::make_shared<InOutVolumeStrip>();
    const processor::RulePtr sizes = matchSize(in, out);
    const processor::RulePtr both = matchSizeAndType(in, out);
    EXPECT_EQ(failureOf(sizes->check()), "InOutVolumeStrip holds no image: set it before the run");
    const auto against = [&](const processor::RulePtr& rule, const ImagePtr& image, unsigned long nbPlans) {
        out->init(boost::make_shared<image::InOutImageZStrip3d>(*image, 1, nbPlans));
        return failureOf(rule->check());
    };
    EXPECT_EQ(against(sizes, volume(eImageBufferType::Int16, 5, 4), 3), "no failure");
    EXPECT_EQ(against(both, volume(eImageBufferType::UInt8, 5, 4), 3), "no failure");
    const std::string rest = ", that of InVolumeStrip is 5x4x3: sizes have to be the same";
    EXPECT_EQ(against(sizes, volume(eImageBufferType::UInt8, 6, 4), 3),
              "The strip of InOutVolumeStrip is 6x4x3" + rest);
    EXPECT_EQ(against(sizes, volume(eImageBufferType::UInt8, 5, 3), 3),
              "The strip of InOutVolumeStrip is 5x3x3" + rest);
    EXPECT_EQ(against(sizes, volume(eImageBufferType::UInt8, 5, 4), 2),
              "The strip of InOutVolumeStrip is 5x4x2" + rest);
    EXPECT_EQ(against(both, volume(eImageBufferType::Int16, 5, 4), 3),
              "The strip of InOutVolumeStrip is 5x4x3 Int16, that of InVolumeStrip is 5x4x3 UInt8: sizes and element "
              "types have to be the same");
    out.reset();
    EXPECT_EQ(failureOf(both->check()),
              "An attribute of the rule no longer exists: keep the processor that the rule was made for");
}

TEST(StripRules, TypesAreComparedAcrossKinds)
{
    const auto in =
        stripAttribute<InMarginVolumeStrip>(volume(eImageBufferType::UInt8, 5, 4), 2UL, 3UL, g_margin, g_margin);
    const auto same = stripAttribute<OutStrip>(kept(createImage(*geometry2d(eImageBufferType::UInt8, 2, 2))), 0UL, 1UL);
    const auto other =
        stripAttribute<OutStrip>(kept(createImage(*geometry2d(eImageBufferType::Real32, 2, 2))), 0UL, 1UL);
    EXPECT_EQ(failureOf(matchBufferType(in, same)->check()), "no failure");
    EXPECT_EQ(failureOf(matchBufferType(in, other)->check()),
              "OutStrip is Real32, InMarginVolumeStrip is UInt8: element types have to be the same");
    EXPECT_EQ(failureOf(matchBufferType(in, boost::make_shared<InVolumeStrip>())->check()),
              "InVolumeStrip holds no image: set it before the run");
}

TEST(StripRules, AFixedTypeHoldsForVolumesToo)
{
    const auto mask = stripAttribute<OutMaskVolumeStrip>(volume(eImageBufferType::eBufferBinary, 5, 4), 2UL, 3UL);
    const auto grey = stripAttribute<OutMaskVolumeStrip>(volume(eImageBufferType::UInt8, 5, 4), 2UL, 3UL);
    const auto any = stripAttribute<OutVolumeStrip>(volume(eImageBufferType::UInt8, 5, 4), 2UL, 3UL);
    EXPECT_EQ(failureOf(hasFixedType(mask)->check()), "no failure");
    EXPECT_EQ(failureOf(hasFixedType(any)->check()), "no failure");
    EXPECT_EQ(failureOf(hasFixedType(grey)->check()),
              "OutMaskVolumeStrip is 5x4x3 UInt8, but has to be of element type Binary");
}

TEST(MatchBufferType, ComparesImagesInEveryTimeStepWhateverTheirSizes)
{
    using enum eImageBufferType::domain;
    const auto in = boost::make_shared<InPicture>();
    const auto out = boost::make_shared<OutPicture>();
    const processor::RulePtr rule = matchBufferType(in, out);
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    in->init(createImage(*geometry2d(UInt8, 3, 2)));
    out->init(createImage(*image::geometry5d(UInt8, 7, 5, 4, 2, 3)));
    EXPECT_EQ(failureOf(rule->check()), "no failure");
    out->init(createImage(mixedGeometry({UInt8, Int16}, 3, 2, 1)));
    EXPECT_EQ(failureOf(rule->check()), "OutPicture is 3x2x1x1x2 UInt8/Int16, InPicture is 3x2x1x1x1 UInt8: element "
                                        "types have to be the same");
}

TEST(MatchSize, OfSomeAxes)
{
    const auto in = boost::make_shared<InPicture>();
    const auto out = boost::make_shared<OutPicture>();
    in->init(createImage(*image::geometry5d(eImageBufferType::UInt8, 2, 3, 4, 5, 6)));
    const auto holds = [&](const eMatchImageSizeType& type) {
        std::string axes;
        for (unsigned axis = 0; axis < 5; ++axis) {
            unsigned long sizes[] = {2, 3, 4, 5, 6};
            ++sizes[axis];
            out->init(createImage(
                *image::geometry5d(eImageBufferType::UInt8, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4])));
            axes += matchSize(in, out, type)->check() ? '-' : "xyzct"[axis];
        }
        return axes;
    };
    EXPECT_EQ(holds(eMatchImageSizeType::eAllSizes), "xyzct");
    EXPECT_EQ(holds(eMatchImageSizeType::eAllButTime), "xyzc-");
    EXPECT_EQ(holds(eMatchImageSizeType::eColorAndTime), "---ct");
    EXPECT_EQ(holds(eMatchImageSizeType::eVolumeColorAndTime), "--zct");
    EXPECT_EQ(failureOf(matchSize(in, out, eMatchImageSizeType::eVolumeColorAndTime)->check()),
              "OutPicture is 2x3x4x5x7 UInt8, InPicture is 2x3x4x5x6 UInt8: sizes on z, c and t have to be the same");
    static_assert(eMatchImageSizeType::eAllButTime == 6 && eMatchImageSizeType::eColorAndTime == 11 &&
                  eMatchImageSizeType::eVolumeColorAndTime == 12);
}

} // namespace
} // namespace orlix::imaproc::test
