// The comparison that tests use finds a difference on every axis, tells where it is and shows what lies around.
#include "support/SameImages.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

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

/// One image lies densely in memory, the other has gaps everywhere, so that the bytes between its rows never count.
TEST(SameImages, FindsAnyOneElement)
{
    const auto geometry = image::geometry5d(eImageBufferType::UInt16, 3, 2, 3, 2, 2);
    std::vector<unsigned short> dense(3 * 2 * 3 * 2 * 2);
    std::vector<unsigned short> spread(1000, 7);
    const image::BufferStrides gaps = {5, 11, 37, 80};
    const ImagePtr one = image::wrapImage(*geometry, dense.data(), {3, 6, 18, 36}, nullptr);
    const ImagePtr other = image::wrapImage(*geometry, spread.data(), gaps, nullptr);
    const auto eachElement = [&](const auto& action) {
        for (unsigned long i = 0; i < dense.size(); ++i) {
            action(i, i % 3 + i / 3 % 2 * gaps.y + i / 6 % 3 * gaps.z + i / 18 % 2 * gaps.c + i / 36 * gaps.t);
        }
    };
    eachElement([&](unsigned long i, unsigned long place) {
        dense[i] = static_cast<unsigned short>(i);
        spread[place] = dense[i];
    });
    EXPECT_TRUE(sameImages(*one, *other));
    eachElement([&](unsigned long i, unsigned long place) {
        spread[place] ^= 0x100;
        const std::string text = sameImages(*one, *other).message();
        EXPECT_NE(text.find("1 of 36 pixels of time step " + std::to_string(i / 36) + " differ, the first at x " +
                            std::to_string(i % 3) + ", y " + std::to_string(i / 3 % 2) + ", z " +
                            std::to_string(i / 6 % 3) + ", c " + std::to_string(i / 18 % 2)),
                  std::string::npos)
            << text;
        spread[place] ^= 0x100;
    });
}

TEST(SameImages, OtherSizesAndTypesDiffer)
{
    const auto make = [](eImageBufferType type, unsigned long x, unsigned long y, unsigned long z, unsigned long c,
                         unsigned long t) { return image::createImage(*image::geometry5d(type, x, y, z, c, t)); };
    const ImagePtr image = make(eImageBufferType::UInt8, 0, 2, 2, 2, 2);
    EXPECT_TRUE(sameImages(*image, *make(eImageBufferType::UInt8, 0, 2, 2, 2, 2)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::UInt8, 1, 2, 2, 2, 2)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::UInt8, 0, 1, 2, 2, 2)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::UInt8, 0, 2, 1, 2, 2)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::UInt8, 0, 2, 2, 1, 2)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::UInt8, 0, 2, 2, 2, 1)));
    EXPECT_FALSE(sameImages(*image, *make(eImageBufferType::eBufferUInt8Like, 0, 2, 2, 2, 2)));
}

TEST(SameImages, TheTypeOfEveryTimeStepCounts)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(2);
    const auto make = [&](eImageBufferType second) {
        const ImagePtr image =
            image::createImage(image::BaseImageGeometry({eImageBufferType::UInt8, second}, 5, 1, {}, {}, temporal));
        for (unsigned long t = 0; t < 2; ++t) {
            std::memset(image->accessRow(0, 0, 0, t), 1, 5);
        }
        return image;
    };
    EXPECT_TRUE(sameImages(*make(eImageBufferType::Int8), *make(eImageBufferType::Int8)));
    EXPECT_FALSE(sameImages(*make(eImageBufferType::Int8), *make(eImageBufferType::UInt8)));
}

} // namespace
} // namespace orlix::testing
