// The comparison that tests use tells where images differ and shows what lies around.
#include "support/SameImages.h"

namespace orlix::testing {
namespace {

using image::eImageBufferType;

ImagePtr makeSteps()
{
    const ImagePtr image = image::createImage(*image::geometry5d(eImageBufferType::Real32, 6, 5, 2, 1, 2));
    for (unsigned long t = 0; t < 2; ++t) {
        for (unsigned long z = 0; z < 2; ++z) {
            for (unsigned long i = 0; i < 30; ++i) {
                image::planData<float>(*image, z, 0, t)[i] = static_cast<float>(i);
            }
        }
    }
    return image;
}

TEST(SameImages, EqualBitsAreTheSameAlsoWhereTheyAreNoNumber)
{
    const ImagePtr one = makeSteps();
    const ImagePtr other = makeSteps();
    image::planData<float>(*one, 1, 0, 1)[3] = std::numeric_limits<float>::quiet_NaN();
    image::planData<float>(*other, 1, 0, 1)[3] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(sameImages(*one, *other));
    image::planData<float>(*one, 0, 0, 0)[0] = -0.0F;
    EXPECT_FALSE(sameImages(*one, *other));
}

TEST(SameImages, ShowsTheFirstDifferenceAndItsNeighbours)
{
    const ImagePtr one = makeSteps();
    const ImagePtr other = makeSteps();
    image::planData<float>(*other, 1, 0, 1)[3 * 6 + 4] = 99.5F;
    image::planData<float>(*other, 1, 0, 1)[4 * 6 + 5] = -1;
    const ::testing::AssertionResult result = sameImages(*one, *other);
    EXPECT_FALSE(result);
    const std::string text = result.message();
    EXPECT_NE(text.find("6x5x2x1x2 Real32: 2 of 60 pixels of time step 1 differ, the first at x 4, y 3, z 1, c 0"),
              std::string::npos)
        << text;
    EXPECT_NE(
        text.find("\n>     3:          20          21          22          23   |          20          21        99.5"
                  "          23\n"),
        std::string::npos)
        << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4) << text;
}

TEST(SameImages, OtherSizesAndTypesDiffer)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 3, 2));
    const ImagePtr wide = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 4, 2));
    const ImagePtr like = image::createImage(*image::geometry2d(eImageBufferType::eBufferUInt8Like, 3, 2));
    EXPECT_FALSE(sameImages(*image, *wide));
    EXPECT_FALSE(sameImages(*image, *like));
}

} // namespace
} // namespace orlix::testing
