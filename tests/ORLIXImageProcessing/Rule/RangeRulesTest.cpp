// Leaves of data items against the range of an element type, one name for images and strips, and the plain predicates.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/RangeRules.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImagePredicates.h"

#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;

struct LimitLeaves
{
    struct Low : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Low";
    };
    struct High : DataItemLeaf<float>
    {
        static constexpr const char* g_name = "High";
    };
};
struct LimitsRecord : LimitLeaves, DataItemLeaves<LimitLeaves::Low, LimitLeaves::High>
{
    static constexpr const char* g_className = "orlix::imaproc::test::Limits";
};
class Limits final : public DataItemNode<Limits, LimitsRecord>
{};

struct InLimits final : processor::NamedAttribute<InLimits, processor::BaseInputMandatoryDataItemAttribute<Limits>>
{
    static constexpr const char* g_name = "InLimits";
    static constexpr const char* g_toolTip = "Two limits";
};
struct InBound final : processor::NamedAttribute<InBound, processor::BaseValueAttribute<double>>
{
    static constexpr const char* g_name = "InBound";
    static constexpr const char* g_toolTip = "A bound";
};

boost::shared_ptr<Limits> limits(double low, float high)
{
    auto item = boost::make_shared<Limits>();
    item->access<Limits::Low>() = low;
    item->access<Limits::High>() = high;
    return item;
}

TEST(LeafRange, IsThatOfTheImagesTypeAndNamesTheLeaf)
{
    const auto image = boost::make_shared<InPicture>();
    auto item = boost::make_shared<InLimits>();
    const processor::RulePtr low = matchImageRange<Limits::Low>(image, item);
    const processor::RulePtr high = matchRange<Limits::High>(image, item);
    EXPECT_EQ(failureOf(low->check()), "InLimits holds nothing: set it before the run");
    item->init(limits(-0.5, 255));
    EXPECT_EQ(failureOf(low->check()), "InPicture holds no image: set it before the run");
    image->init(createImage(*geometry2d(eImageBufferType::UInt8, 2, 2)));
    EXPECT_EQ(failureOf(high->check()), "no failure");
    EXPECT_EQ(failureOf(low->check()), "Low of InLimits is -0.5, but has to lie within the range of UInt8, the element "
                                       "type of InPicture: 0 to 255");
    item->init(limits(0, 255.1F));
    EXPECT_EQ(failureOf(low->check()), "no failure");
    EXPECT_EQ(failureOf(high->check()), "High of InLimits is 255.1, but has to lie within the range of UInt8, the "
                                        "element type of InPicture: 0 to 255");
    item.reset();
    EXPECT_EQ(failureOf(low->check()),
              "An attribute of the rule no longer exists: keep the processor that the rule was made for");
}

TEST(LeafRange, OfStripsOfAnyKind)
{
    const auto item = boost::make_shared<InLimits>();
    item->init(limits(-1, 1));
    const ImagePtr grey = createImage(*image::geometry3d(eImageBufferType::UInt8, 2, 2, 2));
    const ImagePtr real = createImage(*image::geometry3d(eImageBufferType::Real32, 2, 2, 2));
    const auto outGrey = stripAttribute<OutVolumeStrip>(grey, 0UL, 2UL);
    const auto outReal = stripAttribute<OutVolumeStrip>(real, 0UL, 2UL);
    EXPECT_EQ(failureOf(matchStripRange<Limits::Low>(outGrey, item)->check()),
              "Low of InLimits is -1, but has to lie within the range of UInt8, the element type of OutVolumeStrip: 0 "
              "to 255");
    EXPECT_EQ(failureOf(matchRange<Limits::Low>(outReal, item)->check()), "no failure");
    const auto bound = boost::make_shared<InBound>();
    bound->init(256);
    EXPECT_EQ(failureOf(matchRange<InBound>(outGrey, processor::AttributeRef<const InBound>(bound))->check()),
              "InBound is 256, but has to lie within the range of UInt8, the element type of OutVolumeStrip: 0 to 255");
}

TEST(ImagePredicates, OfImages)
{
    using enum eImageBufferType::domain;
    const ImagePtr one = createImage(*geometry2d(UInt8, 4, 3));
    const ImagePtr wide = createImage(*geometry2d(UInt8, 5, 3));
    const ImagePtr deep = createImage(*geometry2d(UInt16, 4, 3));
    const ImagePtr mixed = createImage(mixedGeometry({UInt16, Int8}, 4, 3, 1));
    EXPECT_TRUE(isSameSize(*one, *deep));
    EXPECT_FALSE(isSameSize(*one, *wide));
    EXPECT_TRUE(isSameSizeAndType(*one, *one));
    EXPECT_FALSE(isSameSizeAndType(*one, *deep));
    EXPECT_FALSE(isSameSizeAndType(*one, *wide));
    EXPECT_TRUE(isOfBufferType(*deep, UInt16));
    EXPECT_FALSE(isOfBufferType(*mixed, UInt16)) << "every time step";
    EXPECT_TRUE(isInRange(*deep, 65535));
    EXPECT_FALSE(isInRange(*mixed, 65535));
    EXPECT_TRUE(isInRange(*mixed, 127));
    EXPECT_FALSE(isInRange(*mixed, -1));
    for (const double none : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(isInRange(*createImage(*geometry2d(Real32, 1, 1)), none));
    }
}

TEST(ImagePredicates, OfStrips)
{
    using enum eImageBufferType::domain;
    const ImagePtr plan = createImage(*geometry2d(UInt8, 4, 9));
    const image::InputImageYStrip2d strip(*plan, 2, 3);
    const image::OutputImageYStrip2d other(*plan, 4, 3);
    EXPECT_TRUE(isSameSizeAndType(strip, other));
    EXPECT_FALSE(isSameSize(strip, image::OutputImageYStrip2d(*plan, 4, 4)));
    EXPECT_TRUE(isOfBufferType(strip, UInt8));
    EXPECT_FALSE(isInRange(strip, 256));
    const ImagePtr volume = createImage(*image::geometry3d(Int16, 4, 5, 6));
    const image::InputImageZStrip3d plans(*volume, 1, 2);
    EXPECT_TRUE(isSameSizeAndType(plans, image::OutputImageZStrip3d(*volume, 3, 2)));
    EXPECT_FALSE(isSameSizeAndType(plans, image::OutputImageZStrip3d(*volume, 3, 3)));
    EXPECT_FALSE(isSameBufferType(plans, strip));
    EXPECT_TRUE(isInRange(plans, -32768));
}

} // namespace
} // namespace orlix::imaproc::test
