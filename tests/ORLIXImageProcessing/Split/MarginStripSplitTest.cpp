// Strips with margins: every line or plan once, and the margins that were asked for.
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dWithKernelSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZStrip3dWithKernelSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

using Plans = StorageRecorder<InMarginStrip>;
using PlanSplit = ImageYStrip2dWithKernelSplit<Plans, const image::BaseImage, InMarginStrip>;
using Volumes = StorageRecorder<InMarginVolumeStrip>;
using VolumeSplit = ImageZStrip3dWithKernelSplit<Volumes, const image::BaseImage, InMarginVolumeStrip>;

TEST(MarginStripSplit, StripsOfAPlanHaveTheirMargins)
{
    const ImageConstPtr image = createImage(*geometry2d(eImageBufferType::UInt8, 7, 23));
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        DynamicDispatch<Plans, PlanSplit> way;
        way.accessDispatcher().setDispatchPolicy(policyOf(5 * 7));
        unsigned long next = 0;
        for (const auto& [strip] : seenBy<Plans>(*each.executor, way, marginStripByStrip(image, {1, 2}, {3, 4}))) {
            EXPECT_EQ(extentOf(*strip), Extent(next, std::min(5UL, 23 - next))) << "no multiple: they are for reading";
            EXPECT_EQ(strip->accessBuffer(), image->accessRow(next, 0, 0, 0));
            EXPECT_EQ(strip->getStartingKernelSizeX(), 1u);
            EXPECT_EQ(strip->getEndingKernelSizeX(), 2u);
            EXPECT_EQ(strip->getStartingKernelSizeY(), 3u);
            EXPECT_EQ(strip->getEndingKernelSizeY(), 4u);
            next += strip->getStripSizeY();
            EXPECT_EQ(strip->getNbLinesAbove(), next == 5 ? 0u : 3u);
            EXPECT_EQ(strip->getNbLinesBelow(), next == 23 ? 0u : next == 20 ? 3u : 4u);
        }
        EXPECT_EQ(next, 23u);
    }
}

TEST(MarginStripSplit, StripsOfAVolumeHaveTheirMargins)
{
    const ImageConstPtr image = createImage(*geometry3d(eImageBufferType::UInt8, 7, 2, 10));
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        DynamicDispatch<Volumes, VolumeSplit> way;
        way.accessDispatcher().setDispatchPolicy(policyOf(4 * 14));
        unsigned long next = 0;
        for (const auto& [strip] : seenBy<Volumes>(*each.executor, way, marginStripByStrip(image, {1, 2}, {3, 5}))) {
            EXPECT_EQ(extentOf(*strip), Extent(next, std::min(4UL, 10 - next)));
            EXPECT_EQ(strip->accessBuffer(1), image->accessRow(0, next + 1, 0, 0));
            EXPECT_EQ(strip->getStartingKernelSizeX(), 1u);
            EXPECT_EQ(strip->getEndingKernelSizeY(), 2u);
            EXPECT_EQ(strip->getStartingKernelSizeZ(), 3u);
            EXPECT_EQ(strip->getEndingKernelSizeZ(), 5u);
            next += strip->getStripSizeZ();
            EXPECT_EQ(strip->getNbPlansBefore(), next == 4 ? 0u : 3u);
            EXPECT_EQ(strip->getNbPlansBehind(), next == 10 ? 0u : next == 8 ? 2u : 5u);
        }
        EXPECT_EQ(next, 10u);
    }
}

TEST(MarginStripSplit, WithoutPixelsThereIsNoStrip)
{
    for (const auto& [sizeX, sizeY] : {Extent(0, 5), Extent(5, 0)}) {
        const ImageConstPtr plan = createImage(*geometry2d(eImageBufferType::UInt8, sizeX, sizeY));
        DynamicDispatch<Plans, PlanSplit> way;
        EXPECT_TRUE(seenBy<Plans>(core::accessExecutor(), way, marginStripByStrip(plan, {1, 1}, {1, 1})).empty());
    }
    const ImageConstPtr volume = createImage(*geometry3d(eImageBufferType::UInt8, 5, 0, 5));
    DynamicDispatch<Volumes, VolumeSplit> way;
    EXPECT_TRUE(seenBy<Volumes>(core::accessExecutor(), way, marginStripByStrip(volume, {1, 1}, {1, 1})).empty());
}

TEST(MarginStripSplit, RefusesWhatItCannotCut)
{
    PlanSplit plans;
    VolumeSplit volumes;
    const ImageConstPtr nothing;
    const std::string noImage = "There is no image to cut: set the attribute that holds it";
    EXPECT_EQ(failureOf(marginStripByStrip(nothing, {1, 1}, {1, 1}).init(plans)), noImage);
    EXPECT_EQ(failureOf(marginStripByStrip(nothing, {1, 1}, {1, 1}).init(volumes)), noImage);
    const ImageConstPtr image = createImage(*image::geometry5d(eImageBufferType::UInt8, 3, 2, 2, 2, 1));
    EXPECT_EQ(failureOf(marginStripByStrip(image, {1, 1}, {1, 1}).init(plans)),
              "Strips are cut from one plan, but the image is 3x2x2x2x1 UInt8: cut it into plans first");
    EXPECT_EQ(
        failureOf(marginStripByStrip(image, {1, 1}, {1, 1}).init(volumes)),
        "A volume has one channel and one time step, but the image is 3x2x2x2x1 UInt8: cut it into volumes first");
}

TEST(MarginStripSplit, FeedsItsAttributeOfItsClass)
{
    PlanSplit plans;
    EXPECT_EQ(plans.getAttributeName(), "InMarginStrip");
    EXPECT_EQ(plans.getImageStripSplitType(), eImageStripSplitType::eYStrip2dWithKernel);
    EXPECT_TRUE(plans.checkProcessorType(Plans()));
    EXPECT_FALSE(plans.checkProcessorType(Volumes()));
    const VolumeSplit volumes;
    EXPECT_EQ(volumes.getAttributeName(), "InMarginVolumeStrip");
    EXPECT_EQ(volumes.getImageStripSplitType(), eImageStripSplitType::eZStrip3dWithKernel);
    EXPECT_TRUE(volumes.checkProcessorType(Volumes()));
    EXPECT_FALSE(volumes.checkProcessorType(Plans()));
    const ImageConstPtr image = createImage(*geometry2d(eImageBufferType::UInt8, 3, 10));
    EXPECT_EQ(failureOf(marginStripByStrip(image, {1, 1}, {1, 1}).init(plans)), "no failure");
    const auto lower = makeInitialised<Plans>();
    EXPECT_EQ(failureOf(plans.processAttribute(*lower, 8, 3, core::BaseRequestOrigin(0))),
              "There is no range of 3 from 8 on in 10: ask for one within them");
}

} // namespace
} // namespace orlix::imaproc::test
