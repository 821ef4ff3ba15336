// Images whose time steps lie in different memory: growing in place, and views of several images.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "support/Images.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace orlix::image {
namespace {

using testing::bytesOf;
using testing::fillRandom;
using testing::makeRandom;
using Bytes = std::vector<std::byte>;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
constexpr auto g_real32 = eImageBufferType::Real32;

/// Volumes of 5 x 4 x 3 in two channels, one of each type.
BaseImageGeometry sequenceOf(const std::vector<eImageBufferType>& types)
{
    VolumeGeometry volume;
    volume.init3d(3);
    ColorGeometry color;
    color.initChannels(2);
    TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {types, 5, 4, volume, color, temporal};
}
BaseImageGeometry sequenceOf(const eImageBufferType& type, unsigned long sizeT)
{
    return sequenceOf(std::vector<eImageBufferType>(sizeT, type));
}

Bytes joined(Bytes one, const Bytes& other)
{
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

TEST(GrowingImage, KeepsItsStepsWhereTheyAre)
{
    const ImagePtr image = makeRandom(sequenceOf(g_uint16, 2));
    const Bytes before = bytesOf(*image);
    const SubImage view(*image, image->getGeometry(), 0, 0, 0);
    std::vector<std::byte*> places;
    testing::forEachRow(*image, [&](unsigned long, std::byte* row) { places.push_back(row); });

    const BoolResult result = image->reinitialize(sequenceOf(g_uint16, 5));
    ASSERT_TRUE(result) << result.getMessage();
    EXPECT_EQ(image->getGeometry().toString(), "5x4x3x2x5 UInt16");
    EXPECT_EQ(image->getImageType(), eImageType::eOwnedImage);
    std::size_t next = 0;
    testing::forEachRow(*image, [&](unsigned long t, std::byte* row) { EXPECT_TRUE(t >= 2 || row == places[next++]); });
    const SubImage oldSteps(*image, sequenceOf(g_uint16, 2), 0, 0, 0);
    EXPECT_EQ(bytesOf(oldSteps), before);
    EXPECT_EQ(view.getSizeT(), 2u);
    EXPECT_TRUE(oldSteps.sharesPixelsWith(view));
    EXPECT_TRUE(view.sharesPixelsWith(oldSteps));
    EXPECT_FALSE(view.sharesPixelsWith(*image));

    SubImage newSteps(*image, sequenceOf(g_uint16, 3), 0, 0, 2);
    fillRandom(newSteps, 7);
    EXPECT_EQ(bytesOf(*image), joined(before, bytesOf(newSteps)));
}

TEST(GrowingImage, GrowsAgainAndByOtherTypes)
{
    const ImagePtr image = makeRandom(sequenceOf(g_uint8, 1));
    const Bytes first = bytesOf(*image);
    ASSERT_TRUE(image->reinitialize(sequenceOf({g_uint8, g_real32, g_uint16})));
    ASSERT_TRUE(image->reinitialize(sequenceOf({g_uint8, g_real32, g_uint16, g_uint16, g_uint8})));
    EXPECT_EQ(image->getGeometry().toString(), "5x4x3x2x5 UInt8/Real32/UInt16/UInt8");
    for (unsigned long t = 0; t < 5; ++t) {
        const SubImage plan(*image, planGeometry(*image, t), 2, 1, t);
        EXPECT_EQ(plan.getPixelLayout().rowBytes, static_cast<long>(5 * elementSize(image->getBufferType(t))));
        EXPECT_TRUE(plan.getPixelLayout().bRoomBehindPlans);
        EXPECT_EQ(plan.accessRow(3, 0, 0, 0), image->accessRow(3, 2, 1, t));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(plan.accessRow(0, 0, 0, 0)) % 64, 0u);
        EXPECT_EQ(rowPitch(*image, t), 5u);
    }
    SubImage others(*image, sequenceOf({g_real32, g_uint16, g_uint16, g_uint8}), 0, 0, 1);
    fillRandom(others, 3);
    EXPECT_EQ(bytesOf(*image), joined(first, bytesOf(others)));
}

TEST(GrowingImage, MayBecomeASequenceOrStayAsItIs)
{
    const ImagePtr image = createImage(*geometry2d(g_uint8, 5, 4));
    std::byte* const first = image->accessRow(0, 0, 0, 0);
    TemporalGeometry temporal;
    temporal.initSequence(1);
    ASSERT_TRUE(image->reinitialize({g_uint8, 5, 4, {}, {}, temporal}));
    EXPECT_TRUE(image->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_EQ(image->accessRow(0, 0, 0, 0), first);
    ASSERT_TRUE(image->reinitialize(image->getGeometry()));
    EXPECT_EQ(image->accessRow(0, 0, 0, 0), first);
}

TEST(GrowingImage, StartsFromNothing)
{
    const ImagePtr none = createImage(sequenceOf(g_uint8, 0));
    ASSERT_TRUE(none->reinitialize(sequenceOf(g_real32, 2)));
    fillRandom(*none, 1);
    EXPECT_EQ(none->getGeometry().toString(), "5x4x3x2x2 Real32");

    const ImagePtr empty = createImage(*geometry5d(g_uint8, 0, 4, 3, 2, 2));
    ASSERT_TRUE(empty->reinitialize(*geometry5d(g_uint8, 0, 4, 3, 2, 1UL << 62)));
    EXPECT_EQ(empty->getSizeT(), 1UL << 62);
    EXPECT_NE(empty->getPixelLayout().first, nullptr);
}

TEST(GrowingImage, RefusesWhatIsNoGrowth)
{
    const ImagePtr image = makeRandom(sequenceOf({g_uint8, g_uint8, g_uint16}));
    const Bytes before = bytesOf(*image);
    VolumeGeometry volume;
    volume.init3d(3);
    ColorGeometry color;
    color.initChannels(2);
    TemporalGeometry temporal;
    temporal.initSequence(4);
    for (const BaseImageGeometry& other :
         {sequenceOf({g_uint8, g_uint8}), sequenceOf({g_uint8, g_uint16, g_uint16, g_uint16}), sequenceOf(g_uint8, 4),
          BaseImageGeometry(g_uint8, 6, 4, volume, color, temporal),
          BaseImageGeometry(g_uint8, 5, 3, volume, color, temporal),
          BaseImageGeometry(g_uint8, 5, 4, {}, color, temporal),
          BaseImageGeometry(g_uint8, 5, 4, volume, {}, temporal)}) {
        EXPECT_EQ(image->reinitialize(other).getMessage(),
                  "An image of 5x4x3x2x3 UInt8/UInt16 can't become one of " + other.toString() +
                      " in place: only time steps can be added, behind the last");
    }
    EXPECT_EQ(image->getSizeT(), 3u);
    EXPECT_EQ(bytesOf(*image), before);
}

TEST(GrowingImage, RefusesOtherPlansOfTheSameType)
{
    const ImagePtr image = createImage(*geometry5d(g_uint8, 5, 4, 3, 2, 2));
    for (const auto& other : {geometry5d(g_uint8, 6, 4, 3, 2, 3), geometry5d(g_uint8, 5, 5, 3, 2, 3),
                              geometry5d(g_uint8, 5, 4, 4, 2, 3), geometry5d(g_uint8, 5, 4, 3, 3, 3),
                              geometry5d(g_uint8, 5, 4, 3, 2, 1), geometry5d(g_uint16, 5, 4, 3, 2, 3)}) {
        EXPECT_FALSE(image->reinitialize(*other)) << other->toString();
    }
    EXPECT_EQ(image->getGeometry().toString(), "5x4x3x2x2 UInt8");
    ASSERT_TRUE(image->reinitialize(*geometry5d(g_uint8, 5, 4, 3, 2, 2)));
    EXPECT_FALSE(image->getPixelLayout().steps) << "one pattern still tells where all steps lie";
}

class PixellessImage final : public BaseImage
{
public:
    explicit PixellessImage(const BaseImageGeometry& geometry) : BaseImage(geometry, PixelLayout()) {}
};

TEST(GrowingImage, HasToOwnItsPixels)
{
    const ImagePtr image = createImage(sequenceOf(g_uint8, 2));
    std::vector<unsigned char> memory(1000);
    const ImagePtr wrapped = wrapImage(sequenceOf(g_uint8, 2), memory.data(), {5, 20, 60, 120}, nullptr);
    const ImagePtr view = boost::make_shared<SubImage>(*image, image->getGeometry(), 0, 0, 0);
    const ImagePtr elsewhere = boost::make_shared<PixellessImage>(sequenceOf(g_uint8, 2));
    for (const ImagePtr& each : {wrapped, view, elsewhere}) {
        EXPECT_EQ(each->reinitialize(sequenceOf(g_uint8, 3)).getMessage(),
                  "An image of 5x4x3x2x2 UInt8 can't grow in place, since it doesn't own its pixels in host memory: "
                  "grow a copy of it");
        EXPECT_EQ(each->getSizeT(), 2u);
    }
}

TEST(GrowingImage, IsAsItWasWhereTheMemoryCannotBeHad)
{
    const ImagePtr image = makeRandom(*geometry5d(g_uint8, 1UL << 20, 1, 1, 1, 2));
    const Bytes before = bytesOf(*image);
    EXPECT_THROW((void)image->reinitialize(*geometry5d(g_uint8, 1UL << 20, 1, 1, 1, 1UL << 40)), ORLIXImageException);
    EXPECT_THROW((void)image->reinitialize(*geometry5d(g_uint8, 1UL << 20, 1, 1, 1, 1UL << 60)), ORLIXImageException);
    EXPECT_EQ(image->getSizeT(), 2u);
    EXPECT_EQ(bytesOf(*image), before);
}

TEST(GrowingImage, KeepsItsMemoryAsLongAsAViewOfAnyStepLives)
{
    ImagePtr image = makeRandom(sequenceOf(g_uint8, 2));
    ASSERT_TRUE(image->reinitialize(sequenceOf(g_uint8, 4)));
    fillRandom(*image, 5);
    const SubImage old(*image, planGeometry(*image, 1), 2, 1, 1);
    const SubImage added(*image, planGeometry(*image, 3), 2, 1, 3);
    const Bytes oldBytes = bytesOf(old);
    const Bytes addedBytes = bytesOf(added);
    image.reset();
    // Blocks that had been given back would be handed out again.
    const std::vector<ImagePtr> others(3, makeRandom(sequenceOf(g_uint8, 2), 9));
    EXPECT_EQ(bytesOf(old), oldBytes);
    EXPECT_EQ(bytesOf(added), addedBytes);
}

TEST(ViewOfSeveralImages, ShowsTheStepsOfAll)
{
    const ImagePtr owned = makeRandom(sequenceOf({g_uint8, g_real32}), 1);
    const testing::WatchedImage watched(sequenceOf(g_uint16, 3), {.rowGap = 3, .planGap = 11});
    const ImagePtr wrapped = watched.get();
    fillRandom(*wrapped, 2);
    const SubImage view({owned.get(), wrapped.get(), owned.get()},
                        sequenceOf({g_uint8, g_real32, g_uint16, g_uint16, g_uint16, g_uint8, g_real32}));
    EXPECT_EQ(bytesOf(view), joined(joined(bytesOf(*owned), bytesOf(*wrapped)), bytesOf(*owned)));
    EXPECT_EQ(view.getImageType(), eImageType::eSubImage);
    EXPECT_FALSE(view.getPixelLayout().bDense);
    EXPECT_FALSE(view.getPixelLayout().bRoomBehindPlans);

    const SubImage plan(view, planGeometry(view, 1), 2, 1, 1);
    EXPECT_TRUE(plan.getPixelLayout().bDense) << "each plan is as its own image has it";
    EXPECT_TRUE(plan.getPixelLayout().bRoomBehindPlans);
    const SubImage volume(view, volumeGeometry(view, 3), 0, 1, 3);
    EXPECT_TRUE(volume.sharesPixelsWith(SubImage(*wrapped, volumeGeometry(*wrapped, 1), 0, 1, 1)));
    EXPECT_FALSE(volume.getPixelLayout().bDense);
    EXPECT_EQ(rowPitch(view, 1), 5u);
    EXPECT_EQ(rowPitch(view, 3), 8u);
    EXPECT_TRUE(watched.isOutsideIntact());
}

TEST(ViewOfSeveralImages, NeedsNoTableForOneStep)
{
    const ImagePtr image = createImage(sequenceOf(g_uint8, 1));
    ASSERT_TRUE(image->reinitialize(sequenceOf({g_uint8, g_uint16})));
    EXPECT_TRUE(image->getPixelLayout().steps);
    EXPECT_FALSE(SubImage(*image, volumeGeometry(*image, 1), 0, 1, 1).getPixelLayout().steps);
}

// Neither part fills the cache; both together do.
TEST(ViewOfSeveralImages, LiesWhereTheWholeOfItMayBeCached)
{
    using simd::eMemoryPlace;
    const auto placeOf = [](const BaseImage& image) { return levelOf(image.getPixelLayout().place); };
    TemporalGeometry two;
    two.initSequence(2);
    const BaseImageGeometry one(g_uint8, hard::getLastLevelCacheBytes() / 3, 1, {}, {}, {});
    const BaseImageGeometry both(g_uint8, one.getSizeX(), 1, {}, {}, two);
    const ImagePtr first = createImage(one), second = createImage(one);
    ASSERT_LT(placeOf(*first), eMemoryPlace::lastLevelCacheFilled);
    EXPECT_GE(placeOf(SubImage({first.get(), second.get()}, both)), eMemoryPlace::lastLevelCacheFilled);
    ASSERT_TRUE(first->reinitialize(both));
    EXPECT_GE(placeOf(*first), eMemoryPlace::lastLevelCacheFilled);
}

TEST(ViewOfSeveralImages, SharesPixelsStepByStep)
{
    const ImagePtr one = makeRandom(sequenceOf(g_uint8, 2));
    const ImagePtr other = makeRandom(sequenceOf(g_uint8, 2));
    const auto view = [&](const ImagePtr& first, const ImagePtr& second) {
        return boost::make_shared<SubImage>(std::vector<const BaseImage*>{first.get(), second.get()},
                                            sequenceOf(g_uint8, 4));
    };
    EXPECT_TRUE(view(one, other)->sharesPixelsWith(*view(one, other)));
    EXPECT_FALSE(view(one, other)->sharesPixelsWith(*view(one, one)));
    EXPECT_FALSE(view(one, other)->sharesPixelsWith(*view(other, one)));
    const ImagePtr whole = makeRandom(sequenceOf(g_uint8, 4));
    const SubImage front(*whole, sequenceOf(g_uint8, 2), 0, 0, 0), back(*whole, sequenceOf(g_uint8, 2), 0, 0, 2);
    const SubImage again({&front, &back}, sequenceOf(g_uint8, 4));
    EXPECT_TRUE(again.sharesPixelsWith(*whole)) << "a table and a pattern that say the same";
    EXPECT_TRUE(whole->sharesPixelsWith(again));
    const SubImage turned({&back, &front}, sequenceOf(g_uint8, 4));
    EXPECT_FALSE(turned.sharesPixelsWith(*whole));
}

TEST(ViewOfSeveralImages, OfEmptyOnes)
{
    const ImagePtr many = createImage(*geometry5d(g_uint8, 0, 4, 1, 1, 1UL << 40));
    TemporalGeometry temporal;
    temporal.initSequence(1UL << 41);
    const SubImage view({many.get(), many.get()}, {g_uint8, 0, 4, {}, {}, temporal});
    EXPECT_EQ(view.getSizeT(), 1UL << 41);
    const ImagePtr none = createImage(sequenceOf(g_uint8, 0));
    const ImagePtr some = makeRandom(sequenceOf(g_uint8, 1));
    const SubImage oneStep({none.get(), some.get()}, sequenceOf(g_uint8, 1));
    EXPECT_TRUE(oneStep.sharesPixelsWith(*some));
}

RC_GTEST_PROP(GrowingImageProperty, EveryElementIsWhereItWasPut, ())
{
    const auto types = *rc::gen::nonEmpty(rc::gen::container<std::vector<eImageBufferType>>(
        rc::gen::element<eImageBufferType>(g_uint8, g_uint16, g_real32)));
    const unsigned long start = *rc::gen::inRange<unsigned long>(0, types.size() + 1);
    const ImagePtr image =
        start == 0 ? createImage(sequenceOf(types.front(), 0))
                   : makeRandom(sequenceOf(std::vector<eImageBufferType>(types.begin(), types.begin() + start)));
    Bytes expected = bytesOf(*image);
    for (unsigned long end = start; end < types.size();) {
        const unsigned long next = *rc::gen::inRange<unsigned long>(end + 1, types.size() + 1);
        RC_ASSERT(image->reinitialize(sequenceOf({types.begin(), types.begin() + next})).getValue());
        SubImage added(*image, sequenceOf({types.begin() + end, types.begin() + next}), 0, 0, end);
        fillRandom(added, next);
        expected = joined(expected, bytesOf(added));
        end = next;
    }
    RC_ASSERT(bytesOf(*image) == expected);
}

} // namespace
} // namespace orlix::image
