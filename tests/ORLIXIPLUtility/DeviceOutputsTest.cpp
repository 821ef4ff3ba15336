// Missing outputs are made on the device that the input lies on.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SoftwareGpuLayer.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using orlix::testing::SoftwareGpuLayer;

/// What the class makes where no output is given.
template <class TLevel, class TOutput, class TInput>
ImagePtr makeOutput(
    const ImageConstPtr& in, const std::function<void(TLevel&)>& set = [](TLevel&) {})
{
    const boost::shared_ptr<TLevel> level = orlix::testing::makeInitialised<TLevel>();
    level->template set<TInput>(in);
    set(*level);
    processor::OutputInitializerMap initializers;
    level->initOutputInitializers(initializers);
    for (const auto& [name, initializer] : initializers) {
        EXPECT_TRUE(initializer->isOutputInitNeeded());
        EXPECT_TRUE(initializer->initOutput());
    }
    return level->template getStorage<TOutput>();
}

class DeviceOutputs : public ::testing::Test
{
protected:
    static void expectOnDevice(const ImagePtr& image, int device)
    {
        const auto onDevice = boost::dynamic_pointer_cast<image::CudaImage>(image);
        ASSERT_TRUE(onDevice);
        EXPECT_EQ(onDevice->getDeviceIndex(), device);
    }

    SoftwareGpuLayer m_layer{2};
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(DeviceOutputs, areMadeWhereTheInputLies)
{
    for (const int device : {0, 1}) {
        const ImagePtr image = image::createCudaImage(*geometry5d(eImageBufferType::UInt8, 16, 8, 5, 2, 2), device);
        image->setGeometricCalibration(boost::make_shared<image::GeometricCalibration>());
        const ImagePtr copy = makeOutput<CopyImgLvl1, attr::OutImg, attr::InImg>(image);
        expectOnDevice(copy, device);
        EXPECT_TRUE(copy->getGeometry().hasSameSizes(image->getGeometry()));
        EXPECT_EQ(copy->getGeometricCalibration(), image->getGeometricCalibration());
        expectOnDevice(makeOutput<BasicThresholdImgLvl1, attr::OutBinImg, attr::InImg>(image), device);
        const ImagePtr converted = makeOutput<ConvertImgLvl1, attr::OutImg, attr::InImg>(
            image, [](ConvertImgLvl1& level) { level.set<attr::InConvertImageBufferType>(eImageBufferType::Real32); });
        expectOnDevice(converted, device);
        EXPECT_EQ(converted->getBufferType(), eImageBufferType::Real32);
        const ImagePtr joined = makeOutput<AppendSeqImgLvl1, attr::OutImg, attr::InImg1>(
            image, [&](AppendSeqImgLvl1& level) { level.set<attr::InImg2>(ImageConstPtr(image)); });
        expectOnDevice(joined, device);
        EXPECT_EQ(joined->getSizeT(), 4U);
        const ImagePtr slice = createSliceImage(*image, eAxis::eX);
        expectOnDevice(slice, device);
        EXPECT_EQ(slice->getSizeX(), 8U);
        expectOnDevice(makeROI3d(*image, *attr::createImg3dSize(4, 3, 2)), device);
        expectOnDevice(makeROI2d(*image, *attr::createImg2dSize(4, 3)), device);
        expectOnDevice(duplicateImage(*image, eImageBufferType::Int16), device);
    }
}

TEST_F(DeviceOutputs, thatCannotBeMadeFailWithTheTextOfTheDevice)
{
    const ImagePtr image = image::createCudaImage(*geometry2d(eImageBufferType::UInt8, 16, 8));
    m_layer.failCall(orlix::testing::eGpuCall::allocate, 0, "out of memory");
    EXPECT_EQ(orlix::testing::messageOf([&] { copyImg(image); }),
              "An image of 16x8x1x1x1 UInt8 needs 256 bytes on GPU 0, which can't be had: out of memory. Make it "
              "smaller or free images there");
    EXPECT_EQ(m_layer.getNbAllocations(), 1U);
}

TEST_F(DeviceOutputs, areNotTouchedWhereTheyAreTheInput)
{
    const ImagePtr image = image::createCudaImage(*geometry2d(eImageBufferType::UInt8, 16, 8));
    m_layer.forgetCalls();
    EXPECT_NO_THROW(copyImg(image, image)) << "there is nothing to do";
    EXPECT_TRUE(m_layer.getCalls().empty());
}

} // namespace
} // namespace orlix::imaproc::util
