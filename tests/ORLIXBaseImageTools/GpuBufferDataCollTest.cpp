// Tables of plans by element type.
#include "ORLIXIPL/ORLIXBaseImageTools/GpuBufferDataColl.h"

#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "support/SoftwareGpuLayer.h"
#include "support/StepImages.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace orlix::image::tools {
namespace {

using orlix::testing::SoftwareGpuLayer;
using orlix::testing::withTypes;

class GpuBufferDataColl : public ::testing::Test
{
protected:
    ~GpuBufferDataColl() override { EXPECT_EQ(m_layer.getNbAllocations(), 0U); }

    SoftwareGpuLayer m_layer;
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(GpuBufferDataColl, namesThePlansInOrder)
{
    CudaImage image(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2), 0);
    unsigned short** const table = extractBufferDataCollToGpu<unsigned short>(image);
    std::vector<unsigned short*> entries(12);
    ASSERT_TRUE(m_layer.download(entries.data(), table, entries.size() * sizeof(void*)).bSuccess);
    for (unsigned long t = 0; t < 2; ++t) {
        for (unsigned long c = 0; c < 2; ++c) {
            for (unsigned long z = 0; z < 3; ++z) {
                EXPECT_EQ(static_cast<void*>(entries[z + 3 * (c + 2 * t)]), image.getPlanAddress(z, c, t));
            }
        }
    }
}

TEST_F(GpuBufferDataColl, isHeldUntilItIsFreedAndStays)
{
    CudaImage image(*geometry2d(eImageBufferType::Real32, 5, 4), 0);
    const CudaImage& constImage = image;
    const float** const table = extractBufferDataCollToGpu<float>(constImage);
    float** const writable = extractBufferDataCollToGpu<float>(image);
    EXPECT_EQ(static_cast<void*>(table), static_cast<void*>(writable));
    EXPECT_EQ(image.getNbPlanTableHolds(), 2U);
    freeBufferDataColl<float>(table);
    EXPECT_EQ(image.getNbPlanTableHolds(), 1U);
    freeBufferDataColl<float>(writable);
    EXPECT_EQ(image.getNbPlanTableHolds(), 0U);
    EXPECT_EQ(m_layer.getNbAllocations(), 2U);
    m_layer.forgetCalls();
    EXPECT_EQ(extractBufferDataCollToGpu<float>(constImage), table);
    EXPECT_EQ(m_layer.countCalls(orlix::testing::eGpuCall::upload), 0U);
}

TEST_F(GpuBufferDataColl, wantsTheStorageTypeOfEveryStep)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        const CudaImage image(*geometry2d(type, 5, 4), 0);
        visitStorageType(type, [&]<class T>() {
            EXPECT_NE(extractBufferDataCollToGpu<T>(image), nullptr);
            using Other = std::conditional_t<std::is_same_v<T, float>, int, float>;
            EXPECT_THROW(extractBufferDataCollToGpu<Other>(image), ORLIXImageException);
        });
        EXPECT_EQ(image.getNbPlanTableHolds(), 1U);
    }
    const BaseImageGeometry geometry = *geometry2d(eImageBufferType::UInt8, 5, 4);
    const CudaImage mixed(withTypes(geometry, {eImageBufferType::UInt8, eImageBufferType::Real32}), 0);
    EXPECT_THROW(extractBufferDataCollToGpu<unsigned char>(mixed), ORLIXImageException);
    const CudaImage alike(withTypes(geometry, {eImageBufferType::UInt8, eImageBufferType::eBufferBinary}), 0);
    EXPECT_NE(extractBufferDataCollToGpu<unsigned char>(alike), nullptr);
}

TEST_F(GpuBufferDataColl, isNullWithoutPixels)
{
    CudaImage image(*geometry5d(eImageBufferType::Real32, 0, 4, 1, 1, 1UL << 60), 0);
    float** const table = extractBufferDataCollToGpu<float>(image);
    EXPECT_EQ(table, nullptr);
    freeBufferDataColl<float>(table);
}

} // namespace
} // namespace orlix::image::tools
