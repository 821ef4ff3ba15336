// Splits hold what they cut, so that whoever sets them up may let go of it, and hold nothing of it after a run.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/PlanLowerProcessor.h"
#include "ORLIXImageProcessing/StorageRecorder.h"

#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using image::eStripAllocationType;
using image::eStripParsingDirection;

constexpr unsigned char g_pixel = 77;
const core::BaseRequestOrigin g_origin(0);

/// An image whose pixels all hold `g_pixel`.
ImagePtr filled(const boost::shared_ptr<image::BaseImageGeometry>& geometry)
{
    ImagePtr image = image::createImage(*geometry);
    for (unsigned long z = 0; z < image->getSizeZ(); ++z) {
        std::fill_n(image::planData<unsigned char>(*image, z, 0, 0), image->getSizeX() * image->getSizeY(), g_pixel);
    }
    return image;
}
ImagePtr plan()
{
    return filled(image::geometry2d(eImageBufferType::UInt8, 64, 3));
}
ImagePtr volume()
{
    return filled(image::geometry3d(eImageBufferType::UInt8, 64, 3, 2));
}

/// Sets `TSplit` up by `init` with `data`, which nobody else holds, and lets `use` take its first element.
template <class TSplit, class TPointer, class TInit, class TUse>
void expectHeldUntilCleared(TPointer data, const TInit& init, const TUse& use)
{
    TSplit split;
    const boost::weak_ptr<typename TPointer::element_type> watch = data;
    EXPECT_EQ(failureOf(init(split, data)), "no failure");
    data.reset();
    ASSERT_FALSE(watch.expired()) << "the split holds what it cuts";
    use(split);
    split.clear();
    EXPECT_TRUE(watch.expired()) << "and lets go of it after the run";
}

/// The same for splits whose first range goes to a StorageRecorder of `TAttribute`; `firstOf` gives the first element
/// of what it got.
template <class TAttribute, class TSplit, class TPointer, class TInit, class TFirst>
void expectRangesHeld(TPointer data, const TInit& init, const TFirst& firstOf)
{
    using Lower = StorageRecorder<TAttribute>;
    expectHeldUntilCleared<TSplit>(std::move(data), init, [&](TSplit& split) {
        const auto lower = makeInitialised<Lower>();
        EXPECT_EQ(failureOf(split.processAttribute(*lower, 0, 1, g_origin)), "no failure");
        EXPECT_EQ(failureOf(lower->run(core::eSynchroType::eSynchroSync)), "no failure");
        const auto seen = Lower::takeSeen();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(*static_cast<const unsigned char*>(firstOf(*std::get<0>(seen.front()))), g_pixel);
    });
}

const auto g_firstOfLines = [](const auto& strip) { return strip.accessBuffer(); };
const auto g_firstOfPlans = [](const auto& strip) { return strip.accessBuffer(0); };

const auto g_cutByDirections = [](auto& split, const auto& image) {
    return split.initBase(image, eStripAllocationType::eStripAllocationDefault,
                          eStripParsingDirection::eStripParsingForward, eStripParsingDirection::eStripParsingForward);
};
const auto g_cutRegion = [](auto& split, const auto& image) {
    return split.initBase(image, eStripAllocationType::eStripAllocationDefault, 1, 1);
};
const auto g_cutWithMargins = [](auto& split, const auto& image) {
    return split.initBase(image, 1, 1, 1, 1, eStripAllocationType::eStripAllocationDefault,
                          eStripParsingDirection::eStripParsingForward);
};

TEST(SplitLifetimes, StripsOfPlans)
{
    using Lines = StorageRecorder<InStrip>;
    using MarginLines = StorageRecorder<InMarginStrip>;
    expectRangesHeld<InStrip, ImageYStrip2dSplit<Lines, const image::BaseImage, InStrip>>(
        ImageConstPtr(plan()), g_cutByDirections, g_firstOfLines);
    expectRangesHeld<InStrip, ImageYSubStrip2dSplit<Lines, const image::BaseImage, InStrip>>(
        ImageConstPtr(plan()), g_cutRegion, g_firstOfLines);
    expectRangesHeld<InMarginStrip, ImageYStrip2dWithKernelSplit<MarginLines, const image::BaseImage, InMarginStrip>>(
        ImageConstPtr(plan()), g_cutWithMargins, g_firstOfLines);
    expectRangesHeld<OutStrip, ImageYStrip2dSplit<StorageRecorder<OutStrip>, image::BaseImage, OutStrip>>(
        plan(), g_cutByDirections, g_firstOfLines);
}

TEST(SplitLifetimes, StripsOfVolumes)
{
    using Plans = StorageRecorder<InVolumeStrip>;
    using MarginPlans = StorageRecorder<InMarginVolumeStrip>;
    expectRangesHeld<InVolumeStrip, ImageZStrip3dSplit<Plans, const image::BaseImage, InVolumeStrip>>(
        ImageConstPtr(volume()), g_cutByDirections, g_firstOfPlans);
    expectRangesHeld<InVolumeStrip, ImageZSubStrip3dSplit<Plans, const image::BaseImage, InVolumeStrip>>(
        ImageConstPtr(volume()), g_cutRegion, g_firstOfPlans);
    expectRangesHeld<InMarginVolumeStrip,
                     ImageZStrip3dWithKernelSplit<MarginPlans, const image::BaseImage, InMarginVolumeStrip>>(
        ImageConstPtr(volume()), g_cutWithMargins, g_firstOfPlans);
}

TEST(SplitLifetimes, TilesAndTheirCoordinates)
{
    expectRangesHeld<InTiles, InputImageTile2dCollSplit<StorageRecorder<InTiles>, InTiles>>(
        ImageConstPtr(plan()),
        [](auto& split, const ImageConstPtr& image) {
            return split.initBase(image, std::vector<image::Tile2dCoords>(3, {1, 1, 2, 2}), 1, 1);
        },
        [](auto& tiles) { return tiles.getTile(0).accessBuffer(0); });
    expectRangesHeld<InBoxes, InputImageTile3dCollSplit<StorageRecorder<InBoxes>, InBoxes>>(
        ImageConstPtr(volume()),
        [](auto& split, const ImageConstPtr& image) {
            const std::vector<image::Tile3dCoords> coords(3, {1, 1, 1, 2, 2, 1});
            return split.initBase(image, coords, 1, 1);
        },
        [](auto& tiles) { return tiles.getTile(0).accessBuffer(0, 0); });
}

template <class TSplit, class TAttribute, class TPointer>
void expectSubImagesHeld(TPointer image)
{
    expectHeldUntilCleared<TSplit>(
        std::move(image),
        [](TSplit& split, const TPointer& given) {
            return split.initBase(eSubImageSplitType::eSubImagePlan2d, eVolumeParsingType::ePlanByPlan,
                                  eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, given);
        },
        [](TSplit& split) {
            const auto lower = makeInitialised<PlanLevel>();
            EXPECT_EQ(failureOf(split.processAttribute(*lower, 0, g_origin)), "no failure");
            const auto& held = dynamic_cast<const TAttribute&>(lower->getAttribute(TAttribute::g_name)).getImage();
            EXPECT_EQ(*image::planData<unsigned char>(held, 0, 0, 0), g_pixel);
        });
}

TEST(SplitLifetimes, SubImages)
{
    expectSubImagesHeld<SubImageSplit<PlanLevel, InPicture>, InPicture>(ImageConstPtr(plan()));
    expectSubImagesHeld<SubImageSplit<PlanLevel, InPicture>, InPicture>(ImageConstPtr(volume()));
    expectSubImagesHeld<SubImageSplit<PlanLevel, OutPicture>, OutPicture>(volume());
}

TEST(SplitLifetimes, EntriesOfPlans)
{
    using Split = PlanIndexedSplit<NoteProcessor, boost::shared_ptr<const Notes>, InOptNote>;
    const auto notes = boost::make_shared<Notes>();
    notes->initPlanIndexed(2, 1, 1);
    notes->getItem(1)->number = 5;
    expectHeldUntilCleared<Split>(
        boost::shared_ptr<const Notes>(boost::make_shared<Notes>(*notes)),
        [](Split& split, const boost::shared_ptr<const Notes>& given) { return split.initBase(given, 2, 1, 1, false); },
        [](Split& split) {
            const auto lower = makeInitialised<NoteProcessor>();
            EXPECT_EQ(failureOf(split.processAttribute(*lower, 1, g_origin)), "no failure");
            EXPECT_EQ(dynamic_cast<const InOptNote&>(lower->getAttribute("InOptNote")).getDataItemNode().number, 5u);
        });
}

TEST(SplitLifetimes, ARunNeedsNobodyElseToHoldTheImage)
{
    StaticDispatch<PlanLevel, SubImageSplit<PlanLevel, InPicture>, SubImageSplit<PlanLevel, OutPicture>> way;
    boost::shared_ptr<core::BaseActionProvider> provider;
    boost::weak_ptr<const image::BaseImage> watch;
    {
        const ImageConstPtr in = volume();
        watch = in;
        const ImagePtr out = volume();
        EXPECT_EQ(way.dispatch(core::BasePriority(), provider, planByPlan(in), planByPlan(out)).status,
                  processor::eProviderStatus::eProviderReady);
    }
    EXPECT_FALSE(watch.expired());
    EXPECT_EQ(failureOf(core::runOn(core::accessExecutor(), *provider)), "no failure");
    EXPECT_EQ(StripRecorder::takeSeen().size(), 2u);
    EXPECT_TRUE(watch.expired()) << "between runs splits hold no image";
}

} // namespace
} // namespace orlix::imaproc::test
