// What an output looks like that a region is to be taken out into.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using testing::messageOf;

constexpr const char* g_null = "Input attribute should not be null";

/// What the initializer of `info` makes of an output that nobody gave.
ImagePtr makeOutput(const boost::shared_ptr<BaseCustomImageInfo>& info)
{
    const auto out = boost::make_shared<attr::OutImg>();
    const auto initializer = customOutput(out, info);
    EXPECT_TRUE(initializer->isOutputInitNeeded());
    EXPECT_TRUE(initializer->initOutput());
    return out->getStorage();
}

image::BaseImageGeometry mixedGeometry()
{
    image::VolumeGeometry volume;
    volume.init3d(4);
    image::ColorGeometry color;
    color.initChannels(3);
    image::TemporalGeometry temporal;
    temporal.initSequence(2);
    return {{eImageBufferType::UInt8, eImageBufferType::Real32}, 30, 20, volume, color, temporal};
}

TEST(ROIInitializerUtils, InTwoDimensionsAllButTheSizesInAPlanIsTheInputs)
{
    const auto in = boost::make_shared<attr::InImg>();
    in->init(createImage(mixedGeometry()));
    const auto size = boost::make_shared<attr::InOutputImg2dSize>();
    const auto info = outputROI2d(in, size);
    size->init(attr::createImg2dSize(7, 5));
    const ImagePtr out = makeOutput(info);
    EXPECT_EQ(out->getGeometry().toString(), "7x5x4x3x2 UInt8/Real32");
    EXPECT_TRUE(out->getGeometry().getVolumeGeometry().is3d());
    EXPECT_TRUE(out->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_EQ(makeROI2d(in->getImage(), size->getDataItemNode())->getGeometry().toString(),
              out->getGeometry().toString());
}

TEST(ROIInitializerUtils, InThreeDimensionsTheVolumeFollowsTheSize)
{
    const auto in = boost::make_shared<attr::InImg3d>();
    in->init(createImage(mixedGeometry()));
    const auto size = boost::make_shared<attr::InOutputImg3dSize>();
    size->init(attr::createImg3dSize(7, 5, 1));
    const ImagePtr out = makeOutput(outputROI3d(in, size));
    EXPECT_EQ(out->getGeometry().toString(), "7x5x1x3x2 UInt8/Real32");
    EXPECT_TRUE(out->getGeometry().getVolumeGeometry().is3d()) << "a volume of one plan";
    const ImagePtr same = makeROI3d(in->getImage(), size->getDataItemNode());
    EXPECT_EQ(same->getGeometry().toString(), out->getGeometry().toString());
    EXPECT_TRUE(same->getGeometry().getVolumeGeometry().is3d());
}

TEST(ROIInitializerUtils, MissingAttributesAreOneCase)
{
    boost::shared_ptr<BaseCustomImageInfo> flat;
    boost::shared_ptr<BaseCustomImageInfo> deep;
    const auto in = boost::make_shared<attr::InImg>();
    {
        const auto size2d = boost::make_shared<attr::InOutputImg2dSize>();
        const auto size3d = boost::make_shared<attr::InOutputImg3dSize>();
        flat = outputROI2d(in, size2d);
        deep = outputROI3d(in, size3d);
        EXPECT_EQ(messageOf([&] { flat->getSizeX(); }), g_null) << "an attribute that holds nothing";
        size2d->init(attr::createImg2dSize(2, 3));
        EXPECT_EQ(flat->getSizeX(), 2U);
        EXPECT_EQ(flat->getSizeY(), 3U);
        EXPECT_THROW(flat->getVolumeGeometry(), BaseException) << "there is no input";
    }
    EXPECT_EQ(messageOf([&] { flat->getSizeX(); }), g_null);
    EXPECT_EQ(messageOf([&] { flat->getSizeY(); }), g_null);
    EXPECT_EQ(messageOf([&] { deep->getSizeX(); }), g_null);
    EXPECT_EQ(messageOf([&] { deep->getSizeY(); }), g_null);
    EXPECT_EQ(messageOf([&] { deep->getVolumeGeometry(); }), g_null);
    EXPECT_THROW(outputROI2d(in, {})->getSizeX(), ORLIXIPLUtilityException);
}

} // namespace
} // namespace orlix::imaproc::util
