// Images in device memory: where their plans lie, their views, their tables, and what they leave behind.
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "support/SoftwareGpuLayer.h"
#include "support/StepImages.h"
#include "support/ThrownText.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace orlix::image {
namespace {

using orlix::testing::eGpuCall;
using orlix::testing::SoftwareGpuLayer;
using orlix::testing::thrownText;
using orlix::testing::withTypes;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
constexpr auto g_real32 = eImageBufferType::Real32;

class CudaImageTest : public ::testing::Test
{
protected:
    ~CudaImageTest() override
    {
        EXPECT_EQ(m_layer.getNbAllocations(), 0U) << "left behind";
        EXPECT_TRUE(m_layer.isSurroundingIntact());
    }

    static boost::shared_ptr<CudaImage> makeCuda(const BaseImageGeometry& geometry, int device = 0)
    {
        return boost::dynamic_pointer_cast<CudaImage>(createCudaImage(geometry, device));
    }
    static boost::shared_ptr<CudaImage> viewOf(const CudaImage& parent, const BaseImageGeometry& geometry,
                                               unsigned long z, unsigned long c, unsigned long t)
    {
        return boost::make_shared<CudaImage>(parent, geometry, z, c, t);
    }

    /// The entries of a table, as the device has them.
    std::vector<std::byte*> entriesOf(const void* table, unsigned long nbEntries)
    {
        std::vector<std::byte*> entries(nbEntries);
        const auto result = m_layer.download(entries.data(), table, nbEntries * sizeof(void*));
        EXPECT_TRUE(result.bSuccess) << result.message;
        return entries;
    }
    /// What the entries have to be.
    static std::vector<std::byte*> addressesOf(const CudaImage& image)
    {
        std::vector<std::byte*> addresses;
        for (unsigned long t = 0; t < image.getSizeT(); ++t) {
            for (unsigned long c = 0; c < image.getSizeC(); ++c) {
                for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                    addresses.push_back(image.getPlanAddress(z, c, t));
                }
            }
        }
        return addresses;
    }
    void expectTable(const CudaImage& image, const void* table)
    {
        EXPECT_EQ(entriesOf(table, image.getGeometry().getNbPlans()), addressesOf(image));
    }

    SoftwareGpuLayer m_layer{2};
    hard::GpuLayerScope m_scope{m_layer};
};

TEST_F(CudaImageTest, liesOnItsDeviceAndHasNoHostPixels)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2), 1);
    EXPECT_TRUE(image->isGpuImage());
    EXPECT_EQ(image->getImageBaseType(), eImageBaseType::eGpuImage);
    EXPECT_EQ(image->getImageType(), eImageType::eOwnedImage);
    EXPECT_EQ(image->getDeviceIndex(), 1);
    EXPECT_EQ(m_layer.getSelectedDevice(), 1);
    EXPECT_EQ(image->getGeometry().toString(), "5x4x3x2x2 UInt16");
    EXPECT_EQ(image->getPixelLayout().first, nullptr);
    EXPECT_EQ(rowPitch(*image), 5U);
    EXPECT_THROW(planData<unsigned short>(*image, 0, 0, 0), ORLIXImageException);
}

TEST_F(CudaImageTest, plansStartOn256BytesAndFollowOneAnother)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 33, 4, 3, 2, 2)); // 264 bytes a plan
    std::byte* const first = image->getPlanAddress(0, 0, 0);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % 256, 0U);
    EXPECT_EQ(image->getPlanAddress(1, 0, 0), first + 512);
    EXPECT_EQ(image->getPlanAddress(0, 1, 0), first + 3 * 512);
    EXPECT_EQ(image->getPlanAddress(2, 1, 1), first + (2 + 3 * (1 + 2 * 1)) * 512);
    std::vector<std::byte> plan(264);
    EXPECT_TRUE(m_layer.upload(image->getPlanAddress(2, 1, 1), plan.data(), plan.size()).bSuccess) << "the last plan";
}

TEST_F(CudaImageTest, stepsOfOtherTypesHavePlansOfOtherSizes)
{
    const auto image =
        makeCuda(withTypes(*geometry5d(g_uint8, 100, 3, 1, 2, 3), {g_uint8, g_real32, g_uint16})); // 300 elements
    std::byte* const first = image->getPlanAddress(0, 0, 0);
    EXPECT_EQ(image->getPlanAddress(0, 1, 0), first + 512);
    EXPECT_EQ(image->getPlanAddress(0, 0, 1), first + 2 * 512);
    EXPECT_EQ(image->getPlanAddress(0, 1, 1), first + 2 * 512 + 1280);
    EXPECT_EQ(image->getPlanAddress(0, 0, 2), first + 2 * 512 + 2 * 1280);
    EXPECT_EQ(rowPitch(*image, 1), 100U);
    const auto plan = viewOf(*image, planGeometry(*image, 1), 0, 1, 1);
    EXPECT_EQ(plan->getBufferType(), g_real32);
    EXPECT_EQ(plan->getPlanAddress(0, 0, 0), image->getPlanAddress(0, 1, 1));
    EXPECT_EQ(rowPitch(*plan), 100U);
    EXPECT_EQ(plan->getPixelLayout().rowBytes, 400);
}

TEST_F(CudaImageTest, viewsOfViewsFindTheirPlans)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 6, 3, 4), 1);
    const auto part = viewOf(*image, *geometry5d(g_uint16, 5, 4, 3, 2, 3), 2, 1, 1);
    const auto inner = viewOf(*part, *geometry5d(g_uint16, 5, 4, 2, 1, 1), 1, 1, 2);
    EXPECT_EQ(inner->getPlanAddress(1, 0, 0), image->getPlanAddress(4, 2, 3));
    EXPECT_EQ(inner->getImageType(), eImageType::eSubImage);
    EXPECT_TRUE(inner->isGpuImage());
    EXPECT_EQ(inner->getDeviceIndex(), 1);
}

TEST_F(CudaImageTest, viewsKeepThePixelsAndTheCalibration)
{
    auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 6, 3, 4), 1);
    image->setGeometricCalibration(boost::make_shared<GeometricCalibration>());
    auto view = viewOf(*image, planGeometry(*image, 0), 0, 0, 0);
    EXPECT_EQ(view->getGeometricCalibration(), image->getGeometricCalibration());
    image.reset();
    EXPECT_EQ(m_layer.getNbAllocations(), 1U);
    EXPECT_TRUE(m_layer.selectDevice(0).bSuccess);
    view.reset();
    EXPECT_EQ(m_layer.getNbAllocations(), 0U);
    EXPECT_EQ(m_layer.getSelectedDevice(), 1) << "memory is given back on its device";
}

TEST_F(CudaImageTest, sharesPixelsWithViewsOfTheSamePlansAlone)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const auto other = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const ImagePtr host = createImage(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const auto plan = viewOf(*image, planGeometry(*image, 0), 1, 1, 1);
    const auto volume = viewOf(*image, volumeGeometry(*image, 0), 0, 1, 1);
    const auto planOfVolume = viewOf(*volume, planGeometry(*image, 0), 1, 0, 0);
    const auto whole = viewOf(*image, image->getGeometry(), 0, 0, 0);
    EXPECT_TRUE(image->sharesPixelsWith(*image));
    EXPECT_TRUE(image->sharesPixelsWith(*whole));
    EXPECT_TRUE(plan->sharesPixelsWith(*planOfVolume));
    EXPECT_FALSE(image->sharesPixelsWith(*other));
    EXPECT_FALSE(image->sharesPixelsWith(*host));
    EXPECT_FALSE(host->sharesPixelsWith(*image));
    EXPECT_FALSE(image->sharesPixelsWith(*plan));
    EXPECT_FALSE(volume->sharesPixelsWith(*plan));
    for (const auto& [z, c, t] : std::vector<std::array<unsigned long, 3>>{{0, 1, 1}, {1, 0, 1}, {1, 1, 0}}) {
        EXPECT_FALSE(plan->sharesPixelsWith(*viewOf(*image, planGeometry(*image, 0), z, c, t)));
    }
    EXPECT_FALSE(plan->sharesPixelsWith(*viewOf(*image, *geometry2d(eImageBufferType::Int16, 5, 4), 1, 1, 1)));
}

TEST_F(CudaImageTest, aTableNamesAllPlansAndIsMadeOnce)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2), 1);
    EXPECT_TRUE(m_layer.selectDevice(0).bSuccess);
    m_layer.forgetCalls();
    const void* const table = image->holdPlanTable();
    EXPECT_EQ(m_layer.getSelectedDevice(), 1);
    using enum eGpuCall;
    EXPECT_EQ(m_layer.getCalls(), (std::vector{selectDevice, allocate, upload}));
    expectTable(*image, table);
    m_layer.forgetCalls();
    EXPECT_EQ(image->holdPlanTable(), table);
    EXPECT_EQ(m_layer.getCalls(), (std::vector{selectDevice}));
    EXPECT_EQ(m_layer.getNbAllocations(), 2U);
}

TEST_F(CudaImageTest, viewsWhosePlansFollowOneAnotherPointIntoTheTable)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const auto* const table = static_cast<const std::byte*>(image->holdPlanTable());
    const std::vector<boost::shared_ptr<CudaImage>> views = {
        viewOf(*image, *geometry5d(g_uint16, 5, 4, 1, 1, 1), 2, 1, 1),  // a plan
        viewOf(*image, *geometry5d(g_uint16, 5, 4, 2, 1, 1), 1, 1, 0),  // plans of one channel
        viewOf(*image, *geometry5d(g_uint16, 5, 4, 3, 2, 1), 0, 0, 1),  // a step
        viewOf(*image, *geometry5d(g_uint16, 5, 4, 3, 1, 1), 0, 1, 1)}; // a volume
    const std::vector<unsigned long> places = {11, 4, 6, 9};
    for (std::size_t i = 0; i < views.size(); ++i) {
        const void* const own = views[i]->holdPlanTable();
        EXPECT_EQ(own, table + places[i] * sizeof(void*));
        expectTable(*views[i], own);
    }
    EXPECT_EQ(m_layer.getNbAllocations(), 2U);
}

TEST_F(CudaImageTest, otherViewsHaveTablesOfTheirOwnThatAreUsedAgain)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const std::vector<std::array<unsigned long, 3>> sizes = {{2, 2, 1}, {3, 1, 2}, {1, 1, 2}, {2, 2, 2}};
    for (const auto& [z, c, t] : sizes) {
        const auto view = viewOf(*image, *geometry5d(g_uint16, 5, 4, z, c, t), 3 - z, 2 - c, 2 - t);
        const void* const own = view->holdPlanTable();
        expectTable(*view, own);
        const auto again = viewOf(*image, *geometry5d(g_uint16, 5, 4, z, c, t), 3 - z, 2 - c, 2 - t);
        EXPECT_EQ(again->holdPlanTable(), own);
    }
    EXPECT_EQ(m_layer.getNbAllocations(), 1 + sizes.size());
}

TEST_F(CudaImageTest, holdsAreCountedAndTablesStay)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    const auto plan = viewOf(*image, planGeometry(*image, 0), 2, 1, 1);
    const auto scattered = viewOf(*image, *geometry5d(g_uint16, 5, 4, 1, 2, 2), 1, 0, 0);
    const auto other = makeCuda(*geometry2d(g_uint16, 5, 4));
    const void* const table = image->holdPlanTable();
    const void* const planTable = plan->holdPlanTable();
    const void* const scatteredTable = scattered->holdPlanTable();
    static_cast<void>(other->holdPlanTable());
    EXPECT_EQ(image->getNbPlanTableHolds(), 3U);
    EXPECT_EQ(plan->getNbPlanTableHolds(), 3U);
    CudaImage::dropPlanTable(static_cast<const std::byte*>(table) + 12 * sizeof(void*));
    CudaImage::dropPlanTable(static_cast<const std::byte*>(table) - 1);
    CudaImage::dropPlanTable(&image);
    EXPECT_EQ(image->getNbPlanTableHolds(), 3U) << "no table's addresses";
    CudaImage::dropPlanTable(planTable);
    EXPECT_EQ(image->getNbPlanTableHolds(), 2U);
    CudaImage::dropPlanTable(scatteredTable);
    CudaImage::dropPlanTable(table);
    CudaImage::dropPlanTable(table);
    CudaImage::dropPlanTable(nullptr);
    CudaImage::dropPlanTable(image->getPlanAddress(0, 0, 0));
    EXPECT_EQ(image->getNbPlanTableHolds(), 0U);
    EXPECT_EQ(other->getNbPlanTableHolds(), 1U);
    EXPECT_EQ(image->holdPlanTable(), table);
    EXPECT_EQ(m_layer.getNbAllocations(), 5U);
}

TEST_F(CudaImageTest, aTableWhoseImageIsGoneIsNothingToDrop)
{
    auto image = makeCuda(*geometry2d(g_uint16, 5, 4));
    const void* const table = image->holdPlanTable();
    image.reset();
    CudaImage::dropPlanTable(table);
}

TEST_F(CudaImageTest, aTableIsMadeOnceByAllThreads)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    std::vector<const void*> tables(8);
    std::vector<std::thread> threads;
    for (const void*& table : tables) {
        threads.emplace_back([&table, &image] {
            table = image->holdPlanTable();
            CudaImage::dropPlanTable(image->holdPlanTable());
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(tables, std::vector<const void*>(8, image->holdPlanTable()));
    EXPECT_EQ(image->getNbPlanTableHolds(), 9U);
    EXPECT_EQ(m_layer.getNbAllocations(), 2U);
}

TEST_F(CudaImageTest, aTableThatCannotBeMadeIsTriedAgain)
{
    const auto image = makeCuda(*geometry2d(g_uint16, 5, 4));
    const std::string text =
        "The places of the plans of an image of 5x4x1x1x1 UInt16 could not be written down on GPU 0: ";
    for (const eGpuCall call : {eGpuCall::allocate, eGpuCall::upload}) {
        m_layer.failCall(call, 0, "out of memory");
        EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(image->holdPlanTable()); }),
                  text + "out of memory");
        EXPECT_EQ(m_layer.getNbAllocations(), 1U);
        EXPECT_EQ(image->getNbPlanTableHolds(), 0U);
    }
    m_layer.failCall(eGpuCall::selectDevice, 0, "device lost");
    EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(image->holdPlanTable()); }),
              "GPU 0 can't be used for an image of 5x4x1x1x1 UInt16: device lost. Take one that `orlix info --devices` "
              "names, or work on the host");
    expectTable(*image, image->holdPlanTable());
}

TEST_F(CudaImageTest, withoutPixelsHasNeitherAddressesNorTable)
{
    constexpr unsigned long many = 1UL << 60;
    for (const auto& [x, z, t] : std::vector<std::array<unsigned long, 3>>{{0, many, many}, {many, 0, 1}, {5, 1, 0}}) {
        const auto image = makeCuda(*geometry5d(g_uint16, x, 4, z, 1, t));
        EXPECT_EQ(image->getPlanAddress(0, 0, 0), nullptr);
        EXPECT_EQ(image->holdPlanTable(), nullptr);
        EXPECT_EQ(image->getNbPlanTableHolds(), 0U);
    }
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 2, 2));
    EXPECT_EQ(viewOf(*image, *geometry5d(g_uint16, 5, 4, 3, 2, 0), 0, 0, 0)->holdPlanTable(), nullptr);
}

TEST_F(CudaImageTest, whatCannotBeMadeSaysWhy)
{
    const auto textOf = [](const BaseImageGeometry& geometry, int device = 0) {
        return thrownText<ORLIXImageException>([&] { static_cast<void>(createCudaImage(geometry, device)); });
    };
    const BaseImageGeometry geometry = *geometry5d(g_uint16, 33, 4, 3, 2, 2);
    m_layer.failCall(eGpuCall::allocate, 0, "out of memory");
    EXPECT_EQ(textOf(geometry), "An image of 33x4x3x2x2 UInt16 needs 6144 bytes on GPU 0, which can't be had: out of "
                                "memory. Make it smaller or free images there");
    EXPECT_EQ(textOf(geometry, 2),
              "GPU 2 can't be used for an image of 33x4x3x2x2 UInt16: invalid device ordinal. Take "
              "one that `orlix info --devices` names, or work on the host");
    EXPECT_NE(textOf(geometry, -1), "no exception");
    EXPECT_NE(textOf(*geometry2d(eImageBufferType::eNoBuffer, 5, 4)).find("no element type"), std::string::npos);
    EXPECT_NE(textOf(withTypes(geometry, {g_uint8, eImageBufferType::eNoBuffer})).find("no element type"),
              std::string::npos);
    constexpr unsigned long half = 1UL << 32;
    EXPECT_NE(textOf(*geometry2d(g_uint8, half, half)).find("63 bits"), std::string::npos);
    EXPECT_NE(textOf(*geometry2d(g_uint8, half * (half / 2) - 1, 1)).find("63 bits"), std::string::npos);
    EXPECT_NE(textOf(withTypes(*geometry2d(g_uint8, half, half / 4), {g_uint8, g_real32})).find("63 bits"),
              std::string::npos);
    EXPECT_NE(textOf(*geometry5d(g_uint8, 1, 1, half, half, half)).find("63 bits"), std::string::npos);
}

TEST_F(CudaImageTest, doesNotGrow)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 1, 1, 2));
    EXPECT_EQ(
        image->reinitialize(*geometry5d(g_uint16, 5, 4, 1, 1, 3)).getMessage(),
        "An image of 5x4x1x1x2 UInt16 is on a GPU, where none can grow in place: bring it to the host with toHost "
        "first");
    EXPECT_EQ(image->getSizeT(), 2U);
}

TEST_F(CudaImageTest, rowsAreNotForTheHost)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 1, 2));
    const SubImage plan(*image, planGeometry(*image, 1), 2, 0, 1);
    for (const BaseImage* const each : std::initializer_list<const BaseImage*>{image.get(), &plan}) {
        EXPECT_EQ(thrownText<ORLIXImageException>([&] { static_cast<void>(each->accessRow(1, 0, 0, 0)); }),
                  "An image of " + each->getGeometry().toString() +
                      " is on a GPU, but has to be in the memory of the host: bring it there with toHost first");
    }
}

TEST_F(CudaImageTest, viewsAreMadeWhereTheImageLies)
{
    const auto image = makeCuda(*geometry5d(g_uint16, 5, 4, 3, 1, 2), 1);
    const ImagePtr host = createImage(image->getGeometry());
    EXPECT_TRUE(makeView(*image, planGeometry(*image, 0), 1, 0, 1)
                    ->sharesPixelsWith(*viewOf(*image, planGeometry(*image, 0), 1, 0, 1)));
    EXPECT_EQ(makeView(*host, planGeometry(*host, 0), 1, 0, 1)->accessRow(0, 0, 0, 0), host->accessRow(0, 1, 0, 1));
    const ImagePtr beside = createImageBeside(*image, *geometry2d(g_uint8, 7, 3));
    EXPECT_EQ(dynamic_cast<CudaImage&>(*beside).getDeviceIndex(), 1);
    EXPECT_EQ(beside->getGeometry().toString(), "7x3x1x1x1 UInt8");
    EXPECT_FALSE(createImageBeside(*host, *geometry2d(g_uint8, 7, 3))->isGpuImage());
}

TEST(CudaImageWithoutDevice, saysThatThereIsNone)
{
    SoftwareGpuLayer layer(0);
    const hard::GpuLayerScope scope(layer);
    EXPECT_NE(thrownText<ORLIXImageException>([] {
                  static_cast<void>(createCudaImage(*geometry2d(g_uint8, 5, 4)));
              }).find("GPU 0 can't be used"),
              std::string::npos);
}

} // namespace
} // namespace orlix::image
