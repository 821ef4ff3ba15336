// What the rules about regions demand, of the attributes as they stand when they are asked.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using testing::messageOf;
using Property = eCheckableImageProperty;

constexpr const char* g_null = "Input attribute should not be null";
constexpr unsigned long g_most = ~0UL;

/// Attributes of one level, and what follows from them.
struct Region2d
{
    boost::shared_ptr<attr::InImg> in = boost::make_shared<attr::InImg>();
    boost::shared_ptr<attr::InROIImg> roi = boost::make_shared<attr::InROIImg>();
    boost::shared_ptr<attr::OutImg> out = boost::make_shared<attr::OutImg>();
    boost::shared_ptr<attr::InInputImg2dOffset> offset = boost::make_shared<attr::InInputImg2dOffset>();
    boost::shared_ptr<attr::InOutputImg2dSize> size = boost::make_shared<attr::InOutputImg2dSize>();
    CheckedImagePropertyPtr get = containsROI2d(in, offset, size);
    CheckedImagePropertyPtr put = containsROI2d(in, offset, roi);
    CheckedImagePropertyPtr match = matchROI2d(size);

    Region2d(unsigned long x, unsigned long y, unsigned long sizeX, unsigned long sizeY)
    {
        in->init(createImage(*geometry2d(eImageBufferType::UInt8, 512, 300)));
        move(x, y, sizeX, sizeY);
    }
    void move(unsigned long x, unsigned long y, unsigned long sizeX, unsigned long sizeY)
    {
        offset->init(attr::createImg2dOffset(x, y));
        size->init(attr::createImg2dSize(sizeX, sizeY));
    }
    std::string failure() const { return customImageProperty(in, get)->check().getMessage(); }
};

struct Region3d
{
    boost::shared_ptr<attr::InImg3d> in = boost::make_shared<attr::InImg3d>();
    boost::shared_ptr<attr::InROIImg3d> roi = boost::make_shared<attr::InROIImg3d>();
    boost::shared_ptr<attr::OutImg> out = boost::make_shared<attr::OutImg>();
    boost::shared_ptr<attr::InInputImg3dOffset> offset = boost::make_shared<attr::InInputImg3dOffset>();
    boost::shared_ptr<attr::InOutputImg3dSize> size = boost::make_shared<attr::InOutputImg3dSize>();
    CheckedImagePropertyPtr get = containsROI3d(in, offset, size);
    CheckedImagePropertyPtr put = containsROI3d(in, offset, roi);
    CheckedImagePropertyPtr match = matchROI3d(size);

    Region3d()
    {
        in->init(createImage(*geometry3d(eImageBufferType::UInt8, 40, 30, 20)));
        offset->init(attr::createImg3dOffset(1, 2, 3));
        size->init(attr::createImg3dSize(4, 5, 6));
    }
    std::string failure() const { return customImageProperty(in, get)->check().getMessage(); }
};

std::vector<bool> enabledChecks(const BaseCustomCheckedImageProperty& property)
{
    std::vector<bool> enabled;
    for (const Property::domain each :
         {Property::eBufferType, Property::eSizeX, Property::eSizeY, Property::eVolumeGeometry,
          Property::eColorGeometry, Property::eTemporalGeometry}) {
        enabled.push_back(property.isCheckEnabled(each));
    }
    return enabled;
}

TEST(ROIRuleUtils, CheckTheAxesOfTheirRegions)
{
    const Region2d flat(0, 0, 1, 1);
    const Region3d deep;
    const std::vector<bool> two{false, true, true, false, false, false};
    const std::vector<bool> three{false, true, true, true, false, false};
    for (const auto& property : {flat.get, flat.put, flat.match}) {
        EXPECT_EQ(enabledChecks(*property), two);
    }
    for (const auto& property : {deep.get, deep.put, deep.match}) {
        EXPECT_EQ(enabledChecks(*property), three);
    }
}

TEST(ROIRuleUtils, TellTheLargerOfImageAndEnd)
{
    Region2d region(500, 100, 12, 50);
    EXPECT_EQ(region.get->getSizeX(), 512U);
    EXPECT_EQ(region.get->getSizeY(), 300U);
    region.move(500, 290, 13, 20);
    EXPECT_EQ(region.get->getSizeX(), 513U) << "attributes are read when a property is asked";
    EXPECT_EQ(region.get->getSizeY(), 310U);
    region.roi->init(createImage(*geometry2d(eImageBufferType::UInt8, 100, 5)));
    EXPECT_EQ(region.put->getSizeX(), 600U);
    EXPECT_EQ(region.put->getSizeY(), 300U);
    EXPECT_EQ(region.match->getSizeX(), 13U);
    EXPECT_EQ(region.match->getSizeY(), 20U);

    Region3d deep;
    EXPECT_EQ(deep.get->getSizeX(), 40U);
    EXPECT_EQ(deep.get->getSizeY(), 30U);
    EXPECT_EQ(deep.get->getVolumeGeometry().getSizeZ(), 20U);
    deep.size->init(attr::createImg3dSize(100, 200, 300));
    EXPECT_EQ(deep.get->getSizeX(), 101U);
    EXPECT_EQ(deep.get->getSizeY(), 202U);
    EXPECT_EQ(deep.get->getVolumeGeometry().getSizeZ(), 303U);
    EXPECT_TRUE(deep.get->getVolumeGeometry().is3d());
    deep.roi->init(createImage(*geometry3d(eImageBufferType::UInt8, 50, 51, 52)));
    EXPECT_EQ(deep.put->getSizeX(), 51U);
    EXPECT_EQ(deep.put->getSizeY(), 53U);
    EXPECT_EQ(deep.put->getVolumeGeometry().getSizeZ(), 55U);
    EXPECT_EQ(deep.match->getVolumeGeometry().getSizeZ(), 300U);
    EXPECT_TRUE(deep.match->getVolumeGeometry().is3d());
}

RC_GTEST_PROP(ROIRuleUtils, AgreeWithTheSumOf64Bits, (unsigned long x, unsigned long sizeX))
{
    Region2d region(x, 0, sizeX, 0);
    const unsigned long end = x + sizeX; // comes round
    RC_ASSERT(region.get->getSizeX() == std::max(end, 512UL));
    RC_ASSERT(region.failure().empty() == (end <= 512));
    const bool bWithin = x <= 512 && sizeX <= 512 - x;
    RC_ASSERT(regionWithin(region.in, region.get)->check().getValue() == bWithin);
}

TEST(ROIRuleUtils, TheWholeImageAndEmptyRegionsAtItsFarEdgePass)
{
    Region2d region(0, 0, 512, 300);
    EXPECT_EQ(region.failure(), "");
    region.move(512, 300, 0, 0);
    EXPECT_EQ(region.failure(), "");
    region.move(513, 300, 0, 0);
    EXPECT_EQ(region.failure(), "InImg is 512x300, the region 0x0 at (513, 300) ends at x = 513");
}

TEST(ROIRuleUtils, SayWhichAxisEndsOutside)
{
    Region2d region(450, 0, 100, 100);
    region.in->init(createImage(*geometry2d(eImageBufferType::UInt8, 512, 512)));
    EXPECT_EQ(region.failure(), "InImg is 512x512, the region 100x100 at (450, 0) ends at x = 550");
    region.move(0, 500, 100, 13);
    EXPECT_EQ(region.failure(), "InImg is 512x512, the region 100x13 at (0, 500) ends at y = 513");
    region.move(512, 512, 1, 1);
    EXPECT_EQ(region.failure(), "InImg is 512x512, the region 1x1 at (512, 512) ends at x = 513") << "the first one";
    region.roi->init(createImage(*geometry2d(eImageBufferType::UInt8, 3, 4)));
    region.move(0, 509, 1, 1);
    EXPECT_EQ(customImageProperty(region.in, region.put)->check().getMessage(),
              "InImg is 512x512, the region 3x4 at (0, 509) ends at y = 513");

    Region3d deep;
    deep.offset->init(attr::createImg3dOffset(0, 0, 15));
    EXPECT_EQ(deep.failure(), "InImg3d is 40x30x20, the region 4x5x6 at (0, 0, 15) ends at z = 21");
    deep.in->init(createImage(*geometry2d(eImageBufferType::UInt8, 40, 30)));
    deep.offset->init(attr::createImg3dOffset(0, 0, 0));
    deep.size->init(attr::createImg3dSize(4, 5, 1));
    EXPECT_EQ(deep.failure(), "InImg3d is 40x30, a single plan: the region 4x5x1 at (0, 0, 0) needs a volume");
}

TEST(ROIRuleUtils, EndsThatComeRoundPassTheCountOf64BitsAlone)
{
    Region2d region(g_most, 0, 2, 1);
    EXPECT_EQ(region.get->getSizeX(), 512U);
    EXPECT_EQ(region.failure(), "");
    EXPECT_EQ(regionWithin(region.in, region.get)->check().getMessage(),
              "InImg is 512x300, the region 2x1 at (18446744073709551615, 0) ends at x = 18446744073709551617");
    region.move(0, g_most, 1, g_most);
    EXPECT_EQ(regionWithin(region.in, region.get)->check().getMessage(),
              "InImg is 512x300, the region 1x18446744073709551615 at (0, 18446744073709551615) ends at y = "
              "36893488147419103230");
    region.move(0, g_most, 1, 1);
    EXPECT_EQ(regionWithin(region.in, region.get)->check().getMessage(),
              "InImg is 512x300, the region 1x1 at (0, 18446744073709551615) ends at y = 18446744073709551616");
}

TEST(ROIRuleUtils, InTwoDimensionsDepthDoesNotCount)
{
    Region2d region(10, 10, 20, 20);
    region.in->init(createImage(*image::geometry5d(eImageBufferType::UInt8, 30, 30, 7, 2, 3)));
    EXPECT_EQ(region.failure(), "");
    region.out->init(createImage(*geometry3d(eImageBufferType::UInt8, 20, 20, 3)));
    EXPECT_EQ(customImageProperty(region.out, region.match)->check().getMessage(), "");
    region.out->init(createImage(*geometry3d(eImageBufferType::UInt8, 20, 21, 3)));
    EXPECT_EQ(customImageProperty(region.out, region.match)->check().getMessage(),
              "OutImg is 20x21x3x1x1 UInt8, but needs 20 along y where it has 21");
}

TEST(ROIRuleUtils, MissingAttributesAreOneCase)
{
    const boost::weak_ptr<const attr::InInputImg2dOffset> none;
    const boost::shared_ptr<const attr::InOutputImg2dSize> null;
    Region2d region(0, 0, 1, 1);
    EXPECT_EQ(messageOf([&] { containsROI2d(region.in, none, region.size)->getSizeX(); }), g_null);
    EXPECT_EQ(messageOf([&] { containsROI2d(region.in, region.offset, null)->getSizeY(); }), g_null);
    EXPECT_EQ(messageOf([&] { matchROI2d(null)->getSizeX(); }), g_null);
    EXPECT_EQ(messageOf([&] { region.put->getSizeX(); }), g_null) << "an attribute that holds nothing";
    region.roi->init(ImagePtr());
    EXPECT_EQ(messageOf([&] { region.put->getSizeY(); }), g_null) << "nor one that holds a null pointer";
    EXPECT_THROW(matchROI2d(null)->getSizeX(), ORLIXIPLUtilityException);
    region.in->clear();
    EXPECT_NE(messageOf([&] { region.get->getSizeX(); }), "no exception");
    region.offset->clear();
    EXPECT_EQ(messageOf([&] { region.get->getSizeX(); }), g_null) << "the references come before the image";
}

TEST(ROIRuleUtils, KeptPropertiesOutliveTheAttributes)
{
    std::vector<CheckedImagePropertyPtr> flat;
    std::vector<CheckedImagePropertyPtr> deep;
    {
        const Region2d region(0, 0, 1, 1);
        flat = {region.get, region.put, region.match};
        const Region3d volume;
        deep = {volume.get, volume.put, volume.match};
    }
    for (const CheckedImagePropertyPtr& property : flat) {
        EXPECT_EQ(messageOf([&] { property->getSizeX(); }), g_null);
        EXPECT_EQ(messageOf([&] { property->getSizeY(); }), g_null);
    }
    for (const CheckedImagePropertyPtr& property : deep) {
        EXPECT_EQ(messageOf([&] { property->getSizeX(); }), g_null);
        EXPECT_EQ(messageOf([&] { property->getSizeY(); }), g_null);
        EXPECT_EQ(messageOf([&] { property->getVolumeGeometry(); }), g_null);
    }
}

TEST(ROIRuleUtils, ErrorsTellTheGetter)
{
    try {
        matchROI3d(boost::shared_ptr<const attr::InOutputImg3dSize>())->getVolumeGeometry();
        FAIL() << "no exception";
    } catch (const ORLIXIPLUtilityException& error) {
        EXPECT_NE(std::string(error.getFunction()).find("GetRoi3dOutputImageSize::getVolumeGeometry"),
                  std::string::npos)
            << error.getFunction();
        EXPECT_NE(std::string(error.getFile()).find("ROIRuleUtils.cpp"), std::string::npos);
    }
}

} // namespace
} // namespace orlix::imaproc::util
