// Images over memory of the caller's: strides, refusals, ownership, borders.
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"
#include "ORLIXIPL/ORLIXImage/WrappedImage.h"
#include "support/GuardedMemory.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <set>

namespace orlix::image {
namespace {

using orlix::testing::GuardEdge;
using orlix::testing::GuardedMemory;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

std::string messageOf(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides)
{
    try {
        (void)wrapImage(geometry, data, strides, nullptr);
    } catch (const ORLIXImageException& exception) {
        return exception.what();
    }
    return "no exception";
}

template <class TAction>
void forEachRow(const BaseImage& image, const TAction& action)
{
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < image.getSizeY(); ++y) {
                    action(y, z, c, t);
                }
            }
        }
    }
}

TEST(WrapImage, ReachesTheElementsByTheGivenStrides)
{
    std::vector<unsigned short> memory(2000);
    std::iota(memory.begin(), memory.end(), static_cast<unsigned short>(0));
    const BufferStrides strides{7, 41, 130, 500}; // gaps on every axis
    const ImagePtr image = wrapImage(*geometry5d(g_uint16, 5, 4, 3, 2, 3), memory.data(), strides, nullptr);
    EXPECT_EQ(rowPitch(*image), 7u);
    EXPECT_EQ(image->getImageType(), eImageType::eWrappedImage);
    EXPECT_EQ(image->getImageBaseType(), eImageBaseType::eHostImage);
    EXPECT_FALSE(image->getPixelLayout().bDense);
    EXPECT_FALSE(image->getPixelLayout().bRoomBehindPlans);
    forEachRow(*image, [&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
        EXPECT_EQ(*extractBufferFromImage<unsigned short>(*image, y, z, c, t), 7 * y + 41 * z + 130 * c + 500 * t);
    });
}

TEST(WrapImage, AxesMayLieInAnyOrder)
{
    std::vector<unsigned char> memory(2 * 3 * 4 * 5);
    // Rows of a channel lie between those of the other, and z is outermost.
    const ImagePtr image = wrapImage(*geometry5d(g_uint8, 5, 4, 3, 2, 1), memory.data(), {10, 40, 5, 0}, nullptr);
    std::set<void*> rows;
    forEachRow(*image, [&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
        rows.insert(image->accessRow(y, z, c, t));
    });
    EXPECT_EQ(rows.size(), 24u);
    EXPECT_EQ(image->accessRow(1, 2, 1, 0) - image->accessRow(0, 0, 0, 0), 10 + 80 + 5);
}

TEST(WrapImage, StridesOfAxesOfOneAreNotLookedAt)
{
    std::vector<unsigned char> memory(64);
    const unsigned long most = ~0ul;
    const ImagePtr row = wrapImage(*geometry2d(g_uint8, 64, 1), memory.data(), {most, 0, 1, most}, nullptr);
    EXPECT_TRUE(row->getPixelLayout().bDense);
    EXPECT_EQ(rowPitch(*row), 64u);
    const ImagePtr plan = wrapImage(*geometry2d(g_uint8, 8, 8), memory.data(), {8, 0, most, 3}, nullptr);
    EXPECT_TRUE(plan->getPixelLayout().bDense);
    EXPECT_EQ(plan->accessRow(7, 0, 0, 0), plan->accessRow(0, 0, 0, 0) + 56);
}

TEST(WrapImage, RefusesOverlap)
{
    std::vector<unsigned char> memory(1000);
    unsigned char* const data = memory.data();
    EXPECT_EQ(messageOf(*geometry2d(g_uint8, 10, 10), data, {9, 0, 0, 0}),
              "Elements of an image of 10x10x1x1x1 UInt8 would overlap: the y stride is 9 elements, but must be 10 or"
              " more");
    const auto all = geometry5d(g_uint8, 5, 4, 3, 2, 2);
    EXPECT_EQ(messageOf(*all, data, {5, 20, 60, 120}), "no exception");
    EXPECT_NE(messageOf(*all, data, {0, 20, 60, 120}), "no exception");
    EXPECT_NE(messageOf(*all, data, {5, 19, 60, 120}), "no exception");
    EXPECT_NE(messageOf(*all, data, {5, 20, 59, 120}), "no exception");
    EXPECT_NE(messageOf(*all, data, {5, 20, 60, 119}), "no exception");
    EXPECT_NE(messageOf(*all, data, {5, 20, 60, 60}), "no exception");
    EXPECT_NE(messageOf(*all, data, {5, 20, 60, 0}), "no exception");
}

TEST(WrapImage, RefusesWhatReachesBeyondTheAddressSpace)
{
    std::vector<unsigned char> memory(64);
    const auto* const text = "reaches beyond the address space";
    for (const BufferStrides& strides : {BufferStrides{1ul << 63, 0, 0, 0}, BufferStrides{~0ul, 0, 0, 0}}) {
        EXPECT_NE(messageOf(*geometry2d(g_uint8, 4, 4), memory.data(), strides).find(text), std::string::npos);
    }
    EXPECT_NE(
        messageOf(*geometry2d(eImageBufferType::Int32, 1ul << 61, 2), memory.data(), {1ul << 61, 0, 0, 0}).find(text),
        std::string::npos);
    void* const nearTheEnd = reinterpret_cast<void*>(~0ul - 10);
    EXPECT_NE(messageOf(*geometry2d(g_uint8, 100, 1), nearTheEnd, {100, 0, 0, 0}).find(text), std::string::npos);
}

TEST(WrapImage, RefusesNullMisalignedUntypedAndMixed)
{
    alignas(64) std::array<unsigned char, 64> memory{};
    EXPECT_NE(messageOf(*geometry2d(g_uint8, 4, 4), nullptr, {4, 0, 0, 0}).find("null pointer"), std::string::npos);
    EXPECT_NE(
        messageOf(*geometry2d(g_uint16, 4, 4), memory.data() + 1, {4, 0, 0, 0}).find("multiple of its element size, 2"),
        std::string::npos);
    EXPECT_EQ(messageOf(*geometry2d(g_uint8, 4, 4), memory.data() + 1, {4, 0, 0, 0}), "no exception");
    EXPECT_NE(
        messageOf(*geometry2d(eImageBufferType::eNoBuffer, 4, 4), memory.data(), {4, 0, 0, 0}).find("no element type"),
        std::string::npos);
    TemporalGeometry temporal;
    temporal.initSequence(2);
    const BaseImageGeometry mixed({g_uint8, g_uint16}, 4, 4, VolumeGeometry(), ColorGeometry(), temporal);
    EXPECT_NE(messageOf(mixed, memory.data(), {4, 0, 0, 16}).find("differ in type"), std::string::npos);
}

TEST(WrapImage, WithoutElementsNeedsNoMemory)
{
    for (const auto& geometry : {geometry2d(g_uint16, 0, 4), geometry2d(g_uint16, 4, 0),
                                 geometry5d(g_uint16, 4, 4, 1, 0, 1), geometry5d(g_uint16, 4, 4, 1, 1, 0)}) {
        const ImagePtr image = wrapImage(*geometry, nullptr, {0, 0, 0, 0}, nullptr);
        EXPECT_EQ(image->getGeometry().getNbPixels(), 0u);
        EXPECT_NE(image->getPixelLayout().first, nullptr);
    }
}

TEST(WrapImage, KeepsTheOwnerForItselfAndItsViews)
{
    auto owner = boost::make_shared<std::vector<unsigned char>>(100, static_cast<unsigned char>(7));
    const boost::weak_ptr<void> watch = owner;
    ImagePtr image = wrapImage(*geometry3d(g_uint8, 5, 4, 5), owner->data(), {5, 20, 0, 0}, owner);
    owner.reset();
    EXPECT_FALSE(watch.expired());
    auto view = boost::make_shared<SubImage>(*image, planGeometry(*image, 0), 4, 0, 0);
    image.reset();
    EXPECT_FALSE(watch.expired());
    EXPECT_EQ(planData<unsigned char>(*view, 0, 0, 0)[19], 7);
    view.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(WrapImage, AFailedCallLetsGoOfTheOwner)
{
    auto owner = boost::make_shared<std::vector<unsigned char>>(100);
    EXPECT_THROW((void)wrapImage(*geometry2d(g_uint8, 10, 10), owner->data(), {1, 0, 0, 0}, owner),
                 ORLIXImageException);
    EXPECT_EQ(owner.use_count(), 1);
}

TEST(WrapImage, TouchesNothingBesideTheElements)
{
    for (const GuardEdge edge : {GuardEdge::eBegin, GuardEdge::eEnd}) {
        const GuardedMemory memory(5 * 20 * sizeof(unsigned short), edge);
        const ImagePtr image = wrapImage(*geometry3d(g_uint16, 5, 4, 5), memory.data(), {5, 20, 0, 0}, nullptr);
        forEachRow(*image, [&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
            std::fill_n(extractBufferFromImage<unsigned short>(*image, y, z, c, t), 5, static_cast<unsigned short>(9));
        });
        EXPECT_TRUE(std::all_of(memory.as<unsigned short>(), memory.as<unsigned short>() + 100,
                                [](unsigned short value) { return value == 9; }));
        EXPECT_TRUE(memory.isSurroundingIntact());
    }
}

// Axes are nested in a random order with random gaps, so all elements must be apart and inside; a stride shorter than a
// row must be refused.
TEST(WrappedImage, LiesAsASharedOneDoes)
{
    std::vector<unsigned short> memory(2000);
    const BufferStrides strides{7, 41, 130, 500};
    const auto geometry = geometry5d(g_uint16, 5, 4, 3, 2, 3);
    WrappedImage image(*geometry, memory.data(), strides);
    const ImagePtr shared = wrapImage(*geometry, memory.data(), strides, nullptr);
    EXPECT_TRUE(image.sharesPixelsWith(*shared));
    EXPECT_EQ(image.getImageType(), eImageType::eWrappedImage);
    EXPECT_EQ(image.getGeometry().toString(), geometry->toString());
    EXPECT_EQ(image.getPixelLayout().place, shared->getPixelLayout().place);
    EXPECT_FALSE(image.reinitialize(*geometry5d(g_uint16, 5, 4, 3, 2, 4)));
}

TEST(WrappedImage, IsLentWithoutBeingOwned)
{
    unsigned char element = 0;
    WrappedImage image(*geometry2d(g_uint8, 1, 1), &element, {1, 1, 1, 1});
    const ImagePtr lent = image.lend();
    EXPECT_EQ(lent.get(), &image);
    EXPECT_EQ(lent.use_count(), 0);
}

TEST(WrappedImage, RefusesWhatWrapImageRefuses)
{
    std::vector<unsigned char> memory(100);
    EXPECT_THROW(WrappedImage(*geometry2d(g_uint8, 5, 2), memory.data(), {4, 0, 0, 0}), ORLIXImageException);
    EXPECT_THROW(WrappedImage(*geometry2d(g_uint8, 5, 2), nullptr, {5, 0, 0, 0}), ORLIXImageException);
}

TEST(WrapPart, IsWrittenAsTheWholeBufferWouldBe)
{
    unsigned char element = 0;
    const auto placeIn = [&](unsigned long bufferBytes) {
        return wrapPart(*geometry2d(g_uint8, 1, 1), &element, {1, 1, 1, 1}, bufferBytes, nullptr)
            ->getPixelLayout()
            .place;
    };
    EXPECT_EQ(placeIn(0), findMemoryPlace(1));
    EXPECT_EQ(placeIn(1UL << 40), findMemoryPlace(1UL << 40));
    EXPECT_NE(placeIn(0), placeIn(1UL << 40));
}

RC_GTEST_PROP(WrapImageProperty, NestedStridesKeepElementsApart, ())
{
    const std::array<unsigned long, 5> sizes =
        *rc::gen::container<std::array<unsigned long, 5>>(rc::gen::inRange(1ul, 5ul));
    std::array<unsigned, 4> order = {0, 1, 2, 3};
    for (unsigned i = 3; i > 0; --i) {
        std::swap(order[i], order[*rc::gen::inRange(0u, i + 1)]);
    }
    std::array<unsigned long, 4> strides{};
    unsigned long extent = sizes[0];
    for (const unsigned axis : order) {
        strides[axis] = extent + *rc::gen::inRange(0ul, 3ul);
        extent += (sizes[axis + 1] - 1) * strides[axis];
    }
    std::vector<unsigned char> memory(extent);
    const auto geometry = geometry5d(g_uint8, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]);
    const auto wrap = [&] {
        return wrapImage(*geometry, memory.data(), {strides[0], strides[1], strides[2], strides[3]}, nullptr);
    };
    const ImagePtr image = wrap();
    forEachRow(*image, [&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
        for (unsigned long x = 0; x < sizes[0]; ++x) {
            ++extractBufferFromImage<unsigned char>(*image, y, z, c, t)[x];
        }
    });
    RC_ASSERT(*std::max_element(memory.begin(), memory.end()) == 1);
    RC_ASSERT(static_cast<unsigned long>(std::count(memory.begin(), memory.end(), 1)) == geometry->getNbPixels());

    const unsigned axis = *rc::gen::inRange(0u, 4u);
    if (sizes[axis + 1] > 1) {
        strides[axis] = sizes[0] - 1;
        RC_ASSERT_THROWS_AS(wrap(), ORLIXImageException);
    }
}

} // namespace
} // namespace orlix::image
