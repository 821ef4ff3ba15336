// Images whose pixels lie in any order and at any distance: where they are, what views and joined steps make of it.
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include "support/StepImages.h"
#include "support/StridedImages.h"
#include "support/ThrownText.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

namespace orlix::image {
namespace {

using orlix::testing::allStridedForms;
using orlix::testing::bytesOf;
using orlix::testing::forEachIndex;
using orlix::testing::g_stridedForms;
using orlix::testing::joined;
using orlix::testing::PixelIndex;
using orlix::testing::StridedForm;
using orlix::testing::StridedImage;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;
constexpr auto g_real32 = eImageBufferType::Real32;

/// What the call throws; nothing where it doesn't.
template <class TCall>
std::string textOf(const TCall& call)
{
    const std::string text = orlix::testing::thrownText<ORLIXImageException>(call);
    return text == "no exception" ? "" : text;
}

/// The pixel by the image's own distances.
const std::byte* pixelOf(const BaseImage& image, const PixelIndex& index)
{
    const auto size = static_cast<long>(elementSize(image.getBufferType(index[4])));
    return image.accessRow(index[1], index[2], index[3], index[4]) +
           static_cast<long>(index[0]) * image.getPixelStride(index[4]) * size;
}

TEST(StridedImage, ReachesEveryPixel)
{
    for (const eImageBufferType type : {g_uint8, g_uint16, g_real32}) {
        for (const PixelIndex& sizes : {PixelIndex{5, 4, 3, 2, 3}, {1, 4, 1, 2, 1}, {5, 1, 1, 1, 2}, {1, 1, 1, 1, 1}}) {
            const auto geometry = geometry5d(type, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]);
            for (const StridedForm& form : allStridedForms()) {
                SCOPED_TRACE(form.name + ", " + geometry->toString());
                const StridedImage image(*geometry, form);
                forEachIndex(sizes, [&](const PixelIndex& index) {
                    ASSERT_EQ(pixelOf(*image.getConst(), index), image.at(index));
                });
            }
        }
    }
}

TEST(StridedImage, TellsItsDistancesInElements)
{
    const auto geometry = geometry5d(g_uint16, 5, 4, 3, 2, 3);
    for (const StridedForm& form : allStridedForms()) {
        SCOPED_TRACE(form.name);
        const StridedImage image(*geometry, form);
        const ElementStrides strides = elementStrides(*image.getConst(), 1);
        forEachIndex({5, 4, 3, 2, 3}, [&](const PixelIndex& index) {
            const auto* const plan = stridedPlanData<std::uint16_t>(*image.getConst(), index[2], index[3], index[4]);
            const auto along = [&](int axis, long stride) { return static_cast<long>(index[axis]) * stride; };
            ASSERT_EQ(static_cast<const void*>(plan + along(0, strides.x) + along(1, strides.y)), image.at(index));
            const auto* const first = stridedPlanData<std::uint16_t>(*image.getConst(), 0, 0, 0);
            ASSERT_EQ(plan, first + along(2, strides.z) + along(3, strides.c) + along(4, strides.t));
        });
    }
    std::vector<unsigned char> memory(64);
    const ElementStrides ofOnes =
        elementStrides(*wrapImage(*geometry2d(g_uint8, 1, 1), memory.data(), ElementStrides{-3, 7, 8, 9, 10}, nullptr));
    EXPECT_EQ(ofOnes.x, 1);
    EXPECT_EQ(std::abs(ofOnes.y) + std::abs(ofOnes.z) + std::abs(ofOnes.c) + std::abs(ofOnes.t), 0);
    const ImagePtr image = createImage(*geometry2d(g_uint8, 3, 3));
    EXPECT_EQ(elementStrides(*image).y, 3);
    EXPECT_NE(textOf([&] { static_cast<void>(elementStrides(*image, 1)); }), "");
}

TEST(StridedImage, GivesPlansAsRowsOnlyWhereTheyAre)
{
    for (const StridedForm& form : allStridedForms()) {
        SCOPED_TRACE(form.name);
        const StridedImage image(*geometry5d(g_uint8, 5, 4, 3, 2, 2), form);
        const bool bForwards = image.at({1, 0, 0, 0, 0}) == image.at({0, 0, 0, 0, 0}) + 1 &&
                               image.at({0, 1, 0, 0, 0}) >= image.at({0, 0, 0, 0, 0});
        const auto refusal = textOf([&] { static_cast<void>(planData<unsigned char>(*image.getConst(), 0, 0, 0)); });
        EXPECT_EQ(refusal, bForwards
                               ? ""
                               : "Pixels or rows of an image of 5x4x3x2x2 UInt8 don't follow one another forwards "
                                 "in memory: use stridedPlanData and elementStrides");
        EXPECT_EQ(textOf([&] { static_cast<void>(rowPitch(*image.getConst())); }), refusal);
    }
}

TEST(StridedImage, ElementsThatOverlapCanOnlyBeRead)
{
    std::vector<unsigned char> memory(100);
    const auto geometry = geometry2d(g_uint8, 5, 4);
    const auto refusalOf = [&](const ElementStrides& strides) {
        return textOf([&] { static_cast<void>(wrapImage(*geometry, memory.data() + 50, strides, nullptr)); });
    };
    EXPECT_EQ(refusalOf({-1, -5, 0, 0, 0}), "");
    EXPECT_EQ(refusalOf({4, -1, 0, 0, 0}), "");
    EXPECT_EQ(refusalOf({1, -4, 0, 0, 0}), "Elements of an image of 5x4x1x1x1 UInt8 would overlap: the y stride is -4 "
                                           "elements, but must be 5 or more");
    EXPECT_NE(refusalOf({0, 5, 0, 0, 0}), "");
    EXPECT_NE(refusalOf({1, 0, 0, 0, 0}), "");
    EXPECT_NE(refusalOf({-2, 2, 0, 0, 0}), "");
    std::iota(memory.begin(), memory.end(), static_cast<unsigned char>(0));
    const ImageConstPtr windows = wrapConstImage(*geometry, memory.data() + 50, {1, -2, 0, 0, 0}, nullptr);
    forEachIndex({5, 4, 1, 1, 1}, [&](const PixelIndex& index) {
        EXPECT_EQ(std::to_integer<unsigned>(*pixelOf(*windows, index)), 50 + index[0] - 2 * index[1]);
    });
}

TEST(StridedImage, MayNotReachBeyondTheAddressSpace)
{
    const auto isRefused = [&](std::uintptr_t address, unsigned long sizeX, long stride) {
        return textOf([&] {
                   static_cast<void>(wrapImage(*geometry2d(g_uint8, sizeX, 1), reinterpret_cast<void*>(address),
                                               {stride, 1, 1, 1, 1}, nullptr)); // which reads no pixel
               }) != "";
    };
    constexpr std::uintptr_t low = 64;
    constexpr std::uintptr_t high = ~std::uintptr_t{0} - 63;
    EXPECT_FALSE(isRefused(low, 64, -1));
    EXPECT_TRUE(isRefused(low, 65, -1)) << "the last one would be at 0";
    EXPECT_FALSE(isRefused(low, 22, -3));
    EXPECT_TRUE(isRefused(low, 23, -3));
    EXPECT_FALSE(isRefused(high, 63, 1));
    EXPECT_TRUE(isRefused(high, 64, 1));
    EXPECT_FALSE(isRefused(high, 1000, -1));
    EXPECT_TRUE(isRefused(high, 3, std::numeric_limits<long>::min()));
    EXPECT_TRUE(isRefused(high, 3, std::numeric_limits<long>::max()));
    EXPECT_FALSE(isRefused(low, 2, std::numeric_limits<long>::max() - 1));
    EXPECT_TRUE(isRefused(low, 2, std::numeric_limits<long>::max())) << "with its last element";
}

TEST(StridedImage, ViewsShowThePixelsOfTheirPart)
{
    for (const StridedForm& form : allStridedForms()) {
        SCOPED_TRACE(form.name);
        const StridedImage image(*geometry5d(g_uint16, 5, 4, 3, 2, 4), form);
        const SubImage part(*image.getConst(), *geometry5d(g_uint16, 5, 4, 2, 1, 2), 1, 1, 2);
        forEachIndex({5, 4, 2, 1, 2}, [&](const PixelIndex& index) {
            ASSERT_EQ(pixelOf(part, index), image.at({index[0], index[1], index[2] + 1, 1, index[4] + 2}));
        });
    }
}

TEST(StridedImage, JoinedStepsKeepTheirDistances)
{
    const auto geometry = geometry5d(g_uint16, 5, 4, 3, 2, 2);
    for (const StridedForm& form : g_stridedForms) {
        SCOPED_TRACE(form.name);
        const StridedImage image(*geometry, form);
        const ImagePtr dense = createImage(*geometry5d(g_real32, 5, 4, 3, 2, 2));
        const ImagePtr sequence = joined(dense, image.get());
        forEachIndex({5, 4, 3, 2, 2}, [&](const PixelIndex& index) {
            ASSERT_EQ(pixelOf(*sequence, index), StridedImage::elementOf(*dense, index));
            ASSERT_EQ(pixelOf(*sequence, {index[0], index[1], index[2], index[3], index[4] + 2}), image.at(index));
        });
        EXPECT_EQ(sequence->getPixelStride(0), 1);
        EXPECT_EQ(sequence->getPixelStride(3), image.get()->getPixelStride(1));
        const SubImage plan(*sequence, planGeometry(*sequence, 3), 2, 1, 3);
        forEachIndex({5, 4, 1, 1, 1}, [&](const PixelIndex& index) {
            ASSERT_EQ(pixelOf(plan, index), image.at({index[0], index[1], 2, 1, 1}));
        });
        EXPECT_TRUE(plan.sharesPixelsWith(SubImage(*image.get(), planGeometry(*image.get(), 1), 2, 1, 1)));
    }
}

TEST(StridedImage, SharesPixelsWithTheSameOnesInTheSameOrderOnly)
{
    std::vector<unsigned char> memory(100);
    const auto wrap = [&](unsigned long sizeX, unsigned long sizeY, const ElementStrides& strides) {
        return wrapImage(*geometry2d(g_uint8, sizeX, sizeY), memory.data() + 50, strides, nullptr);
    };
    const ImagePtr image = wrap(4, 4, {1, 4, 0, 0, 0});
    EXPECT_TRUE(image->sharesPixelsWith(*wrap(4, 4, {1, 4, 9, 9, 9})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(4, 4, {-1, 4, 0, 0, 0})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(4, 4, {1, -4, 0, 0, 0})));
    EXPECT_FALSE(image->sharesPixelsWith(*wrap(4, 4, {4, 1, 0, 0, 0}))) << "columns are its rows";
    EXPECT_TRUE(wrap(4, 4, {4, 1, 0, 0, 0})->sharesPixelsWith(*wrap(4, 4, {4, 1, 0, 0, 0})));
    EXPECT_TRUE(wrap(1, 4, {1, 4, 0, 0, 0})->sharesPixelsWith(*wrap(1, 4, {-7, 4, 0, 0, 0})));
}

TEST(RowReader, GivesRowsSideBySide)
{
    for (const eImageBufferType type : {g_uint8, g_uint16, g_real32}) {
        for (const StridedForm& form : allStridedForms()) {
            SCOPED_TRACE(form.name);
            StridedImage image(*geometry5d(type, 9, 4, 3, 2, 2), form);
            image.fillRandom(4);
            const unsigned long size = elementSize(type);
            RowReader rows;
            forEachIndex({9, 4, 3, 2, 2}, [&](const PixelIndex& index) {
                const unsigned long first = index[0];
                const unsigned long count = (9 - first + 1) / 2;
                const std::byte* const run =
                    rows.read(*image.getConst(), first, count, index[1], index[2], index[3], index[4]);
                for (unsigned long i = 0; i < count; ++i) {
                    ASSERT_EQ(std::memcmp(run + i * size, image.at({first + i, index[1], index[2], index[3], index[4]}),
                                          size),
                              0);
                }
                if (image.getConst()->getPixelStride(0) == 1) {
                    ASSERT_EQ(run, image.at(index)) << "no copy";
                }
            });
        }
    }
}

TEST(CopyRun, FromAnyDistanceToAnyOther)
{
    for (const unsigned long size : {1UL, 2UL, 4UL}) {
        for (const long toStride : {1L, -1L, 3L}) {
            for (const long fromStride : {1L, -2L, 2L, 0L}) {
                std::vector<std::byte> from(40 * size);
                for (unsigned long i = 0; i < from.size(); ++i) {
                    from[i] = std::byte(i + 1);
                }
                std::vector<std::byte> to(40 * size);
                std::vector<std::byte> expected = to;
                for (long i = 0; i < 6; ++i) {
                    std::memcpy(expected.data() + (20 + i * toStride) * static_cast<long>(size),
                                from.data() + (20 + i * fromStride) * static_cast<long>(size), size);
                }
                copyRun(to.data() + 20 * size, toStride, from.data() + 20 * size, fromStride, 6, size);
                EXPECT_EQ(to, expected) << fromStride << " to " << toStride << ", " << size << " bytes";
            }
        }
    }
}

} // namespace
} // namespace orlix::image
