// Images on a device are cut into plans and volumes, which stay there, but into nothing that the host is to read.
#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageSplitSources.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "ORLIXImageProcessing/StripProcessors.h"
#include "support/SoftwareGpuLayer.h"
#include "support/ThrownText.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createCudaImage;
using image::CudaImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::geometry5d;

class DeviceImageSplits : public ::testing::Test
{
protected:
    /// Sets up a split of class `TSplit` for attribute `TAttribute`.
    template <class TSplit, class TSource>
    static void expectRefused(const TSource& source, const std::string& attribute, const std::string& geometry)
    {
        TSplit split;
        EXPECT_EQ(failureOf(source.init(split)),
                  "The image of " + attribute + ", which is " + geometry +
                      ", is on a GPU, but has to be in the memory of the host: bring it there with toHost first. "
                      "Operators that work on a GPU want all of their images there, and GPU support switched on");
    }

    orlix::testing::SoftwareGpuLayer m_layer;
    hard::GpuLayerScope m_scope{m_layer};
};

template <class TAttribute>
using Recorder = StorageRecorder<TAttribute>;

TEST_F(DeviceImageSplits, stripsOfPlansAreRefused)
{
    const ImagePtr out = createCudaImage(*geometry2d(eImageBufferType::UInt8, 7, 20));
    const ImageConstPtr in = out;
    const std::string geometry = "7x20x1x1x1 UInt8";
    using const_image = const image::BaseImage;
    expectRefused<ImageYStrip2dSplit<Recorder<InStrip>, const_image, InStrip>>(stripByStrip(in), "InStrip", geometry);
    expectRefused<ImageYStrip2dSplit<Recorder<OutStrip>, image::BaseImage, OutStrip>>(stripByStrip(out), "OutStrip",
                                                                                      geometry);
    expectRefused<ImageYSubStrip2dSplit<Recorder<InStrip>, const_image, InStrip>>(subStripByStrip(in, 2, 5), "InStrip",
                                                                                  geometry);
    expectRefused<ImageYStrip2dWithKernelSplit<Recorder<InMarginStrip>, const_image, InMarginStrip>>(
        marginStripByStrip(in, {1, 1}, {1, 1}), "InMarginStrip", geometry);
}

TEST_F(DeviceImageSplits, stripsOfVolumesAreRefused)
{
    const ImagePtr out = createCudaImage(*geometry3d(eImageBufferType::UInt8, 7, 20, 5));
    const ImageConstPtr in = out;
    const std::string geometry = "7x20x5x1x1 UInt8";
    using const_image = const image::BaseImage;
    expectRefused<ImageZStrip3dSplit<Recorder<InVolumeStrip>, const_image, InVolumeStrip>>(stripByStrip(in),
                                                                                           "InVolumeStrip", geometry);
    expectRefused<ImageZSubStrip3dSplit<Recorder<OutVolumeStrip>, image::BaseImage, OutVolumeStrip>>(
        subStripByStrip(out, 1, 2), "OutVolumeStrip", geometry);
    expectRefused<ImageZStrip3dWithKernelSplit<Recorder<InMarginVolumeStrip>, const_image, InMarginVolumeStrip>>(
        marginStripByStrip(in, {1, 1}, {1, 1}), "InMarginVolumeStrip", geometry);
}

TEST_F(DeviceImageSplits, tilesAreRefused)
{
    const ImageConstPtr plan = createCudaImage(*geometry2d(eImageBufferType::UInt8, 7, 20));
    const ImageConstPtr volume = createCudaImage(*geometry3d(eImageBufferType::UInt8, 7, 20, 5));
    InputImageTile2dCollSplit<Recorder<InTiles>, InTiles> tiles;
    InputImageTile3dCollSplit<Recorder<InBoxes>, InBoxes> boxes;
    EXPECT_NE(failureOf(tiles.initBase(plan, std::vector<image::Tile2dCoords>{{0, 0, 2, 2}}, 1, 1)).find("on a GPU"),
              std::string::npos);
    EXPECT_NE(
        failureOf(boxes.initBase(volume, std::vector<image::Tile3dCoords>{{0, 0, 0, 2, 2, 2}}, 1, 1)).find("on a GPU"),
        std::string::npos);
}

TEST_F(DeviceImageSplits, plansAndVolumesStayOnTheDevice)
{
    const ImagePtr image = createCudaImage(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 4));
    const auto& whole = dynamic_cast<const CudaImage&>(*image);
    SubImageSplit<PlanLevel, OutPicture> plans, volumes;
    ASSERT_EQ(failureOf(planByPlan(image).init(plans)), "no failure");
    ASSERT_EQ(failureOf(volumeByVolume(image).init(volumes)), "no failure");
    for (unsigned long index = 0; index < 24; ++index) {
        ImagePtr plan;
        ASSERT_EQ(failureOf(plans.getSubImage(index, plan)), "no failure");
        ASSERT_TRUE(plan->isGpuImage());
        EXPECT_EQ(dynamic_cast<const CudaImage&>(*plan).getPlanAddress(0, 0, 0),
                  whole.getPlanAddress(index % 3, index / 3 % 2, index / 6));
    }
    for (unsigned long index = 0; index < 8; ++index) {
        ImagePtr volume;
        ASSERT_EQ(failureOf(volumes.getSubImage(index, volume)), "no failure");
        ASSERT_TRUE(volume->isGpuImage());
        EXPECT_EQ(dynamic_cast<const CudaImage&>(*volume).getPlanAddress(2, 0, 0),
                  whole.getPlanAddress(2, index % 2, index / 2));
    }
}

TEST_F(DeviceImageSplits, stripsCannotBeMadeByHandEither)
{
    const ImagePtr image = createCudaImage(*geometry2d(eImageBufferType::UInt8, 7, 20));
    EXPECT_EQ(orlix::testing::thrownText<image::ORLIXImageException>(
                  [&] { const image::InputImageYStrip2d strip(*image, 3, 4); }),
              "An image of 7x20x1x1x1 UInt8 is on a GPU, but has to be in the memory of the host: bring it there with "
              "toHost first");
}

} // namespace
} // namespace orlix::imaproc::test
