// Views of parts of an image, and when two images share their pixels.
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <gtest/gtest.h>

namespace orlix::image {
namespace {

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
constexpr auto g_real32 = eImageBufferType::Real32;

boost::shared_ptr<SubImage> planOf(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    return boost::make_shared<SubImage>(image, planGeometry(image, t), z, c, t);
}

BaseImageGeometry sequenceOf(const std::vector<eImageBufferType>& types)
{
    TemporalGeometry temporal;
    temporal.initSequence(types.size());
    VolumeGeometry volume;
    volume.init3d(3);
    ColorGeometry color;
    color.initChannels(2);
    return {types, 5, 4, volume, color, temporal};
}

TEST(SubImage, PlanIsA2dSingleImageOfItsStep)
{
    const ImagePtr image = createImage(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const auto plan = planOf(*image, 2, 1, 1);
    EXPECT_EQ(plan->getGeometry().toString(), "5x4x1x1x1 UInt16");
    EXPECT_FALSE(plan->getGeometry().getVolumeGeometry().is3d());
    EXPECT_FALSE(plan->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_EQ(plan->accessRow(3, 0, 0, 0), image->accessRow(3, 2, 1, 1));
    EXPECT_EQ(plan->getImageType(), eImageType::eSubImage);
    EXPECT_TRUE(plan->getPixelLayout().bRoomBehindPlans);
    EXPECT_TRUE(plan->getPixelLayout().bDense);
}

TEST(SubImage, VolumeKeepsTheVolumeGeometry)
{
    const ImagePtr image = createImage(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const SubImage volume(*image, volumeGeometry(*image, 1), 0, 1, 1);
    EXPECT_EQ(volume.getGeometry().toString(), "5x4x3x1x1 UInt16");
    EXPECT_TRUE(volume.getGeometry().getVolumeGeometry().is3d());
    EXPECT_EQ(volume.accessRow(3, 2, 0, 0), image->accessRow(3, 2, 1, 1));
}

TEST(SubImage, KeepsThePixelsWhenTheParentEnds)
{
    ImagePtr image = createImage(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    planData<unsigned short>(*image, 2, 1, 1)[19] = 1234;
    const boost::weak_ptr<BaseImage> watch = image;
    const auto plan = planOf(*image, 2, 1, 1);
    const auto planOfPlan = planOf(*plan, 0, 0, 0);
    image.reset();
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(planData<unsigned short>(*plan, 0, 0, 0)[19], 1234);
    EXPECT_EQ(planData<unsigned short>(*planOfPlan, 0, 0, 0)[19], 1234);
}

TEST(SubImage, OfStepsThatDifferInType)
{
    const ImagePtr image = createImage(sequenceOf({g_uint8, g_real32, g_uint16, g_real32}));
    for (unsigned long t = 0; t < 4; ++t) {
        const auto plan = planOf(*image, 2, 1, t);
        EXPECT_EQ(plan->getBufferType(), image->getBufferType(t));
        EXPECT_TRUE(plan->getGeometry().hasUniformBufferType());
        EXPECT_EQ(plan->accessRow(3, 0, 0, 0), image->accessRow(3, 2, 1, t));
        EXPECT_EQ(rowPitch(*plan), 5u);
        const SubImage volume(*image, volumeGeometry(*image, t), 0, 1, t);
        EXPECT_EQ(volume.accessRow(3, 2, 0, 0), image->accessRow(3, 2, 1, t));
    }
    const SubImage mixedSteps(*image, sequenceOf({g_real32, g_uint16, g_real32}), 0, 0, 1);
    for (unsigned long t = 0; t < 3; ++t) {
        EXPECT_EQ(mixedSteps.accessRow(3, 2, 1, t), image->accessRow(3, 2, 1, t + 1));
    }
    const ImagePtr pairs = createImage(sequenceOf({g_uint8, g_real32, g_real32}));
    const SubImage sameSteps(*pairs, sequenceOf({g_real32, g_real32}), 0, 0, 1);
    EXPECT_EQ(sameSteps.accessRow(3, 2, 1, 1), pairs->accessRow(3, 2, 1, 2));
}

class PixellessImage final : public BaseImage
{
public:
    explicit PixellessImage(const BaseImageGeometry& geometry) : BaseImage(geometry, PixelLayout()) {}
    bool isGpuImage() const override { return true; }
};

TEST(SubImage, OfAnImageWithoutHostPixelsHasNoneEither)
{
    PixellessImage image(*geometry5d(g_uint8, 5, 4, 3, 2, 2)), other(image.getGeometry());
    const auto plan = planOf(image, 2, 1, 1);
    EXPECT_EQ(plan->accessRow(3, 0, 0, 0), nullptr);
    EXPECT_TRUE(image.sharesPixelsWith(image));
    EXPECT_FALSE(image.sharesPixelsWith(other));
    EXPECT_EQ(image.getImageBaseType(), eImageBaseType::eGpuImage);
    try {
        (void)planData<unsigned char>(image, 2, 1, 1);
        FAIL();
    } catch (const ORLIXImageException& exception) {
        EXPECT_STREQ(exception.what(),
                     "An image of 5x4x3x2x2 UInt8 is on a GPU, but has to be in the memory of the host: bring it"
                     " there with toHost first");
    }
}

TEST(SharesPixelsWith, ViewsOfOnePlanDo)
{
    const ImagePtr image = createImage(*geometry5d(g_uint8, 5, 4, 3, 2, 2));
    EXPECT_TRUE(image->sharesPixelsWith(*image));
    EXPECT_TRUE(planOf(*image, 1, 1, 1)->sharesPixelsWith(*planOf(*image, 1, 1, 1)));
    EXPECT_FALSE(planOf(*image, 1, 1, 1)->sharesPixelsWith(*planOf(*image, 2, 1, 1)));
    EXPECT_FALSE(planOf(*image, 0, 0, 0)->sharesPixelsWith(*image));
    EXPECT_FALSE(image->sharesPixelsWith(*createImage(image->getGeometry())));
    const SubImage whole(*image, image->getGeometry(), 0, 0, 0);
    EXPECT_TRUE(whole.sharesPixelsWith(*image));
    EXPECT_TRUE(image->sharesPixelsWith(whole));
}

TEST(SharesPixelsWith, NeedsSameTypesAndStridesOfLongAxes)
{
    std::vector<unsigned short> memory(1000);
    const auto wrap = [&](const auto& geometry, const BufferStrides& strides) {
        return wrapImage(*geometry, memory.data(), strides, nullptr);
    };
    const auto all = geometry5d(g_uint16, 5, 4, 3, 2, 2);
    const ImagePtr image = wrap(all, {5, 20, 60, 120});
    EXPECT_TRUE(image->sharesPixelsWith(*wrap(all, {5, 20, 60, 120})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(all, {5, 21, 70, 150})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(all, {6, 24, 72, 144})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(all, {5, 20, 61, 122})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(all, {5, 20, 60, 121})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(geometry5d(eImageBufferType::Int16, 5, 4, 3, 2, 2), {5, 20, 60, 120})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(geometry5d(g_uint16, 5, 4, 3, 2, 1), {5, 20, 60, 120})));

    const ImagePtr plan = wrap(geometry2d(g_uint16, 5, 4), {5, 1, 2, 3});
    EXPECT_TRUE(plan->sharesPixelsWith(*wrap(geometry2d(g_uint16, 5, 4), {5, 7, 8, 9})));
    EXPECT_TRUE(plan->sharesPixelsWith(*planOf(*image, 0, 0, 0)));
    EXPECT_TRUE(wrap(geometry2d(g_uint16, 5, 1), {50, 0, 0, 0})
                    ->sharesPixelsWith(*wrap(geometry2d(g_uint16, 5, 1), {5, 0, 0, 0})));
}

TEST(SharesPixelsWith, LooksAtEveryStepWhereTypesDiffer)
{
    const ImagePtr image = createImage(sequenceOf({g_uint8, g_real32, g_uint16, g_real32}));
    const auto steps = sequenceOf({g_real32, g_uint16});
    const SubImage a(*image, steps, 0, 0, 1), b(*image, steps, 0, 0, 1);
    EXPECT_TRUE(a.sharesPixelsWith(b));
    EXPECT_FALSE(a.sharesPixelsWith(SubImage(*image, sequenceOf({g_uint16, g_real32}), 0, 0, 2)));
    EXPECT_TRUE(planOf(*image, 1, 1, 1)->sharesPixelsWith(*planOf(a, 1, 1, 0)));
}

} // namespace
} // namespace orlix::image
