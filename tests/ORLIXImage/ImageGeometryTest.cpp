// Sizes, types and text of a geometry.
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace orlix::image {
namespace {

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

BaseImageGeometry sequenceOf(const std::vector<eImageBufferType>& types)
{
    TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {types, 512, 256, VolumeGeometry(), ColorGeometry(), temporal};
}

TEST(ImageGeometry, HelpersSetAxesAndKinds)
{
    const auto plan = geometry2d(g_uint8, 512, 256);
    EXPECT_EQ(plan->toString(), "512x256x1x1x1 UInt8");
    EXPECT_FALSE(plan->getVolumeGeometry().is3d());
    EXPECT_FALSE(plan->getTemporalGeometry().isSequence());

    const auto volumeOfOne = geometry3d(g_uint8, 5, 4, 1);
    EXPECT_TRUE(volumeOfOne->getVolumeGeometry().is3d());
    EXPECT_EQ(volumeOfOne->toString(), "5x4x1x1x1 UInt8");

    const auto all = geometry5d(eImageBufferType::Real32, 5, 4, 3, 2, 7);
    EXPECT_EQ(all->toString(), "5x4x3x2x7 Real32");
    EXPECT_TRUE(all->getVolumeGeometry().is3d());
    EXPECT_TRUE(all->getTemporalGeometry().isSequence());
    EXPECT_EQ(all->getNbPlans(), 42u);
    EXPECT_EQ(all->getNbPixels(), 840u);

    const auto single = geometry5d(g_uint8, 5, 4, 1, 1, 1);
    EXPECT_FALSE(single->getVolumeGeometry().is3d());
    EXPECT_FALSE(single->getTemporalGeometry().isSequence());
}

TEST(ImageGeometry, OverflowingProductsAreExceptionsThatNameTheSizes)
{
    const auto huge = geometry5d(g_uint8, 1ul << 32, 1ul << 32, 2, 1, 1);
    try {
        (void)huge->getNbPixels();
        FAIL();
    } catch (const ORLIXImageException& exception) {
        EXPECT_STREQ(exception.what(),
                     "The size of an image of 4294967296x4294967296x2x1x1 UInt8 does not fit in 63 bits:"
                     " make one of its five sizes smaller");
    }
    EXPECT_EQ(huge->getNbPlans(), 2u);
    EXPECT_THROW((void)geometry5d(g_uint8, 1, 1, 1ul << 32, 1ul << 32, 1)->getNbPlans(), ORLIXImageException);
    EXPECT_EQ(geometry5d(g_uint8, 1ul << 63, 1ul << 63, 3, 0, 1)->getNbPixels(), 0u);
}

TEST(ImageGeometry, TypesByStep)
{
    const BaseImageGeometry mixed = sequenceOf({g_uint8, g_uint8, g_uint16, g_uint8});
    EXPECT_FALSE(mixed.hasUniformBufferType());
    EXPECT_EQ(mixed.getBufferType(), g_uint8);
    EXPECT_EQ(mixed.getBufferType(2), g_uint16);
    EXPECT_EQ(mixed.getBufferTypeVector(), (std::vector<eImageBufferType>{g_uint8, g_uint8, g_uint16, g_uint8}));
    EXPECT_EQ(mixed.toString(), "512x256x1x1x4 UInt8/UInt16/UInt8");

    const BaseImageGeometry uniform = sequenceOf({g_uint16, g_uint16});
    EXPECT_TRUE(uniform.hasUniformBufferType());
    EXPECT_EQ(uniform.toString(), "512x256x1x1x2 UInt16");
    EXPECT_EQ(uniform.getBufferTypeVector(), (std::vector<eImageBufferType>{g_uint16, g_uint16}));
}

TEST(ImageGeometry, NumberOfTypesMustBeNumberOfSteps)
{
    TemporalGeometry temporal;
    temporal.initSequence(3);
    try {
        const BaseImageGeometry geometry({g_uint8, g_uint16}, 5, 4, VolumeGeometry(), ColorGeometry(), temporal);
        FAIL();
    } catch (const ORLIXImageException& exception) {
        EXPECT_STREQ(exception.what(),
                     "A geometry of 3 time steps needs one buffer type per step, but 2 were given: give"
                     " as many as steps");
    }
}

TEST(ImageGeometry, ComparesSizesAndTypesApart)
{
    const auto a = geometry5d(g_uint8, 5, 4, 3, 2, 2);
    EXPECT_TRUE(a->hasSameSizes(*geometry5d(g_uint16, 5, 4, 3, 2, 2)));
    EXPECT_FALSE(a->hasSameSizes(*geometry5d(g_uint8, 6, 4, 3, 2, 2)));
    EXPECT_FALSE(a->hasSameSizes(*geometry5d(g_uint8, 5, 5, 3, 2, 2)));
    EXPECT_FALSE(a->hasSameSizes(*geometry5d(g_uint8, 5, 4, 2, 2, 2)));
    EXPECT_FALSE(a->hasSameSizes(*geometry5d(g_uint8, 5, 4, 3, 1, 2)));
    EXPECT_FALSE(a->hasSameSizes(*geometry5d(g_uint8, 5, 4, 3, 2, 1)));
    EXPECT_TRUE(a->hasSameBufferTypes(*geometry2d(g_uint8, 1, 1)));
    EXPECT_FALSE(a->hasSameBufferTypes(*geometry5d(eImageBufferType::eBufferUInt8Like, 5, 4, 3, 2, 2)));

    const BaseImageGeometry mixed = sequenceOf({g_uint8, g_uint16});
    EXPECT_TRUE(mixed.hasSameBufferTypes(sequenceOf({g_uint8, g_uint16})));
    EXPECT_FALSE(mixed.hasSameBufferTypes(sequenceOf({g_uint16, g_uint8})));
    EXPECT_FALSE(mixed.hasSameBufferTypes(sequenceOf({g_uint8, g_uint8})));
}

RC_GTEST_PROP(ImageGeometryProperty, PixelsAreTheProductOrAnException, ())
{
    const auto size = [] {
        return rc::gen::map(rc::gen::pair(rc::gen::inRange(0ul, 8ul), rc::gen::inRange(0ul, 32ul)),
                            [](const std::pair<unsigned long, unsigned long>& p) { return p.first << p.second; });
    };
    const auto s = *rc::gen::tuple(size(), size(), size(), size(), size());
    const auto [x, y, z, c, t] = s;
    const bool bEmpty = x == 0 || y == 0 || z == 0 || c == 0 || t == 0;
    unsigned long product = 1;
    bool bFits = true;
    for (const unsigned long factor : {x, y, z, c, t}) {
        bFits = bFits && (factor == 0 || product <= ~0ul / factor);
        product = bFits ? product * factor : product;
    }
    const auto geometry = geometry5d(g_uint8, x, y, z, c, t);
    if (bEmpty || bFits) {
        RC_ASSERT(geometry->getNbPixels() == (bEmpty ? 0ul : product));
    } else {
        RC_ASSERT_THROWS_AS((void)geometry->getNbPixels(), ORLIXImageException);
    }
}

} // namespace
} // namespace orlix::image
