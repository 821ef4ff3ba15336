// Volumes and regions of volumes cut into strips: every plan once, the same for input and output.
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZStrip3dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageZSubStrip3dSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry3d;
using image::geometry5d;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

using Whole = StorageRecorder<InVolumeStrip, OutVolumeStrip>;
using WholeIn = ImageZStrip3dSplit<Whole, const image::BaseImage, InVolumeStrip>;
using WholeOut = ImageZStrip3dSplit<Whole, image::BaseImage, OutVolumeStrip>;
using WholeWay = DynamicDispatch<Whole, WholeIn, WholeOut>;

using Region = StorageRecorder<InVolumeStrip, InOutVolumeStrip>;
using RegionIn = ImageZStrip3dSplit<Region, const image::BaseImage, InVolumeStrip>;
using RegionOut = ImageZSubStrip3dSplit<Region, image::BaseImage, InOutVolumeStrip>;
using RegionWay = DynamicDispatch<Region, RegionIn, RegionOut>;

TEST(ImageZStrip3dSplit, EveryPlanOnceOnEveryExecutor)
{
    const ImageConstPtr in = createImage(*geometry3d(eImageBufferType::UInt16, 7, 5, 23));
    const ImagePtr out = createImage(*geometry3d(eImageBufferType::UInt16, 7, 5, 23));
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        WholeWay way;
        way.accessDispatcher().setDispatchPolicy(policyOf(4 * 7 * 5 * 2));
        for (int repetition = 0; repetition < 2; ++repetition) {
            unsigned long next = 0;
            for (const auto& [first, second] :
                 seenBy<Whole>(*each.executor, way, stripByStrip(in), stripByStrip(out))) {
                EXPECT_EQ(extentOf(*first), Extent(next, std::min(4UL, 23 - next)));
                EXPECT_EQ(extentOf(*second), extentOf(*first));
                for (unsigned long plan = 0; plan < first->getStripSizeZ(); ++plan) {
                    EXPECT_EQ(first->accessBuffer(plan), in->accessRow(0, next + plan, 0, 0));
                    EXPECT_EQ(second->accessBuffer(plan), out->accessRow(0, next + plan, 0, 0));
                }
                next += first->getStripSizeZ();
            }
            EXPECT_EQ(next, 23u);
        }
    }
}

TEST(ImageZStrip3dSplit, PlansNeedNoMultiple)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::Real32, 7, 5, 6));
    WholeOut split;
    EXPECT_EQ(failureOf(stripByStrip(image).init(split)), "no failure");
    const processor::RangeDemand demand = split.getRangeDemand();
    EXPECT_TRUE(demand.bHasLines);
    EXPECT_EQ(demand.nbLines, 6u);
    EXPECT_EQ(demand.lineBytes, 7u * 5 * 4);
    EXPECT_EQ(demand.lineMultiple, 1u);
}

TEST(ImageZStrip3dSplit, WithoutPixelsThereIsNoStrip)
{
    for (const auto& geometry :
         {geometry3d(eImageBufferType::UInt8, 0, 5, 3), geometry3d(eImageBufferType::UInt8, 5, 0, 3),
          geometry3d(eImageBufferType::UInt8, 5, 3, 0), geometry3d(eImageBufferType::UInt8, 0, 3, 1UL << 60)}) {
        const ImageConstPtr in = createImage(*geometry);
        const ImagePtr out = createImage(*geometry);
        WholeWay way;
        EXPECT_TRUE(seenBy<Whole>(core::accessExecutor(), way, stripByStrip(in), stripByStrip(out)).empty())
            << geometry->toString();
    }
}

TEST(ImageZStrip3dSplit, RefusesWhatIsNoVolume)
{
    WholeOut split;
    const ImagePtr nothing;
    EXPECT_EQ(failureOf(stripByStrip(nothing).init(split)),
              "There is no image to cut: set the attribute that holds it");
    for (const auto& geometry :
         {geometry5d(eImageBufferType::UInt8, 3, 2, 2, 2, 1), geometry5d(eImageBufferType::UInt8, 3, 2, 2, 1, 2),
          geometry5d(eImageBufferType::UInt8, 3, 2, 2, 1, 0)}) {
        const ImagePtr image = createImage(*geometry);
        EXPECT_EQ(failureOf(stripByStrip(image).init(split)),
                  "A volume has one channel and one time step, but the image is " + geometry->toString() +
                      ": cut it into volumes first");
    }
    WholeWay way;
    boost::shared_ptr<core::BaseActionProvider> provider;
    const ImageConstPtr three = createImage(*geometry3d(eImageBufferType::UInt8, 3, 2, 3));
    const ImagePtr four = createImage(*geometry3d(eImageBufferType::UInt8, 3, 2, 4));
    EXPECT_EQ(
        std::string(way.dispatch(core::BasePriority(), provider, stripByStrip(three), stripByStrip(four)).message),
        "StorageRecorder: all splits must have the same number of elements, but InVolumeStrip has 3 and "
        "OutVolumeStrip has 4");
}

TEST(ImageZStrip3dSplit, FeedsItsAttributeOfItsClass)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 7, 2, 20));
    WholeOut split;
    EXPECT_EQ(failureOf(stripByStrip(image, false).init(split)), "no failure");
    EXPECT_FALSE(split.isDataLocalized());
    EXPECT_EQ(failureOf(stripByStrip(image).init(split)), "no failure");
    EXPECT_TRUE(split.isDataLocalized());
    EXPECT_EQ(split.getAttributeName(), "OutVolumeStrip");
    EXPECT_EQ(split.getAttributeToolTip(), "A strip of a volume that comes out");
    EXPECT_EQ(split.getSplitDynamicType(), processor::eSplitDynamicType::eImageStripSplit);
    EXPECT_EQ(split.getImageStripSplitType(), eImageStripSplitType::eZStrip3d);
    EXPECT_TRUE(split.checkProcessorType(Whole()));
    EXPECT_FALSE(split.checkProcessorType(Region()));

    const auto first = makeInitialised<Whole>();
    const auto second = makeInitialised<Whole>();
    EXPECT_EQ(failureOf(split.processAttribute(*first, 3, 4, core::BaseRequestOrigin(0))), "no failure");
    EXPECT_EQ(failureOf(split.processAttribute(*second, 7, 13, core::BaseRequestOrigin(1))), "no failure");
    EXPECT_EQ(extentOf(*first->getStorage<OutVolumeStrip>()), Extent(3, 4)) << "each processor has a strip of its own";
    EXPECT_EQ(extentOf(*second->getStorage<OutVolumeStrip>()), Extent(7, 13));
    const image::OutputImageZStrip3d* const last = second->getStorage<OutVolumeStrip>().get();
    second->clearForReuse();
    EXPECT_EQ(failureOf(split.processAttribute(*second, 1, 2, core::BaseRequestOrigin(2))), "no failure");
    EXPECT_EQ(second->getStorage<OutVolumeStrip>().get(), last) << "used again once its processor has let it go";
    EXPECT_EQ(extentOf(*last), Extent(1, 2));
    EXPECT_EQ(failureOf(split.processAttribute(*second, 15, 6, core::BaseRequestOrigin(2))),
              "There is no range of 6 from 15 on in 20: ask for one within them");
}

TEST(ImageZSubStrip3dSplit, WalksTheRegionInStepWithAnotherVolumeOnEveryExecutor)
{
    const ImageConstPtr in = createImage(*geometry3d(eImageBufferType::UInt8, 2, 3, 9));
    const ImagePtr out = createImage(*geometry3d(eImageBufferType::UInt8, 7, 5, 23));
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        RegionWay way;
        way.accessDispatcher().setDispatchPolicy(policyOf(2 * 7 * 5));
        unsigned long next = 0;
        for (const auto& [roi, strip] :
             seenBy<Region>(*each.executor, way, stripByStrip(in), subStripByStrip(out, 11, 9))) {
            EXPECT_EQ(extentOf(*roi), Extent(next, std::min(2UL, 9 - next)));
            EXPECT_EQ(extentOf(*strip), Extent(11 + next, std::min(2UL, 9 - next)));
            for (unsigned long plan = 0; plan < roi->getStripSizeZ(); ++plan) {
                EXPECT_EQ(strip->accessBuffer(plan), out->accessRow(0, 11 + next + plan, 0, 0));
            }
            next += roi->getStripSizeZ();
        }
        EXPECT_EQ(next, 9u);
    }
}

TEST(ImageZSubStrip3dSplit, OfAPlanOnlyWhatIsTouchedCounts)
{
    const ImagePtr volume = createImage(*image::geometry3d(eImageBufferType::UInt16, 10, 6, 9));
    RegionOut split;
    const auto planBytes = [&](unsigned long touched) {
        EXPECT_TRUE(split.initBase(volume, image::eStripAllocationType(), 2, 5, touched).getValue());
        return split.getRangeDemand().lineBytes;
    };
    EXPECT_EQ(planBytes(6), 6u);
    EXPECT_EQ(planBytes(120), 120u);
    EXPECT_EQ(planBytes(121), 120u);
    EXPECT_EQ(planBytes(~0UL), 120u);
}

TEST(ImageZSubStrip3dSplit, RefusesARegionThatLeavesTheVolume)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 3, 2, 10));
    RegionOut split;
    for (const auto& [start, size] : {Extent(0, 10), Extent(10, 0), Extent(9, 1), Extent(0, 0), Extent(4, 6)}) {
        EXPECT_EQ(failureOf(subStripByStrip(image, start, size).init(split)), "no failure");
        EXPECT_EQ(split.getRangeDemand().nbLines, size);
    }
    for (const auto& [start, size] : {Extent(0, 11), Extent(10, 1), Extent(11, 0), Extent(4, 7), Extent(5, ~0UL),
                                      Extent(~0UL, 2), Extent(~0UL, ~0UL)}) {
        EXPECT_EQ(failureOf(subStripByStrip(image, start, size).init(split)),
                  "There are no " + std::to_string(size) + " plans from plan " + std::to_string(start) +
                      " on in 10 plans: ask for plans within them");
    }
    const ImagePtr nothing;
    EXPECT_EQ(failureOf(subStripByStrip(nothing, 0, 0).init(split)),
              "There is no image to cut: set the attribute that holds it");
}

TEST(ImageZSubStrip3dSplit, FeedsItsAttributeOfItsClass)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 7, 2, 20));
    RegionOut split;
    EXPECT_EQ(failureOf(subStripByStrip(image, 5, 6, false).init(split)), "no failure");
    EXPECT_FALSE(split.isDataLocalized());
    EXPECT_EQ(split.getAttributeName(), "InOutVolumeStrip");
    EXPECT_EQ(split.getImageStripSplitType(), eImageStripSplitType::eZSubStrip3d);
    EXPECT_TRUE(split.checkProcessorType(Region()));
    EXPECT_FALSE(split.checkProcessorType(Whole()));
    const auto lower = makeInitialised<Region>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 6, 1, core::BaseRequestOrigin(0))),
              "There is no range of 1 from 6 on in 6: ask for one within them")
        << "plan 11 exists, but not in the region";
}

} // namespace
} // namespace orlix::imaproc::test
