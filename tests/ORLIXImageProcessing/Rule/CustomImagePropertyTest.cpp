// What an image has to look like where that follows from other attributes.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/CustomImageProperty.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/ORLIXImageProcessingException.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using Property = eCheckableImageProperty;

const Property::domain g_all[] = {Property::eBufferType,     Property::eSizeX,         Property::eSizeY,
                                  Property::eVolumeGeometry, Property::eColorGeometry, Property::eTemporalGeometry};

/// Twice as wide as the input, and two types allowed.
class TwiceAsWide final : public BaseCustomCheckedImageProperty
{
public:
    bool m_bDisabled = false;

    bool areChecksDisable() const override { return m_bDisabled; }
    std::vector<eImageBufferType> getAllowedImageBufferTypes() const override
    {
        return {eImageBufferType::UInt8, eImageBufferType::Int16};
    }
    unsigned long getSizeX() const override
    {
        const ImageConstPtr image = getInputImage();
        return image ? 2 * image->getSizeX() : 77;
    }
};

struct Checked
{
    boost::shared_ptr<InPicture> in = boost::make_shared<InPicture>();
    boost::shared_ptr<OutPicture> out = boost::make_shared<OutPicture>();
    boost::shared_ptr<TwiceAsWide> property = boost::make_shared<TwiceAsWide>();
    processor::RulePtr rule;

    Checked()
    {
        property->initBase(in);
        rule = customImageProperty(out, property);
        in->init(createImage(*geometry5d(eImageBufferType::UInt8, 3, 4, 5, 2, 6)));
    }
    std::string against(const boost::shared_ptr<image::BaseImageGeometry>& geometry)
    {
        out->init(createImage(*geometry));
        return failureOf(rule->check());
    }
};

TEST(CustomImageProperty, WithoutACheckEveryImageIsRight)
{
    Checked checked;
    EXPECT_EQ(failureOf(checked.rule->check()), "OutPicture holds no image: set it before the run");
    EXPECT_EQ(checked.against(geometry5d(eImageBufferType::Real32, 1, 1, 1, 1, 1)), "no failure");
    EXPECT_FALSE(checked.property->isCheckEnabled(Property::eSizeX));
}

TEST(CustomImageProperty, ComparesWhatIsEnabledAndNothingElse)
{
    const auto other = geometry5d(eImageBufferType::Real32, 7, 8, 1, 3, 9);
    const std::string found = "OutPicture is 7x8x1x3x9 Real32, but needs ";
    const std::string wanted[] = {"element type UInt8 or Int16", "6 along x where it has 7",
                                  "4 along y where it has 8",    "a volume of 5 along z where it has a single plan",
                                  "2 along c where it has 3",    "6 along t where it has 9"};
    std::string all;
    Checked every;
    for (const Property::domain each : g_all) {
        Checked one;
        one.property->enableCheck(each);
        EXPECT_EQ(one.against(other), found + wanted[each]);
        EXPECT_EQ(one.against(geometry5d(eImageBufferType::Int16, 6, 4, 5, 2, 6)), "no failure");
        every.property->enableCheck(each);
        all += (all.empty() ? "" : ", ") + wanted[each];
    }
    EXPECT_EQ(every.against(other), found + all);
    EXPECT_EQ(every.against(geometry5d(eImageBufferType::UInt8, 6, 4, 5, 2, 6)), "no failure");
    every.property->m_bDisabled = true;
    EXPECT_EQ(every.against(other), "no failure");
}

TEST(CustomImageProperty, AVolumeIsComparedByKindAndATimeAxisBySizeAlone)
{
    Checked checked;
    checked.property->enableCheck(Property::eVolumeGeometry);
    checked.property->enableCheck(Property::eTemporalGeometry);
    checked.in->init(createImage(*image::geometry3d(eImageBufferType::UInt8, 3, 4, 1)));
    EXPECT_EQ(checked.against(image::geometry2d(eImageBufferType::UInt8, 3, 4)),
              "OutPicture is 3x4x1x1x1 UInt8, but needs a volume of 1 along z where it has a single plan");
    EXPECT_EQ(checked.against(image::geometry3d(eImageBufferType::UInt8, 3, 4, 1)), "no failure");
    checked.out->init(createImage(mixedGeometry({eImageBufferType::UInt8}, 3, 4, 1)));
    EXPECT_EQ(failureOf(checked.rule->check()), "no failure") << "a sequence of one step";
}

TEST(CustomImageProperty, ReadsTheAttributesWhenItIsAsked)
{
    Checked checked;
    checked.property->enableCheck(Property::eSizeX);
    EXPECT_EQ(checked.against(geometry5d(eImageBufferType::UInt8, 10, 4, 1, 1, 1)),
              "OutPicture is 10x4x1x1x1 UInt8, but needs 6 along x where it has 10");
    checked.in->init(createImage(*image::geometry2d(eImageBufferType::UInt8, 5, 5)));
    EXPECT_EQ(failureOf(checked.rule->check()), "no failure");
}

TEST(CustomImageProperty, MayOutliveTheProcessorWhoseAttributesItReads)
{
    Checked checked;
    checked.in.reset();
    EXPECT_EQ(checked.property->getSizeX(), 77u) << "no image";
    EXPECT_THROW(static_cast<void>(checked.property->getSizeY()), ORLIXImageProcessingException);
    checked.property->enableCheck(Property::eSizeY);
    checked.out->init(createImage(*image::geometry2d(eImageBufferType::UInt8, 5, 5)));
    EXPECT_THROW(static_cast<void>(checked.rule->check()), ORLIXImageProcessingException);
    checked.property->initBase({});
    EXPECT_THROW(static_cast<void>(checked.property->getVolumeGeometry()), ORLIXImageProcessingException);
    checked.out.reset();
    EXPECT_EQ(failureOf(checked.rule->check()),
              "An attribute of the rule no longer exists: keep the processor that the rule was made for");
}

} // namespace
} // namespace orlix::imaproc::test
