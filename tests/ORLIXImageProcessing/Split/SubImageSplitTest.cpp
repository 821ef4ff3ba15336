// Images cut into plans and volumes: how many, in which order, over which pixels.
#include "ORLIXIPL/ORLIXImageProcessing/Split/SubImageSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StripProcessors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using Split = SubImageSplit<PlanLevel, OutPicture>;
using ConstSplit = SubImageSplit<PlanLevel, InPicture>;

template <class TSplit, class TImagePtr>
ProcessingResult<bool> cutPlans(TSplit& split, const TImagePtr& image)
{
    return split.initBase(eSubImageSplitType::eSubImagePlan2d, eVolumeParsingType::ePlanByPlan,
                          eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, image);
}
template <class TSplit, class TImagePtr>
ProcessingResult<bool> cutVolumes(TSplit& split, const TImagePtr& image)
{
    return split.initBase(eSubImageSplitType::eSubImageVolume3d, eVolumeParsingType::eWholeVolume,
                          eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, image);
}

template <class TSplit>
unsigned long nbElementsOf(const TSplit& split)
{
    return split.getElementDemand().nbElements;
}

TEST(SubImageSplit, PlansGoZFastestThenChannelsThenTime)
{
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 4));
    Split split;
    EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
    EXPECT_EQ(nbElementsOf(split), 24u);
    unsigned long index = 0;
    for (unsigned long t = 0; t < 4; ++t) {
        for (unsigned long c = 0; c < 2; ++c) {
            for (unsigned long z = 0; z < 3; ++z) {
                ImagePtr plan;
                ASSERT_EQ(failureOf(split.getSubImage(index++, plan)), "no failure");
                EXPECT_EQ(plan->getGeometry().toString(), "5x4x1x1x1 UInt16");
                EXPECT_EQ(plan->accessRow(0, 0, 0, 0), image->accessRow(0, z, c, t));
                EXPECT_EQ(plan->accessRow(3, 0, 0, 0), image->accessRow(3, z, c, t));
            }
        }
    }
}

TEST(SubImageSplit, VolumesGoChannelsFastestThenTime)
{
    const ImageConstPtr image = createImage(*geometry5d(eImageBufferType::Real32, 5, 4, 3, 2, 4));
    ConstSplit split;
    EXPECT_EQ(failureOf(cutVolumes(split, image)), "no failure");
    EXPECT_EQ(nbElementsOf(split), 8u);
    for (unsigned long index = 0; index < 8; ++index) {
        ImageConstPtr volume;
        ASSERT_EQ(failureOf(split.getSubImage(index, volume)), "no failure");
        EXPECT_EQ(volume->getGeometry().toString(), "5x4x3x1x1 Real32");
        EXPECT_EQ(volume->accessRow(1, 2, 0, 0), image->accessRow(1, 2, index % 2, index / 2));
    }
}

TEST(SubImageSplit, AnImageOfOnePlanIsOneElementOverItsOwnPixels)
{
    for (const auto& geometry :
         {image::geometry2d(eImageBufferType::Int8, 6, 5), image::geometry3d(eImageBufferType::Int8, 6, 5, 1)}) {
        const ImagePtr image = createImage(*geometry);
        Split split;
        EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
        EXPECT_EQ(nbElementsOf(split), 1u);
        ImagePtr plan;
        ASSERT_EQ(failureOf(split.getSubImage(0, plan)), "no failure");
        EXPECT_TRUE(plan->sharesPixelsWith(*image));
        EXPECT_FALSE(plan->getGeometry().getVolumeGeometry().is3d());
        EXPECT_EQ(failureOf(cutVolumes(split, image)), "no failure");
        ASSERT_EQ(failureOf(split.getSubImage(0, plan)), "no failure");
        EXPECT_EQ(plan->getGeometry().toString(), "6x5x1x1x1 Int8");
    }
}

TEST(SubImageSplit, EachPartHasTheTypeOfItsTimeStep)
{
    const ImagePtr image = createImage(
        mixedGeometry({eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 5, 4, 2));
    Split split;
    EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
    ImagePtr plan;
    ASSERT_EQ(failureOf(split.getSubImage(3, plan)), "no failure");
    EXPECT_EQ(plan->getBufferType(), eImageBufferType::Real32);
    EXPECT_EQ(plan->accessRow(2, 0, 0, 0), image->accessRow(2, 1, 0, 1));
    EXPECT_EQ(split.getElementDemand().cost, 5UL * 4 * 2 * (1 + 4 + 2));
}

TEST(SubImageSplit, AnEmptyAxisGivesNoElementsOrEmptyOnes)
{
    for (const auto& [geometry, nbElements] : {std::pair{geometry5d(eImageBufferType::UInt8, 0, 3, 2, 2, 1), 4UL},
                                               std::pair{geometry5d(eImageBufferType::UInt8, 3, 0, 2, 1, 1), 2UL},
                                               std::pair{geometry5d(eImageBufferType::UInt8, 3, 3, 0, 2, 1), 0UL},
                                               std::pair{geometry5d(eImageBufferType::UInt8, 3, 3, 2, 0, 1), 0UL},
                                               std::pair{geometry5d(eImageBufferType::UInt8, 3, 3, 2, 2, 0), 0UL}}) {
        const ImagePtr image = createImage(*geometry);
        Split split;
        EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
        EXPECT_EQ(nbElementsOf(split), nbElements) << geometry->toString();
        EXPECT_EQ(split.getElementDemand().cost, 0u);
        for (unsigned long index = 0; index < nbElements; ++index) {
            ImagePtr plan;
            EXPECT_EQ(failureOf(split.getSubImage(index, plan)), "no failure");
            EXPECT_EQ(plan->getGeometry().getNbPixels(), 0u);
        }
    }
}

TEST(SubImageSplit, RefusesWhatItCannotCut)
{
    Split split;
    const ImagePtr nothing;
    EXPECT_EQ(failureOf(cutPlans(split, nothing)), "There is no image to cut: set the attribute that holds it");
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt8, 3, 3, 2, 2, 1));
    const std::string badCut =
        "An element is either a plan of a volume cut plan by plan or a whole volume: ask for one of the two";
    EXPECT_EQ(
        failureOf(split.initBase(eSubImageSplitType::eSubImagePlan2d, eVolumeParsingType::eWholeVolume,
                                 eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, image)),
        badCut);
    EXPECT_EQ(
        failureOf(split.initBase(eSubImageSplitType::eSubImageVolume3d, eVolumeParsingType::ePlanByPlan,
                                 eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, image)),
        badCut);
    EXPECT_EQ(nbElementsOf(split), 0u);
    ImagePtr plan;
    EXPECT_EQ(failureOf(split.getSubImage(0, plan)), "There is no element 0 in a list of 0");
    EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
    EXPECT_EQ(failureOf(split.getSubImage(4, plan)), "There is no element 4 in a list of 4");
    EXPECT_FALSE(plan);
}

TEST(SubImageSplit, FeedsItsAttributeOfItsClass)
{
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt8, 3, 3, 2, 1, 1));
    Split split;
    EXPECT_EQ(failureOf(cutPlans(split, image)), "no failure");
    EXPECT_EQ(split.getAttributeName(), "OutPicture");
    EXPECT_EQ(split.getAttributeToolTip(), "A picture that comes out");
    EXPECT_EQ(split.getSplitStaticType(), processor::eSplitStaticType::eSubImageSplit);
    EXPECT_TRUE(split.checkProcessorType(PlanLevel()));
    EXPECT_FALSE(split.checkProcessorType(ImageLevel()));
    const auto lower = makeInitialised<PlanLevel>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 1, core::BaseRequestOrigin(1))), "no failure");
    EXPECT_EQ(lower->getStorage<OutPicture>()->accessRow(0, 0, 0, 0), image->accessRow(0, 1, 0, 0));
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 2, core::BaseRequestOrigin(2))),
              "There is no element 2 in a list of 2");
}

} // namespace
} // namespace orlix::imaproc::test
