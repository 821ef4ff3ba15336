// What decides whether a device works, and what its launchers are told.
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createCudaImage;
using image::createImage;
using image::eImageBufferType;
using image::geometry5d;

/// May be left out.
struct InOptPicture final : processor::NamedAttribute<InOptPicture, BaseInputImageAttribute>
{
    static constexpr const char* g_name = "InOptPicture";
    static constexpr const char* g_toolTip = "A picture that may come in";
    bool isOptional() const override { return true; }
};

/// Has attributes of every kind.
class Level final : public processor::Scaffold<Level, processor::BaseSyncProcessor, PictureLibrary, InPicture,
                                               InOptPicture, InStrip, InKind, OutPicture>
{
public:
    static constexpr processor::ProcessorText g_text{"Level", 0, "GpuLevelTest.cpp"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    ProcessingResult<bool> mainProcess() override { return true; }
};

class GpuLevelTest : public ::testing::Test
{
protected:
    GpuLevelTest() { EXPECT_TRUE(m_level.init(processor::eProcessorRulePolicy::eRulePolicySkip)); }

    template <class TAttribute>
    const BaseImageAttribute* attribute()
    {
        return dynamic_cast<const BaseImageAttribute*>(&m_level.getAttribute(TAttribute::g_name));
    }

    testing::SoftwareGpuLayer m_layer{2, 256};
    hard::GpuLayerScope m_scope{m_layer};
    ImagePtr m_host = createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 1, 1, 1));
    ImagePtr m_device = createCudaImage(m_host->getGeometry());
    Level m_level;
};

TEST_F(GpuLevelTest, ImagesLieOnADeviceWhereNoneLiesOnTheHost)
{
    EXPECT_TRUE(areImagesOnDevice(m_level)) << "no image is set";
    m_level.set<InPicture>(m_device);
    m_level.set<OutPicture>(m_device);
    EXPECT_TRUE(areImagesOnDevice(m_level)) << "one that may be left out says nothing";
    m_level.set<InStrip>(boost::make_shared<image::InputImageYStrip2d>(*m_host, 0, 4));
    m_level.set<InKind>(eImageBufferType::UInt8);
    EXPECT_TRUE(areImagesOnDevice(m_level)) << "nor do strips and values";
    m_level.set<InOptPicture>(m_host);
    EXPECT_FALSE(areImagesOnDevice(m_level));
    m_level.set<InOptPicture>(ImageConstPtr());
    EXPECT_TRUE(areImagesOnDevice(m_level)) << "nor does a null pointer";
    m_level.set<OutPicture>(m_host);
    EXPECT_FALSE(areImagesOnDevice(m_level));
    m_level.set<OutPicture>(m_device);
    m_level.set<InPicture>(m_host);
    EXPECT_FALSE(areImagesOnDevice(m_level)) << "an image on a device behind it changes nothing";
}

TEST_F(GpuLevelTest, AllImagesLieOnOneDevice)
{
    const ImagePtr other = createCudaImage(m_host->getGeometry(), 1);
    m_level.set<InPicture>(other);
    m_level.set<OutPicture>(other);
    int device = -1;
    EXPECT_EQ(failureOf(findCommonDevice({attribute<InPicture>(), nullptr, attribute<OutPicture>()}, device)),
              "no failure");
    EXPECT_EQ(device, 1);
    m_level.set<OutPicture>(m_device);
    EXPECT_EQ(failureOf(findCommonDevice({attribute<InPicture>(), attribute<OutPicture>()}, device)),
              "InPicture is on GPU 1, OutPicture on GPU 0: bring all images to one of them with toDevice first");
    m_level.set<OutPicture>(m_host);
    EXPECT_EQ(failureOf(findCommonDevice({attribute<InPicture>(), attribute<OutPicture>()}, device)),
              "OutPicture, which is 5x4x1x1x1 UInt8, is in the memory of the host, but has to be on a GPU: bring it "
              "there with toDevice first");
}

TEST_F(GpuLevelTest, LaunchersAreToldSizesAndDevice)
{
    const ImagePtr image = createCudaImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 3, 2, 7));
    const gpu::LauncherInfo info = makeLauncherInfo(*image, 0);
    EXPECT_EQ(info.sizeX, 5U);
    EXPECT_EQ(info.sizeY, 4U);
    EXPECT_EQ(info.sizeZ, 3U);
    EXPECT_EQ(info.sizeC, 2U);
    EXPECT_EQ(info.sizeT, 7U);
    EXPECT_EQ(info.nbMultiProcessors, 4U);
    EXPECT_EQ(info.maxThreadsPerMultiProcessor, 2048U);
    EXPECT_EQ(info.maxThreadsPerBlock, 256U);
    EXPECT_EQ(info.blockSize2d, 16U);
    EXPECT_EQ(info.zero, 0U);
}

TEST_F(GpuLevelTest, ATableIsFreedAtTheEndOfItsScope)
{
    auto& image = dynamic_cast<image::CudaImage&>(*m_device);
    {
        const FreedTable table(image::tools::extractBufferDataCollToGpu<unsigned char>(image));
        EXPECT_NE(table.get(), nullptr);
        EXPECT_EQ(image.getNbPlanTableHolds(), 1U);
    }
    EXPECT_EQ(image.getNbPlanTableHolds(), 0U);
}

} // namespace
} // namespace orlix::imaproc::test
