// Images go to a device and come back whole or not at all.
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "support/SoftwareGpuLayer.h"
#include "support/StepImages.h"
#include "support/StridedImages.h"
#include "support/ThrownText.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace orlix::image {
namespace {

using namespace orlix::testing;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
constexpr auto g_real32 = eImageBufferType::Real32;

class DeviceTransfer : public ::testing::Test
{
protected:
    ~DeviceTransfer() override
    {
        EXPECT_EQ(m_layer.getNbAllocations(), 0U) << "left behind";
        EXPECT_TRUE(m_layer.isSurroundingIntact());
    }

    /// The bytes of an image of the host, or, by the layer alone, of one on a device.
    std::vector<std::byte> fetch(const BaseImage& image)
    {
        if (!image.isGpuImage()) {
            return bytesOf(image);
        }
        const auto& onDevice = dynamic_cast<const CudaImage&>(image);
        const ImagePtr host = createImage(image.getGeometry());
        for (unsigned long t = 0; t < image.getSizeT(); ++t) {
            for (unsigned long c = 0; c < image.getSizeC(); ++c) {
                for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                    const unsigned long bytes =
                        image.getSizeX() * image.getSizeY() * elementSize(image.getBufferType(t));
                    EXPECT_TRUE(m_layer.download(host->accessRow(0, z, c, t), onDevice.getPlanAddress(z, c, t), bytes)
                                    .bSuccess);
                }
            }
        }
        return bytesOf(*host);
    }

    /// To the device, from there to the other device, and back.
    void expectRoundTrip(const BaseImage& image)
    {
        const std::vector<std::byte> bytes = bytesOf(image);
        const ImagePtr onDevice = toDevice(image, 1);
        ASSERT_TRUE(onDevice->isGpuImage());
        EXPECT_EQ(dynamic_cast<CudaImage&>(*onDevice).getDeviceIndex(), 1);
        const ImagePtr onOther = toDevice(*onDevice);
        EXPECT_EQ(dynamic_cast<CudaImage&>(*onOther).getDeviceIndex(), 0);
        const ImagePtr back = toHost(*onDevice);
        EXPECT_FALSE(back->isGpuImage());
        for (const ImagePtr& moved : {onDevice, onOther, back}) {
            EXPECT_EQ(fetch(*moved), bytes) << image.getGeometry().toString();
            EXPECT_TRUE(moved->getGeometry().hasSameSizes(image.getGeometry()));
            EXPECT_TRUE(moved->getGeometry().hasSameBufferTypes(image.getGeometry()));
            EXPECT_EQ(moved->getGeometry().getVolumeGeometry(), image.getGeometry().getVolumeGeometry());
            EXPECT_EQ(moved->getGeometry().getTemporalGeometry(), image.getGeometry().getTemporalGeometry());
            EXPECT_EQ(moved->getGeometricCalibration(), image.getGeometricCalibration());
            EXPECT_FALSE(moved->sharesPixelsWith(image));
        }
    }

    SoftwareGpuLayer m_layer{2};
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(DeviceTransfer, keepsEveryTypeAndSize)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        for (const unsigned long sizeX : {1UL, 63UL, 64UL, 257UL}) {
            const ImagePtr image = makeRandom(*geometry5d(type, sizeX, 3, 2, 3, 2));
            image->setGeometricCalibration(boost::make_shared<GeometricCalibration>());
            expectRoundTrip(*image);
        }
    }
}

TEST_F(DeviceTransfer, keepsStepsThatDifferInType)
{
    expectRoundTrip(*makeRandom(withTypes(*geometry5d(g_uint8, 37, 5, 2, 2, 4),
                                          {g_uint8, g_real32, eImageBufferType::eBufferBinary, g_uint16})));
}

TEST_F(DeviceTransfer, takesRowsAndPlansWhereverTheyLie)
{
    for (const unsigned long rowGap : {0UL, 3UL}) {
        for (const unsigned long planGap : {0UL, 5UL}) {
            const WatchedImage image(*geometry5d(g_uint16, 37, 5, 2, 3, 2), {GuardEdge::eEnd, rowGap, planGap});
            fillRandom(*image.get(), 7);
            expectRoundTrip(*image.get());
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
    // Lines farther apart than channels, and steps in memory of their own of which one has gaps between its rows.
    std::vector<unsigned short> memory(4 * 50);
    const ImagePtr crossed = wrapImage(*geometry5d(g_uint16, 5, 4, 2, 3, 1), memory.data(), {50, 8, 16, 1}, nullptr);
    fillRandom(*crossed, 8);
    expectRoundTrip(*crossed);
    const ImagePtr other = makeRandom(*geometry5d(g_real32, 5, 4, 2, 3, 2));
    expectRoundTrip(*joined(crossed, other));
    expectRoundTrip(*joined(other, crossed));
    expectRoundTrip(*makeGrown(withTypes(*geometry2d(g_uint8, 9, 7), {g_uint8, g_uint16, g_real32})));
}

TEST_F(DeviceTransfer, takesPixelsInAnyOrder)
{
    for (const StridedForm& form : allStridedForms()) {
        SCOPED_TRACE(form.name);
        for (const eImageBufferType type : {g_uint8, g_uint16, g_real32}) {
            StridedImage image(*geometry5d(type, 37, 5, 2, 3, 2), form);
            image.fillRandom(7);
            EXPECT_EQ(fetch(*toDevice(*image.getConst())), bytesOf(*image.makeDense()));
            EXPECT_EQ(bytesOf(*toHost(*image.getConst())), bytesOf(*image.makeDense()));
            expectRoundTrip(*image.getConst());
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
    const StridedImage backwards(*geometry5d(g_uint16, 5, 4, 2, 3, 1), {.name = "", .steps = {-2, 1, -1, 1, 1}});
    const ImagePtr other = makeRandom(*geometry5d(g_real32, 5, 4, 2, 3, 2));
    expectRoundTrip(*joined(backwards.get(), other));
    expectRoundTrip(*joined(other, backwards.get()));
}

TEST_F(DeviceTransfer, movesViewsAlone)
{
    const ImagePtr host = makeRandom(*geometry5d(g_uint16, 37, 5, 3, 2, 3));
    const SubImage hostPart(*host, *geometry5d(g_uint16, 37, 5, 2, 2, 2), 1, 0, 1);
    expectRoundTrip(hostPart);
    const ImagePtr onDevice = toDevice(*host);
    const CudaImage part(dynamic_cast<CudaImage&>(*onDevice), hostPart.getGeometry(), 1, 0, 1);
    EXPECT_EQ(fetch(*toHost(part)), bytesOf(hostPart));
    EXPECT_EQ(fetch(*toDevice(part, 1)), bytesOf(hostPart));
}

TEST_F(DeviceTransfer, toHostOfAHostImageIsACopy)
{
    const ImagePtr image = makeRandom(*geometry5d(g_uint16, 37, 5, 2, 1, 3));
    const ImagePtr copy = toHost(*image);
    EXPECT_FALSE(copy->sharesPixelsWith(*image));
    EXPECT_EQ(bytesOf(*copy), bytesOf(*image));
    EXPECT_TRUE(m_layer.getCalls().empty());
}

TEST_F(DeviceTransfer, movesAPlanAtATimeAndNothingTwice)
{
    const ImagePtr image = makeRandom(*geometry5d(g_uint16, 37, 5, 3, 1, 1));
    using enum eGpuCall;
    ImagePtr onDevice = toDevice(*image);
    EXPECT_EQ(m_layer.getCalls(), (std::vector{selectDevice, allocate, upload, upload, upload}));
    m_layer.forgetCalls();
    static_cast<void>(toHost(*onDevice));
    EXPECT_EQ(m_layer.getCalls(), (std::vector{selectDevice, download, download, download}));
}

TEST_F(DeviceTransfer, imagesWithoutPixelsMoveToo)
{
    constexpr unsigned long many = 1UL << 60;
    for (const BaseImageGeometry& geometry :
         {*geometry5d(g_uint16, 0, 4, 1, 1, many), *geometry5d(g_uint16, many, 4, 0, many, 1)}) {
        const ImagePtr onDevice = toDevice(*createImage(geometry));
        EXPECT_TRUE(onDevice->isGpuImage());
        EXPECT_TRUE(toHost(*toDevice(*onDevice, 1))->getGeometry().hasSameSizes(geometry));
    }
}

/// Without host pixels, and on no device.
class NoPixels final : public BaseImage
{
public:
    NoPixels() : BaseImage(*geometry2d(g_uint8, 5, 4), {}) {}
};

TEST_F(DeviceTransfer, anImageThatHasNoPixelsAnywhereIsRefused)
{
    const NoPixels image;
    const std::string text = "An image of 5x4x1x1x1 UInt8 is on a GPU, but has to be in the memory of the host: bring "
                             "it there with toHost first";
    EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(toDevice(image)); }), text);
    EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(toHost(image)); }), text);
}

/// Fails each of the calls that the transfer makes, one after the other, and says how often that went.
template <class TMove>
void failEachCall(SoftwareGpuLayer& layer, const TMove& move,
                  const std::vector<std::pair<eGpuCall, std::string>>& texts)
{
    const std::size_t before = layer.getNbAllocations();
    for (const auto& [call, text] : texts) {
        layer.forgetCalls();
        EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(move()); }), "no exception");
        const std::size_t nbCalls = layer.countCalls(call);
        ASSERT_GT(nbCalls, 0U);
        for (unsigned nbBefore = 0; nbBefore < nbCalls; ++nbBefore) {
            layer.failCall(call, nbBefore, "device lost");
            EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(move()); }), text) << nbBefore;
            EXPECT_EQ(layer.getNbAllocations(), before);
        }
    }
}

TEST_F(DeviceTransfer, everyFailingCallIsToldAndLeavesNothing)
{
    const ImagePtr host = makeRandom(*geometry5d(g_uint16, 33, 4, 3, 1, 1));
    const WatchedImage withGaps(host->getGeometry(), {GuardEdge::eEnd, 3, 5});
    const std::string unusable = "GPU 0 can't be used for an image of 33x4x3x1x1 UInt16: device lost. Take one that "
                                 "`orlix info --devices` names, or work on the host";
    const std::string outOfMemory = "An image of 33x4x3x1x1 UInt16 needs 1536 bytes on GPU 0, which can't be had: "
                                    "device lost. Make it smaller or free images there";
    const std::string notThere = "The pixels of an image of 33x4x3x1x1 UInt16 could not be moved to GPU 0: device lost";
    const std::string notBack =
        "The pixels of an image of 33x4x3x1x1 UInt16 could not be moved from GPU 0: device lost";
    using enum eGpuCall;
    for (const ImagePtr& image : {host, withGaps.get()}) {
        failEachCall(m_layer, [&] { return toDevice(*image); }, {{allocate, outOfMemory}, {upload, notThere}});
    }
    const ImagePtr onDevice = toDevice(*host);
    failEachCall(m_layer, [&] { return toHost(*onDevice); }, {{selectDevice, unusable}, {download, notBack}});
    failEachCall(m_layer, [&] { return toDevice(*onDevice); }, {{allocate, outOfMemory}, {copy, notThere}});
    EXPECT_EQ(fetch(*onDevice), bytesOf(*host));
}

TEST_F(DeviceTransfer, aDeviceThatCannotBeSelectedWhenAnImageEndsIsGivenItsMemoryBack)
{
    ImagePtr image = createCudaImage(*geometry2d(g_uint8, 5, 4));
    static_cast<void>(dynamic_cast<CudaImage&>(*image).holdPlanTable());
    m_layer.failCall(eGpuCall::selectDevice, 0, "device lost");
    image.reset();
    EXPECT_EQ(m_layer.getNbAllocations(), 0U);
}

} // namespace
} // namespace orlix::image
