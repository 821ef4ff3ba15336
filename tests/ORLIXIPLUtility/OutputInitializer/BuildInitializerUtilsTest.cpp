// What a missing image is made as that is generated from a size.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

const char* const g_null = "Input attribute should not be null";

/// What both have in common.
void expectBinaryImage(const BaseCustomImageInfo& info)
{
    EXPECT_EQ(info.getImageBufferType(), eImageBufferType::eBufferBinary);
    EXPECT_EQ(info.getImageBufferTypeVector(), std::vector<eImageBufferType>{eImageBufferType::eBufferBinary});
    EXPECT_EQ(info.getColorGeometry(), image::ColorGeometry());
    EXPECT_EQ(info.getTemporalGeometry(), image::TemporalGeometry());
    EXPECT_FALSE(info.hasInputImage());
    EXPECT_EQ(info.getInputImage(), nullptr);
    EXPECT_EQ(info.getGeometricCalibration(), nullptr);
    EXPECT_TRUE(info.isOutputInitNeeded());
}

void expectRaised(const BaseCustomImageInfo& info)
{
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getSizeX()); }), g_null);
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getSizeY()); }), g_null);
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getVolumeGeometry()); }), g_null);
    EXPECT_THROW(static_cast<void>(info.getSizeX()), ORLIXIPLUtilityException);
}

TEST(OutputBuild2dTest, isAPlanOfTheSize)
{
    auto size = boost::make_shared<attr::InOutputImg2dSize>();
    const auto info = outputBuild2d(size);
    expectRaised(*info);
    size->init(attr::createImg2dSize(30, 20));
    expectBinaryImage(*info);
    EXPECT_EQ(info->getSizeX(), 30U);
    EXPECT_EQ(info->getSizeY(), 20U);
    EXPECT_EQ(info->getVolumeGeometry(), image::VolumeGeometry());
    const auto output = boost::make_shared<attr::OutBinImg>();
    ASSERT_TRUE(customOutput(output, info)->initOutput());
    EXPECT_EQ(output->getImage().getGeometry().toString(), "30x20x1x1x1 Binary");
    size->init(attr::createImg2dSize(7, 0));
    EXPECT_EQ(info->getSizeX(), 7U) << "the answer follows the attribute";
    size->init(nullptr);
    expectRaised(*info);
    size.reset();
    expectRaised(*info);
    expectRaised(*outputBuild2d({}));
}

TEST(OutputBuild3dTest, isAVolumeOfTheSize)
{
    auto size = boost::make_shared<attr::InOutputImg3dSize>();
    const auto info = outputBuild3d(size);
    expectRaised(*info);
    size->init(attr::createImg3dSize(30, 20, 1));
    expectBinaryImage(*info);
    EXPECT_EQ(info->getSizeX(), 30U);
    EXPECT_EQ(info->getSizeY(), 20U);
    EXPECT_TRUE(info->getVolumeGeometry().is3d());
    EXPECT_EQ(info->getVolumeGeometry().getSizeZ(), 1U);
    const auto output = boost::make_shared<attr::OutBinImg3d>();
    ASSERT_TRUE(customOutput(output, info)->initOutput());
    EXPECT_EQ(output->getImage().getGeometry().toString(), "30x20x1x1x1 Binary");
    EXPECT_TRUE(output->getImage().getGeometry().getVolumeGeometry().is3d());
    size.reset();
    expectRaised(*info);
    expectRaised(*outputBuild3d({}));
}

} // namespace
} // namespace orlix::imaproc::util
