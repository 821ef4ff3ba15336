// Rules about the values that an element type holds: when they hold, and what they say where they don't.
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIXImageProcessing/Rule/Pictures.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

template <class TValue>
struct InValue final : processor::NamedAttribute<InValue<TValue>, processor::BaseValueAttribute<TValue>>
{
    static constexpr const char* g_name = "InValue";
    static constexpr const char* g_toolTip = "A value";
};

struct RangeRow
{
    eImageBufferType::domain type;
    double smallest;
    double largest;
};

TEST(ValueRange, IsThatOfTheTypeComparedAsDoubles)
{
    using enum eImageBufferType::domain;
    const RangeRow table[] = {{Int8, -128, 127},
                              {UInt8, 0, 255},
                              {Int16, -32768, 32767},
                              {UInt16, 0, 65535},
                              {Int32, -2147483648.0, 2147483647.0},
                              {UInt32, 0, 4294967295.0},
                              {Real32, -FLT_MAX, FLT_MAX},
                              {eBufferBinary, 0, 1},
                              {eBufferUInt16Like, 0, 65535},
                              {eBufferUInt32Like, 0, 4294967295.0},
                              {eBufferUInt8Like, 0, 255}};
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto in = boost::make_shared<InPicture>();
    const auto strip = boost::make_shared<InStrip>();
    const auto value = boost::make_shared<InValue<double>>();
    const processor::RulePtr imageRule = matchImageRange<InValue<double>>(in, value);
    const processor::RulePtr stripRule = matchStripRange<InValue<double>>(strip, value);
    for (const RangeRow& row : table) {
        const ImagePtr image = createImage(*geometry2d(row.type, 2, 2));
        in->init(image);
        strip->init(boost::make_shared<image::InputImageYStrip2d>(*image, 0, 2));
        const auto holds = [&](double number) {
            value->init(number);
            const bool bHolds = imageRule->check().getValue();
            EXPECT_EQ(stripRule->check().getValue(), bHolds);
            return bHolds;
        };
        EXPECT_TRUE(holds(row.smallest)) << row.type;
        EXPECT_TRUE(holds(row.largest)) << row.type;
        EXPECT_TRUE(holds(0.25)) << row.type;
        EXPECT_FALSE(holds(std::nextafter(row.smallest, -infinity))) << row.type;
        EXPECT_FALSE(holds(std::nextafter(row.largest, infinity))) << row.type;
        EXPECT_FALSE(holds(infinity) || holds(-infinity) || holds(nan)) << row.type;
    }
}

TEST(ValueRange, IsThatOfEveryTimeStep)
{
    const auto in = boost::make_shared<InPicture>();
    const auto value = boost::make_shared<InValue<double>>();
    const processor::RulePtr rule = matchImageRange<InValue<double>>(in, value);
    in->init(createImage(mixedGeometry({g_uint16, eImageBufferType::Int8, g_uint8}, 3, 2, 1)));
    const auto against = [&](double number) {
        value->init(number);
        return failureOf(rule->check());
    };
    EXPECT_EQ(against(127), "no failure");
    EXPECT_EQ(against(128), "InValue is 128, but has to lie within the range of Int8, the element type of InPicture: "
                            "-128 to 127");
    EXPECT_EQ(against(-1), "InValue is -1, but has to lie within the range of UInt16, the element type of InPicture: 0 "
                           "to 65535");
}

TEST(ValueRange, NamesValueTypeAndRange)
{
    const auto in = boost::make_shared<InPicture>();
    const auto value = boost::make_shared<InValue<float>>();
    const processor::RulePtr rule = matchImageRange<InValue<float>>(in, value);
    value->init(255.5F);
    EXPECT_EQ(failureOf(rule->check()), "InPicture holds no image: set it before the run");
    in->init(createImage(*geometry2d(g_uint8, 2, 2)));
    EXPECT_EQ(failureOf(rule->check()),
              "InValue is 255.5, but has to lie within the range of UInt8, the element type of "
              "InPicture: 0 to 255");
    value->init(254.9F);
    EXPECT_EQ(failureOf(rule->check()), "no failure");
}

TEST(ValueRange, ItsTextHasAllDigitsInEveryLocale)
{
    const auto in = boost::make_shared<InPicture>();
    in->init(createImage(*geometry2d(eImageBufferType::UInt32, 2, 2)));
    const auto real = boost::make_shared<InValue<double>>();
    const auto single = boost::make_shared<InValue<float>>();
    real->init(4294967295.5);
    single->init(-0.1F);
    const std::string range =
        ", but has to lie within the range of UInt32, the element type of InPicture: 0 to 4294967295";
    const auto expectTexts = [&] {
        EXPECT_EQ(failureOf(matchImageRange<InValue<double>>(in, real)->check()), "InValue is 4294967295.5" + range);
        EXPECT_EQ(failureOf(matchImageRange<InValue<float>>(in, single)->check()), "InValue is -0.1" + range);
    };
    expectTexts();
    const orlix::testing::ScopedCppLocale scope;
    expectTexts();
    const auto out = boost::make_shared<OutPicture>();
    out->init(createImage(*geometry2d(eImageBufferType::UInt32, 1234, 2)));
    EXPECT_EQ(failureOf(matchSize(in, out)->check()),
              "OutPicture is 1234x2x1x1x1 UInt32, InPicture is 2x2x1x1x1 UInt32: sizes have to be the same");
}

} // namespace
} // namespace orlix::imaproc::test
