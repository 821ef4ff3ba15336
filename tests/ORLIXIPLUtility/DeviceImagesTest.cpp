// Every function of the library is given images on a device where it takes images: what works on the host refuses them
// by name and writes nothing.
#include "ORLIX/ORLIXCore/GpuSupport.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPLUtility/ImageCalls.h"
#include "support/Images.h"
#include "support/SoftwareGpuLayer.h"

namespace orlix::imaproc::util {
namespace {

using image::BaseImageGeometry;
using orlix::testing::bytesOf;
using orlix::testing::makeRandom;
using orlix::testing::SoftwareGpuLayer;

class DeviceImages : public ::testing::TestWithParam<test::ImageCall>
{
protected:
    ~DeviceImages() override
    {
        EXPECT_TRUE(core::setGpuSupportActivated(false));
        EXPECT_EQ(m_layer.getNbAllocations(), 0U) << "left behind";
        EXPECT_TRUE(m_layer.isSurroundingIntact());
    }

    /// Those images whose bit is set lie on a device. The call has to refuse them, and leave all as it is.
    void expectRefused(unsigned places)
    {
        test::Images images;
        std::vector<std::vector<std::byte>> before;
        for (const BaseImageGeometry& geometry : GetParam().geometries) {
            ImagePtr image = makeRandom(geometry, images.size() + 1);
            before.push_back(bytesOf(*image));
            images.push_back((places >> images.size() & 1U) != 0 ? image::toDevice(*image) : image);
        }
        const std::size_t nbAllocations = m_layer.getNbAllocations();
        std::string text = "nothing thrown";
        try {
            GetParam().run(images);
        } catch (const std::exception& exception) {
            text = exception.what();
        }
        EXPECT_NE(text.find("on a GPU"), std::string::npos) << places << ": " << text;
        EXPECT_NE(text.find("toHost"), std::string::npos) << places << ": " << text;
        EXPECT_EQ(m_layer.getNbAllocations(), nbAllocations) << places;
        for (std::size_t i = 0; i < images.size(); ++i) {
            EXPECT_TRUE(images[i]->getGeometry().hasSameSizes(GetParam().geometries[i])) << places;
            EXPECT_EQ(bytesOf(*image::toHost(*images[i])), before[i]) << places << ": image " << i << " was written";
        }
    }

    unsigned getNbSubsets() const { return 1U << GetParam().geometries.size(); }

    SoftwareGpuLayer m_layer;
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_P(DeviceImages, areRefusedWhereGpuSupportIsOff)
{
    for (unsigned places = 1; places < getNbSubsets(); ++places) {
        expectRefused(places);
    }
    EXPECT_EQ(m_layer.countCalls(orlix::testing::eGpuCall::launch), 0U);
}

TEST_P(DeviceImages, areRefusedBesideThoseOfTheHost)
{
    ASSERT_TRUE(core::setGpuSupportActivated(true));
    const unsigned nbSubsets = GetParam().bWorksOnDevice ? getNbSubsets() - 1 : getNbSubsets();
    for (unsigned places = 1; places < nbSubsets; ++places) {
        expectRefused(places);
    }
    EXPECT_EQ(m_layer.countCalls(orlix::testing::eGpuCall::launch), 0U);
}

/// The call is right but for where its images lie.
TEST_P(DeviceImages, areAllThatIsWrong)
{
    test::Images images;
    for (const BaseImageGeometry& geometry : GetParam().geometries) {
        images.push_back(makeRandom(geometry, images.size() + 1));
    }
    EXPECT_NO_THROW(GetParam().run(images));
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, DeviceImages, ::testing::ValuesIn(test::makeImageCalls()));

std::vector<test::ImageCall> makeCallsForDevices()
{
    std::vector<test::ImageCall> calls = test::makeImageCalls();
    std::erase_if(calls, [](const test::ImageCall& call) { return !call.bWorksOnDevice; });
    return calls;
}

class ImagesOfOneDevice : public DeviceImages
{};

/// What stands on the device afterwards is what the same call leaves on the host.
TEST_P(ImagesOfOneDevice, areWorkedOnThere)
{
    ASSERT_TRUE(core::setGpuSupportActivated(true));
    test::Images onHost, onDevice;
    for (const BaseImageGeometry& geometry : GetParam().geometries) {
        onHost.push_back(makeRandom(geometry, onHost.size() + 1));
        onDevice.push_back(image::toDevice(*onHost.back()));
    }
    ASSERT_NO_THROW(GetParam().run(onHost));
    EXPECT_EQ(m_layer.countCalls(orlix::testing::eGpuCall::launch), 0U);
    ASSERT_NO_THROW(GetParam().run(onDevice));
    EXPECT_GT(m_layer.countCalls(orlix::testing::eGpuCall::launch), 0U);
    for (std::size_t i = 0; i < onHost.size(); ++i) {
        EXPECT_EQ(bytesOf(*image::toHost(*onDevice[i])), bytesOf(*onHost[i])) << "image " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryFunctionThatCan, ImagesOfOneDevice, ::testing::ValuesIn(makeCallsForDevices()));

} // namespace
} // namespace orlix::imaproc::util
