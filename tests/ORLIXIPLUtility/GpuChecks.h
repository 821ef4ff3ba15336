// What tests of operators on devices have in common.
#pragma once

#include "ORLIX/ORLIXCore/GpuSupport.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "support/GpuOracle.h"
#include "support/GpuTestLayer.h"
#include "support/Images.h"
#include "support/SameImages.h"

namespace orlix::testing {

/// GPU support is on; at the end nothing is left on devices of software, and nobody has written beside what was there.
class GpuOperatorTest : public ::testing::Test
{
protected:
    GpuOperatorTest() { EXPECT_TRUE(core::setGpuSupportActivated(true)); }
    ~GpuOperatorTest() override
    {
        static_cast<void>(core::setGpuSupportActivated(false));
        if (SoftwareGpuLayer* const layer = m_layer.software()) {
            EXPECT_EQ(layer->getNbAllocations(), 0U) << "left behind";
            EXPECT_TRUE(layer->isSurroundingIntact());
        }
    }

    /// Has the device done so many launches since it was last asked? True on a real device, which doesn't tell.
    bool hasLaunched(std::size_t nbLaunches)
    {
        SoftwareGpuLayer* const layer = m_layer.software();
        if (layer == nullptr) {
            return true;
        }
        const std::size_t nbCounted = layer->countCalls(eGpuCall::launch);
        layer->forgetCalls();
        return nbCounted == nbLaunches;
    }

    GpuTestLayer m_layer;
};

/// An image of the host that holds `values` again and again.
template <class T>
ImagePtr imageOf(const image::BaseImageGeometry& geometry, const std::vector<T>& values)
{
    const ImagePtr image = image::createImage(geometry);
    std::size_t next = 0;
    forEachRow(*image, [&](unsigned long, std::byte* row) {
        for (unsigned long x = 0; x < geometry.getSizeX(); ++x) {
            std::memcpy(row + x * sizeof(T), &values[next++ % values.size()], sizeof(T));
        }
    });
    return image;
}

/// An image of the host with all elements that are worth trying, over and over.
inline ImagePtr interestingImage(const image::BaseImageGeometry& geometry)
{
    ImagePtr image;
    image::visitStorageType(geometry.getBufferType(),
                            [&]<class T>() { image = imageOf<T>(geometry, interestingElements<T>()); });
    return image;
}

/// What `map` makes of each element of an image of the host, which are of type TIn, as elements of type TOut.
template <class TIn, class TOut, class TMap>
ImagePtr mapped(const image::BaseImage& in, const image::BaseImageGeometry& geometry, const TMap& map)
{
    const std::vector<std::byte> bytes = bytesOf(in);
    std::vector<TOut> values;
    for (std::size_t at = 0; at < bytes.size(); at += sizeof(TIn)) {
        TIn value;
        std::memcpy(&value, &bytes[at], sizeof value);
        values.push_back(map(value));
    }
    return imageOf<TOut>(geometry, values);
}

} // namespace orlix::testing
