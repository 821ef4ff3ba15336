// What matchSlice answers, and when it can't.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using Check = eCheckableImageProperty;

const char* const g_null = "Input attribute should not be null";

struct SliceAttributes
{
    boost::shared_ptr<attr::InImg3d> volume = boost::make_shared<attr::InImg3d>();
    boost::shared_ptr<attr::InImg2d> slice = boost::make_shared<attr::InImg2d>();
    boost::shared_ptr<attr::InAxis> axis = boost::make_shared<attr::InAxis>();

    SliceAttributes()
    {
        volume->init(ImageConstPtr(image::createImage(*image::geometry3d(eImageBufferType::UInt8, 4, 5, 6))));
    }
};

TEST(MatchSliceTest, keepsTheAxesThatRemain)
{
    const SliceAttributes own;
    for (const auto& property : {matchSlice(own.volume, own.axis), matchSlice(own.slice, own.volume, own.axis)}) {
        const auto expect = [&](eAxis::domain axis, unsigned long x, unsigned long y) {
            own.axis->init(axis);
            EXPECT_EQ(property->getSizeX(), x);
            EXPECT_EQ(property->getSizeY(), y);
            EXPECT_FALSE(property->getVolumeGeometry().is3d());
            EXPECT_EQ(property->getVolumeGeometry().getSizeZ(), 1U);
        };
        expect(eAxis::eX, 5, 6);
        expect(eAxis::eY, 4, 6);
        expect(eAxis::eZ, 4, 5);
    }
}

TEST(MatchSliceTest, looksAtSizesAndVolumeAlone)
{
    const SliceAttributes own;
    for (const auto& property : {matchSlice(own.volume, own.axis), matchSlice(own.slice, own.volume, own.axis)}) {
        for (const Check::domain check : {Check::eSizeX, Check::eSizeY, Check::eVolumeGeometry}) {
            EXPECT_TRUE(property->isCheckEnabled(check));
        }
        for (const Check::domain check : {Check::eBufferType, Check::eColorGeometry, Check::eTemporalGeometry}) {
            EXPECT_FALSE(property->isCheckEnabled(check));
        }
        EXPECT_FALSE(property->areChecksDisable());
    }
}

TEST(MatchSliceTest, tellsWhatAnImageShouldHaveBeen)
{
    const SliceAttributes own;
    own.axis->init(eAxis::eY);
    own.slice->init(ImageConstPtr(image::createImage(*image::geometry2d(eImageBufferType::UInt8, 4, 7))));
    const processor::RulePtr rule = customImageProperty(own.slice, matchSlice(own.slice, own.volume, own.axis));
    EXPECT_EQ(rule->check().getMessage(), "InImg2d is 4x7x1x1x1 UInt8, but needs 6 along y where it has 7: "
                                          "it has to be a slice along y of InImg3d, which is 4x5x6x1x1 UInt8");
    own.slice->init(ImageConstPtr(image::createImage(*image::geometry2d(eImageBufferType::Real32, 4, 6))));
    EXPECT_TRUE(rule->check()) << "the element type isn't looked at";
}

/// Every question that the property answers from its attributes.
void expectRaised(const BaseCustomCheckedImageProperty& property)
{
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(property.getSizeX()); }), g_null);
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(property.getSizeY()); }), g_null);
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(property.getVolumeGeometry()); }), g_null);
    EXPECT_THROW(static_cast<void>(property.getSizeX()), ORLIXIPLUtilityException);
}

TEST(MatchSliceTest, attributesThatAreGoneOrHoldNothing)
{
    SliceAttributes own;
    const boost::weak_ptr<const BaseImageAttribute> noImage;
    const boost::weak_ptr<const attr::InAxis> noAxis;
    expectRaised(*matchSlice(noImage, own.axis));
    expectRaised(*matchSlice(own.volume, noAxis));
    expectRaised(*matchSlice(own.slice, noImage, own.axis));
    expectRaised(*matchSlice(own.slice, own.axis)); // no image has been set

    const auto property = matchSlice(own.slice, own.volume, own.axis);
    own.slice.reset();
    EXPECT_EQ(property->getSizeX(), 5U) << "the slice itself isn't asked";
    own.volume->init(ImageConstPtr());
    expectRaised(*property);
    own.volume.reset();
    expectRaised(*property);

    SliceAttributes other;
    const auto withoutAxis = matchSlice(other.volume, other.axis);
    other.axis.reset();
    expectRaised(*withoutAxis);
}

TEST(MatchSliceTest, mayOutliveItsProcessor)
{
    boost::shared_ptr<BaseCustomCheckedImageProperty> kept;
    {
        const SliceAttributes own;
        kept = matchSlice(own.volume, own.axis);
        EXPECT_EQ(kept->getSizeX(), 5U);
    }
    expectRaised(*kept);
}

} // namespace
} // namespace orlix::imaproc::util
