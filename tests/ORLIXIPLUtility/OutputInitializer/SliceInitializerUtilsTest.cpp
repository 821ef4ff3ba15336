// What a missing slice is made as.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

const char* const g_null = "Input attribute should not be null";

boost::shared_ptr<attr::InImg3d> attributeOf(const image::BaseImageGeometry& geometry)
{
    auto volume = boost::make_shared<attr::InImg3d>();
    volume->init(ImageConstPtr(image::createImage(geometry)));
    return volume;
}

TEST(OutputSliceTest, isTheVolumeWithoutAnAxis)
{
    const auto volume = attributeOf(*image::geometry5d(eImageBufferType::Int16, 4, 5, 6, 2, 3));
    const auto axis = boost::make_shared<attr::InAxis>();
    const auto info = outputSlice(volume, axis);
    const auto expect = [&](eAxis::domain value, unsigned long x, unsigned long y) {
        axis->init(value);
        EXPECT_EQ(info->getSizeX(), x);
        EXPECT_EQ(info->getSizeY(), y);
        EXPECT_EQ(info->getVolumeGeometry(), image::VolumeGeometry());
    };
    expect(eAxis::eX, 5, 6);
    expect(eAxis::eY, 4, 6);
    expect(eAxis::eZ, 4, 5);
    EXPECT_EQ(info->getImageBufferType(), eImageBufferType::Int16);
    EXPECT_EQ(info->getImageBufferTypeVector(), std::vector<eImageBufferType>(3, eImageBufferType::Int16));
    EXPECT_EQ(info->getColorGeometry().getSizeC(), 2U);
    EXPECT_EQ(info->getTemporalGeometry().getSizeT(), 3U);
    EXPECT_TRUE(info->hasInputImage());
    EXPECT_EQ(info->getInputImage(), volume->getStorage());
}

TEST(OutputSliceTest, attributesThatAreGoneOrHoldNothing)
{
    const auto raised = [](const BaseCustomImageInfo& info) {
        EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getSizeX()); }), g_null);
        EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getSizeY()); }), g_null);
        EXPECT_EQ(testing::messageOf([&] { static_cast<void>(info.getVolumeGeometry()); }), g_null);
        EXPECT_THROW(static_cast<void>(info.getSizeX()), ORLIXIPLUtilityException);
    };
    auto volume = attributeOf(*image::geometry3d(eImageBufferType::UInt8, 4, 5, 6));
    auto axis = boost::make_shared<attr::InAxis>();
    raised(*outputSlice(boost::weak_ptr<const BaseImageAttribute>(), axis));
    raised(*outputSlice(volume, boost::weak_ptr<const attr::InAxis>()));
    raised(*outputSlice(boost::make_shared<attr::InImg3d>(), axis));
    const auto info = outputSlice(volume, axis);
    EXPECT_EQ(info->getSizeX(), 5U);
    axis.reset();
    raised(*info);
    axis = boost::make_shared<attr::InAxis>();
    const auto other = outputSlice(volume, axis);
    volume.reset();
    raised(*other);
}

TEST(CreateSliceImageTest, isWhatTheInitializerMakes)
{
    for (const eAxis::domain axis : {eAxis::eX, eAxis::eY, eAxis::eZ}) {
        const auto volume = attributeOf(*image::geometry5d(eImageBufferType::UInt16, 4, 5, 6, 2, 3));
        const auto calibration = boost::make_shared<image::GeometricCalibration>();
        calibration->init3d("mm", 1, 2, 3, 4, 5, 6);
        const ImagePtr image = image::createImage(volume->getImage().getGeometry());
        image->setGeometricCalibration(calibration);
        volume->init(ImageConstPtr(image));
        const auto axisAttribute = boost::make_shared<attr::InAxis>();
        axisAttribute->init(axis);
        const auto output = boost::make_shared<attr::OutImg2d>();
        ASSERT_TRUE(customOutput(output, outputSlice(volume, axisAttribute))->initOutput());
        const ImagePtr created = createSliceImage(*image, axis);
        EXPECT_EQ(created->getGeometry().toString(), output->getImage().getGeometry().toString());
        EXPECT_EQ(created->getGeometry().getTemporalGeometry(), output->getImage().getGeometry().getTemporalGeometry());
        EXPECT_EQ(*created->getGeometricCalibration(), *output->getImage().getGeometricCalibration());
    }
}

} // namespace
} // namespace orlix::imaproc::util
