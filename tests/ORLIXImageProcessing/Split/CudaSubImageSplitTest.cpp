// An image on a device is one element as it is.
#include "ORLIXIPL/ORLIXImageProcessing/Split/CudaSubImageSplit.h"

#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using image::geometry5d;
using Split = CudaSubImageSplit<StorageRecorder<InPicture>, InPicture>;

class CudaSubImageSplitTest : public ::testing::Test
{
protected:
    testing::SoftwareGpuLayer m_layer;
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(CudaSubImageSplitTest, HandsTheImageOver)
{
    const ImageConstPtr image = image::createCudaImage(*geometry5d(eImageBufferType::Int16, 7, 5, 3, 2, 2));
    Split split;
    EXPECT_EQ(failureOf(split.initBase(eSubImageSplitType::eSubImageOnDevice, image)), "no failure");
    EXPECT_EQ(static_cast<int>(eSubImageSplitType::eSubImageOnDevice), 7);
    const processor::ElementDemand demand = split.getElementDemand();
    EXPECT_TRUE(demand.bHasElements);
    EXPECT_EQ(demand.nbElements, 1U);
    EXPECT_EQ(demand.cost, 7UL * 5 * 3 * 2 * 2 * 2);
    EXPECT_EQ(split.getImage(), image);
    split.clear();
    EXPECT_EQ(image.use_count(), 1);
}

TEST_F(CudaSubImageSplitTest, ReachesTheAttributeOfTheLowerProcessor)
{
    const ImageConstPtr image = image::createCudaImage(*geometry5d(eImageBufferType::Int16, 7, 5, 3, 1, 1));
    Split split;
    ASSERT_TRUE(split.initBase(eSubImageSplitType::eSubImageOnDevice, image));
    StorageRecorder<InPicture> lower;
    EXPECT_TRUE(lower.init(processor::eProcessorRulePolicy::eRulePolicySkip));
    EXPECT_TRUE(split.processAttribute(lower, 0, core::BaseRequestOrigin(0)));
    EXPECT_EQ(&dynamic_cast<InPicture&>(lower.getAttribute("InPicture")).getImage(), image.get());
}

TEST_F(CudaSubImageSplitTest, HasNoElementsOfAnImageWithoutPixels)
{
    const ImageConstPtr image = image::createCudaImage(*geometry5d(eImageBufferType::Int16, 7, 0, 3, 1, 1));
    Split split;
    EXPECT_TRUE(split.initBase(eSubImageSplitType::eSubImageOnDevice, image));
    EXPECT_TRUE(split.getElementDemand().bHasElements);
    EXPECT_EQ(split.getElementDemand().nbElements, 0U);
}

TEST_F(CudaSubImageSplitTest, RefusesNoImageAndOtherWaysToCut)
{
    Split split;
    EXPECT_EQ(failureOf(split.initBase(eSubImageSplitType::eSubImageOnDevice, ImageConstPtr())),
              "There is no image to cut: set the attribute that holds it");
    const ImageConstPtr image = image::createCudaImage(*geometry5d(eImageBufferType::Int16, 7, 5, 3, 1, 1));
    for (const eSubImageSplitType type : {eSubImageSplitType::eSubImagePlan2d, eSubImageSplitType::eSubImageVolume3d}) {
        EXPECT_EQ(failureOf(split.initBase(type, image)),
                  "An image on a GPU is not cut, but one element: ask for the image as it is");
        EXPECT_EQ(split.getElementDemand().nbElements, 0U);
    }
}

} // namespace
} // namespace orlix::imaproc::test
