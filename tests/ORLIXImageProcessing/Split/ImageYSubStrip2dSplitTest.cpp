// Regions of plans cut into strips, in step with another image.
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYSubStrip2dSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

using Recorder = StorageRecorder<InStrip, OutStrip>;
using InSub = ImageYSubStrip2dSplit<Recorder, const image::BaseImage, InStrip>;
using OutSub = ImageYSubStrip2dSplit<Recorder, image::BaseImage, OutStrip>;
using OutWhole = ImageYStrip2dSplit<Recorder, image::BaseImage, OutStrip>;
using GetWay = DynamicDispatch<Recorder, InSub, OutWhole>;

TEST(ImageYSubStrip2dSplit, TheSameStripsOnEveryExecutor)
{
    const ImageConstPtr in = createImage(*geometry2d(eImageBufferType::UInt16, 100, 500));
    const ImagePtr out = createImage(*geometry2d(eImageBufferType::UInt16, 33, 301));
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        GetWay way;
        way.accessDispatcher().setDispatchPolicy(policyOf(100 * 2));
        unsigned long next = 0;
        for (const auto& [from, to] :
             seenBy<Recorder>(*each.executor, way, subStripByStrip(in, 150, 301), stripByStrip(out))) {
            EXPECT_EQ(extentOf(*to), Extent(next, std::min(64UL, 301 - next))) << "the output asks for whole blocks";
            EXPECT_EQ(extentOf(*from), Extent(150 + next, to->getStripSizeY()));
            EXPECT_EQ(from->accessBuffer(), in->accessRow(150 + next, 0, 0, 0));
            EXPECT_EQ(to->accessBuffer(), out->accessRow(next, 0, 0, 0));
            next += to->getStripSizeY();
        }
        EXPECT_EQ(next, 301u);
    }
}

TEST(ImageYSubStrip2dSplit, OfALineOnlyWhatIsTouchedCounts)
{
    const ImageConstPtr in = createImage(*geometry2d(eImageBufferType::UInt16, 100, 50));
    InSub split;
    const auto lineBytes = [&](unsigned long touched) {
        EXPECT_TRUE(split.initBase(in, image::eStripAllocationType(), 3, 40, touched).getValue());
        return split.getRangeDemand().lineBytes;
    };
    EXPECT_EQ(lineBytes(6), 6u);
    EXPECT_EQ(lineBytes(200), 200u);
    EXPECT_EQ(lineBytes(201), 200u);
    EXPECT_EQ(lineBytes(~0UL), 200u);
}

// Two regions in two images of any widths: ranges of any number of lines, one behind the other.
RC_GTEST_PROP(ImageYSubStrip2dSplitProperty, StripsCoverTheRegionOnce, ())
{
    const unsigned long size = *rc::gen::inRange(1UL, 200UL);
    const unsigned long inStart = *rc::gen::inRange(0UL, 50UL);
    const unsigned long outStart = *rc::gen::inRange(0UL, 50UL);
    const unsigned long inX = *rc::gen::inRange(1UL, 100UL);
    const unsigned long outX = *rc::gen::inRange(1UL, 100UL);
    const unsigned long stripBytes = *rc::gen::inRange(1UL, 1000UL);
    const ImageConstPtr in =
        createImage(*geometry2d(eImageBufferType::UInt8, inX, inStart + size + *rc::gen::inRange(0UL, 9UL)));
    const ImagePtr out =
        createImage(*geometry2d(eImageBufferType::UInt8, outX, outStart + size + *rc::gen::inRange(0UL, 9UL)));
    DynamicDispatch<Recorder, InSub, OutSub> way;
    way.accessDispatcher().setDispatchPolicy(policyOf(stripBytes));
    unsigned long next = 0;
    for (const auto& [from, to] :
         seenBy<Recorder>(*core::makePlainThreadExecutor(*rc::gen::inRange(1UL, 9UL)), way,
                          subStripByStrip(in, inStart, size), subStripByStrip(out, outStart, size))) {
        const unsigned long height = std::max(1UL, std::min(size, stripBytes / std::max(inX, outX)));
        RC_ASSERT(extentOf(*from) == Extent(inStart + next, std::min(height, size - next)));
        RC_ASSERT(extentOf(*to) == Extent(outStart + next, std::min(height, size - next)));
        next += height;
    }
    RC_ASSERT(next >= size);
}

TEST(ImageYSubStrip2dSplit, ARegionWithoutPixelsHasNoStrips)
{
    const ImageConstPtr in = createImage(*geometry2d(eImageBufferType::UInt8, 10, 20));
    for (const auto& [sizeX, sizeY] : {Extent(0, 5), Extent(5, 0), Extent(0, 0)}) {
        const ImagePtr out = createImage(*geometry2d(eImageBufferType::UInt8, sizeX, sizeY));
        GetWay way;
        EXPECT_TRUE(
            seenBy<Recorder>(core::accessExecutor(), way, subStripByStrip(in, 3, sizeY), stripByStrip(out)).empty());
    }
}

TEST(ImageYSubStrip2dSplit, RefusesARegionThatLeavesThePlan)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 3, 10));
    OutSub split;
    for (const auto& [start, size] : {Extent(0, 10), Extent(10, 0), Extent(9, 1), Extent(0, 0), Extent(4, 6)}) {
        EXPECT_EQ(failureOf(subStripByStrip(image, start, size).init(split)), "no failure");
        EXPECT_EQ(split.getRangeDemand().nbLines, size);
        EXPECT_EQ(split.getRangeDemand().lineMultiple, 1u);
    }
    for (const auto& [start, size] : {Extent(0, 11), Extent(10, 1), Extent(11, 0), Extent(4, 7), Extent(5, ~0UL),
                                      Extent(~0UL, 2), Extent(~0UL, ~0UL)}) {
        EXPECT_EQ(failureOf(subStripByStrip(image, start, size).init(split)),
                  "There are no " + std::to_string(size) + " lines from line " + std::to_string(start) +
                      " on in 10 lines: ask for lines within them");
    }
}

TEST(ImageYSubStrip2dSplit, RefusesWhatIsNoPlan)
{
    OutSub split;
    const ImagePtr nothing;
    EXPECT_EQ(failureOf(subStripByStrip(nothing, 0, 0).init(split)),
              "There is no image to cut: set the attribute that holds it");
    const ImagePtr volume = createImage(*image::geometry3d(eImageBufferType::UInt8, 3, 2, 2));
    EXPECT_EQ(failureOf(subStripByStrip(volume, 0, 1).init(split)),
              "Strips are cut from one plan, but the image is 3x2x2x1x1 UInt8: cut it into plans first");
    GetWay way;
    boost::shared_ptr<core::BaseActionProvider> provider;
    const ImageConstPtr in = createImage(*geometry2d(eImageBufferType::UInt8, 3, 9));
    const ImagePtr out = createImage(*geometry2d(eImageBufferType::UInt8, 3, 4));
    EXPECT_EQ(
        std::string(way.dispatch(core::BasePriority(), provider, subStripByStrip(in, 2, 5), stripByStrip(out)).message),
        "StorageRecorder: all splits must have the same number of elements, but InStrip has 5 and OutStrip has 4");
}

TEST(ImageYSubStrip2dSplit, FeedsItsAttributeOfItsClass)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 7, 20));
    OutSub split;
    EXPECT_EQ(failureOf(subStripByStrip(image, 5, 6, false).init(split)), "no failure");
    EXPECT_FALSE(split.isDataLocalized());
    EXPECT_EQ(split.getAttributeName(), "OutStrip");
    EXPECT_EQ(split.getSplitDynamicType(), processor::eSplitDynamicType::eImageStripSplit);
    EXPECT_EQ(split.getImageStripSplitType(), eImageStripSplitType::eYSubStrip2d);
    EXPECT_TRUE(split.checkProcessorType(Recorder()));
    EXPECT_FALSE(split.checkProcessorType(PlanLevel()));
    const auto lower = makeInitialised<Recorder>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 2, 4, core::BaseRequestOrigin(0))), "no failure");
    EXPECT_EQ(extentOf(*lower->getStorage<OutStrip>()), Extent(7, 4));
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 2, 5, core::BaseRequestOrigin(0))),
              "There is no range of 5 from 2 on in 6: ask for one within them")
        << "the plan has them, but not the region";
}

} // namespace
} // namespace orlix::imaproc::test
