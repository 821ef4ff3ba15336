// Parts of images on a device are images on that device, and their tiles can't be taken on the host.
#include "ORLIXIPL/ORLIXBaseImageTools/GpuBufferDataColl.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/Images.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::image {
namespace {

using orlix::testing::bytesOf;
using orlix::testing::makeRandom;
using orlix::testing::SoftwareGpuLayer;

const CudaImage& onDevice(const ImageConstPtr& image)
{
    return dynamic_cast<const CudaImage&>(*image);
}

class DeviceViews : public ::testing::Test
{
protected:
    ~DeviceViews() override { EXPECT_EQ(m_layer.getNbAllocations(), 0U); }

    SoftwareGpuLayer m_layer{2};
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(DeviceViews, partsStayOnTheDevice)
{
    const ImagePtr host = makeRandom(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 4));
    const ImagePtr image = toDevice(*host, 1);
    const ImageConstPtr constImage = image;
    ImagePtr plan, volume, steps, none, hostPart;
    ImageConstPtr constPlan;
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 3, *image, plan));
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 3, *constImage, constPlan));
    ASSERT_TRUE(SubImageExtractor::extractVolume(1, 2, *image, volume));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(1, 2, *image, steps));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(4, 0, *image, none));
    for (const ImagePtr& part : {plan, volume, steps, none}) {
        ASSERT_TRUE(part->isGpuImage());
        EXPECT_EQ(onDevice(part).getDeviceIndex(), 1);
    }
    EXPECT_TRUE(plan->sharesPixelsWith(*constPlan));
    EXPECT_FALSE(plan->sharesPixelsWith(*volume));
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 3, *host, hostPart));
    EXPECT_EQ(bytesOf(*toHost(*plan)), bytesOf(*hostPart));
    ASSERT_TRUE(SubImageExtractor::extractVolume(1, 2, *host, hostPart));
    EXPECT_EQ(bytesOf(*toHost(*volume)), bytesOf(*hostPart));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(1, 2, *host, hostPart));
    EXPECT_EQ(bytesOf(*toHost(*steps)), bytesOf(*hostPart));
    EXPECT_EQ(none->getSizeT(), 0U);
}

TEST_F(DeviceViews, sequencesJoinOnOneDevice)
{
    const ImagePtr first = makeRandom(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2), 1);
    const ImagePtr second = makeRandom(*geometry5d(eImageBufferType::Real32, 5, 4, 3, 2, 3), 2);
    ImagePtr firstOnDevice = toDevice(*first, 1);
    ImagePtr part; // steps 1 and 2 of the second
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(1, 2, *toDevice(*second, 1), part));
    ImagePtr joined, hostJoined, hostPart;
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<BaseImage>({firstOnDevice, part, firstOnDevice}, joined));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(1, 2, *second, hostPart));
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<BaseImage>({first, hostPart, first}, hostJoined));
    ASSERT_TRUE(joined->isGpuImage());
    EXPECT_EQ(joined->getGeometry().toString(), hostJoined->getGeometry().toString());
    EXPECT_EQ(onDevice(joined).getDeviceIndex(), 1);

    ImagePtr plan, same, other, again;
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 1, *joined, plan));
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 1, *firstOnDevice, same));
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 0, *firstOnDevice, other));
    ASSERT_TRUE(SubImageExtractor::extractPlan(2, 1, 5, *joined, again));
    EXPECT_TRUE(plan->sharesPixelsWith(*same)) << "the plan that it shows";
    EXPECT_TRUE(plan->sharesPixelsWith(*again)) << "which is there twice";
    EXPECT_FALSE(plan->sharesPixelsWith(*other));
    unsigned short const** const table = tools::extractBufferDataCollToGpu<unsigned short>(onDevice(plan));
    const void* address = nullptr;
    ASSERT_TRUE(m_layer.download(&address, table, sizeof address).bSuccess);
    EXPECT_EQ(address, onDevice(same).getPlanAddress(0, 0, 0));
    EXPECT_EQ(onDevice(same).getPlanAddress(0, 0, 0), onDevice(firstOnDevice).getPlanAddress(2, 1, 1));

    firstOnDevice.reset();
    part.reset();
    EXPECT_EQ(bytesOf(*toHost(*joined)), bytesOf(*hostJoined)) << "the parts' pixels stay";
}

TEST_F(DeviceViews, sequencesOfSeveralPlacesDoNotJoin)
{
    const ImagePtr host = makeRandom(*geometry5d(eImageBufferType::UInt16, 5, 4, 1, 1, 2));
    const ImagePtr onFirst = toDevice(*host, 0);
    const ImagePtr onSecond = toDevice(*host, 1);
    const std::string text = "Sequences of 5x4x1x1x2 UInt16, which is on a GPU, and 5x4x1x1x2 UInt16, which isn't "
                             "there, can't be joined: bring both to one GPU with toDevice, or to the host with toHost";
    ImagePtr joined;
    const auto textOf = [&](const std::vector<ImagePtr>& images) {
        return SubImageExtractor::concatenateSequences<BaseImage>(images, joined).getMessage();
    };
    EXPECT_EQ(textOf({onFirst, onSecond}), text);
    EXPECT_EQ(textOf({onFirst, host}), text);
    EXPECT_EQ(textOf({host, onFirst}), "An image of 5x4x1x1x2 UInt16 is on a GPU, but has to be in the memory of the "
                                       "host: bring it there with toHost first");
    EXPECT_EQ(joined, nullptr);
}

TEST_F(DeviceViews, tilesAreRefused)
{
    const ImagePtr plan = createCudaImage(*geometry2d(eImageBufferType::UInt8, 5, 4));
    const ImagePtr volume = createCudaImage(*geometry3d(eImageBufferType::UInt8, 5, 4, 3));
    InputImageTile2d tile;
    InputImageTile3d box;
    EXPECT_EQ(ImageTileExtractor::extractInputTile2d(*plan, {0, 0, 2, 2}, mirorBorder2d(), tile).getMessage(),
              "An image of 5x4x1x1x1 UInt8 is on a GPU, but has to be in the memory of the host: bring it there with "
              "toHost first");
    EXPECT_EQ(ImageTileExtractor::extractInputTile3d(*volume, {0, 0, 0, 2, 2, 2}, mirorBorder3d(), box).getMessage(),
              "An image of 5x4x3x1x1 UInt8 is on a GPU, but has to be in the memory of the host: bring it there with "
              "toHost first");
}

} // namespace
} // namespace orlix::image
