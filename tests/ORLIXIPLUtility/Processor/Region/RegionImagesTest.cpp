// Regions of images of every type, size and place in memory, beside plain loops.
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "support/Executors.h"
#include "support/FewUnderThreads.h"
#include "support/PlacedImage.h"
#include "support/SameImages.h"

#include <rapidcheck/gtest.h>

#include <array>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using testing::bytesOf;
using testing::makeRandom;
using testing::plainCopy;
using testing::sameImages;
using testing::WatchedImage;

INSTANTIATE_TEST_SUITE_P(Region, RegionTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Of3Dimensions" : "Of2Dimensions"; });

TEST_P(RegionTest, everyTypeAndWidth)
{
    for (const eImageBufferType type : testing::fewUnderThreadSanitizer(image::g_allBufferTypes)) {
        const ImagePtr in = makeRandom(geometry(type, 300, 9, 5, 2, 2));
        for (unsigned long width = 0; width <= 200; width += width < 70 ? 1 : 13) {
            const Region region = over(*in, {width % 7 + 3, 2, 1, width, 6, 3});
            const ImagePtr out = m_op.get(in, region);
            ASSERT_EQ(bytesOf(*out), regionBytes(*in, region)) << width;
            ASSERT_EQ(out->getGeometry().toString(), roiGeometry(*in, region).toString());

            const ImagePtr roi = makeRandom(roiGeometry(*in, region), width + 7);
            const ImagePtr expected = withRegion(*in, *roi, region);
            const ImagePtr whole = makeRandom(in->getGeometry(), 99);
            m_op.putInto(in, roi, region, whole);
            ASSERT_TRUE(sameImages(*expected, *whole)) << width;
            const ImagePtr changed = plainCopy(*in);
            m_op.put(changed, roi, region);
            ASSERT_TRUE(sameImages(*expected, *changed)) << width;
        }
    }
}

TEST_P(RegionTest, withinTheEdgesOfMemoryOfTheCallers)
{
    const testing::WrapForm forms[] = {{testing::GuardEdge::eEnd},
                                       {testing::GuardEdge::eBegin, 0, 0, 1, false},
                                       {testing::GuardEdge::eEnd, 3, 0},
                                       {testing::GuardEdge::eBegin, 5, 11},
                                       {testing::GuardEdge::eEnd, 0, 64, 7, false}};
    const Region regions[] = {{0, 0, 0, 131, 17, 4}, {130, 16, 3, 1, 1, 1}, {100, 0, 1, 31, 17, 2},
                              {0, 12, 0, 64, 5, 4},  {1, 0, 0, 130, 1, 1},  {65, 3, 2, 0, 4, 2}};
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const testing::WrapForm& form : forms) {
            for (const Region& each : regions) {
                const WatchedImage in(geometry(type, 131, 17, 4, 2, 1), form);
                testing::fillRandom(*in.get(), 5);
                const Region region = over(*in.get(), each);
                const WatchedImage out(roiGeometry(*in.get(), region), form);
                m_op.getInto(in.get(), region, out.get());
                ASSERT_EQ(bytesOf(*out.get()), regionBytes(*in.get(), region));

                testing::fillRandom(*out.get(), 6);
                const ImagePtr expected = withRegion(*in.get(), *out.get(), region);
                const WatchedImage whole(in.get()->getGeometry(), form);
                m_op.putInto(in.get(), out.get(), region, whole.get());
                ASSERT_TRUE(sameImages(*expected, *whole.get()));
                m_op.put(in.get(), out.get(), region);
                ASSERT_TRUE(sameImages(*expected, *in.get()));
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact() && whole.isOutsideIntact());
            }
        }
    }
}

TEST_P(RegionTest, manyStripsOnEveryExecutor)
{
    const ImagePtr in = makeRandom(geometry(eImageBufferType::UInt16, 1201, 701, 3));
    const Region region = over(*in, {101, 33, 1, 1003, 655, 2});
    const std::vector<std::byte> expectedGet = regionBytes(*in, region);
    const ImagePtr roi = makeRandom(roiGeometry(*in, region), 8);
    const ImagePtr expectedPut = withRegion(*in, *roi, region);
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        EXPECT_EQ(bytesOf(*m_op.get(in, region)), expectedGet) << named.name;
        const ImagePtr whole = createImage(in->getGeometry());
        m_op.putInto(in, roi, region, whole);
        EXPECT_TRUE(sameImages(*expectedPut, *whole)) << named.name;
        const ImagePtr changed = plainCopy(*in);
        m_op.put(changed, roi, region);
        EXPECT_TRUE(sameImages(*expectedPut, *changed)) << named.name;
    }
}

TEST_P(RegionTest, whereverTheCachesEnd)
{
    for (const unsigned place : {0U, 1U, 2U, 3U, 5U, 6U, 7U}) {
        const auto memory = static_cast<simd::eMemoryPlace>(place);
        for (const unsigned long width : {1UL, 40UL, 64UL, 100UL, 1000UL, 3000UL, 9000UL}) {
            const ImagePtr in = makeRandom(geometry(eImageBufferType::UInt8, 10'000, 23, 2));
            const Region region = over(*in, {71, 3, 1, width, 19, 1});
            const ImagePtr out = createImage(roiGeometry(*in, region));
            m_op.getInto(in, region, testing::placedIn(memory, *out));
            ASSERT_EQ(bytesOf(*out), regionBytes(*in, region)) << place << ' ' << width;
            testing::fillRandom(*out, 3);
            const ImagePtr expected = withRegion(*in, *out, region);
            m_op.put(testing::placedIn(memory, *in), out, region);
            ASSERT_TRUE(sameImages(*expected, *in)) << place << ' ' << width;
        }
    }
}

TEST_P(RegionTest, sizesOfNothing)
{
    const ImagePtr in = makeRandom(geometry(eImageBufferType::Int32, 20, 10, 4));
    const ImagePtr before = plainCopy(*in);
    for (const Region& each : {Region{20, 10, 4, 0, 0, 0}, Region{0, 0, 0, 0, 10, 4}, Region{3, 10, 0, 5, 0, 2},
                               Region{0, 0, 4, 20, 10, 0}}) {
        const Region region = over(*in, each);
        const ImagePtr roi = m_op.get(in, region);
        EXPECT_EQ(roi->getGeometry().toString(), roiGeometry(*in, region).toString());
        m_op.put(in, createImage(roiGeometry(*in, region)), region);
        if (region.sizeX * region.sizeY * region.sizeZ == 0) {
            EXPECT_TRUE(sameImages(*before, *in));
            const ImagePtr out = makeRandom(in->getGeometry(), 77);
            m_op.putInto(in, roi, region, out);
            EXPECT_TRUE(sameImages(*before, *out)) << "the whole is copied all the same";
        } else {
            testing::fillRandom(*in, 1);
        }
    }
    for (const auto& [x, y, z, c, t] :
         {std::array{0UL, 5UL, 3UL, 2UL, 2UL}, std::array{5UL, 0UL, 3UL, 2UL, 2UL}, std::array{5UL, 5UL, 0UL, 2UL, 2UL},
          std::array{5UL, 5UL, 3UL, 0UL, 2UL}, std::array{5UL, 5UL, 3UL, 2UL, 0UL}}) {
        const ImagePtr empty = createImage(geometry(eImageBufferType::UInt8, x, y, z, c, t));
        const Region all{0, 0, 0, x, y, z};
        const ImagePtr out = m_op.get(empty, all);
        EXPECT_EQ(out->getGeometry().toString(), empty->getGeometry().toString());
        m_op.put(empty, out, all);
    }
}

TEST_P(RegionTest, typesThatDifferByStep)
{
    image::VolumeGeometry volume;
    volume.init3d(3);
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    const image::BaseImageGeometry mixed({eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16},
                                         33, 21, volume, {}, temporal);
    const ImagePtr in = makeRandom(mixed);
    const Region region = over(*in, {5, 6, 1, 20, 10, 2});
    const ImagePtr roi = m_op.get(in, region);
    EXPECT_TRUE(roi->getGeometry().hasSameBufferTypes(mixed));
    EXPECT_EQ(bytesOf(*roi), regionBytes(*in, region));
    testing::fillRandom(*roi, 4);
    const ImagePtr expected = withRegion(*in, *roi, region);
    m_op.put(in, roi, region);
    EXPECT_TRUE(sameImages(*expected, *in));
}

/// A region of an image of up to 40 x 30 x 6.
struct RandomCase
{
    ImagePtr image;
    Region region;
};
RandomCase randomCase()
{
    const auto pick = [](unsigned long most) { return *rc::gen::inRange(0UL, most + 1); };
    const auto type = static_cast<eImageBufferType::domain>(*rc::gen::inRange(1, 12));
    image::VolumeGeometry volume;
    volume.init3d(pick(5) + 1);
    image::ColorGeometry color;
    color.initChannels(pick(1) + 1);
    const image::BaseImageGeometry geometry(type, pick(149) + 1, pick(29) + 1, volume, color, {});
    RandomCase made{makeRandom(geometry, pick(1000)), {}};
    Region& region = made.region;
    region.x = pick(geometry.getSizeX());
    region.y = pick(geometry.getSizeY());
    region.z = pick(geometry.getSizeZ());
    region.sizeX = pick(geometry.getSizeX() - region.x);
    region.sizeY = pick(geometry.getSizeY() - region.y);
    region.sizeZ = pick(geometry.getSizeZ() - region.z);
    return made;
}

RC_GTEST_PROP(RegionLaws, WhatIsPutInComesOutAndNothingElseChanges, (bool b3d))
{
    const RegionOperators op = regionOperators(b3d);
    auto [image, region] = randomCase();
    if (!b3d) {
        region.z = 0;
        region.sizeZ = image->getSizeZ();
    }
    const ImagePtr before = plainCopy(*image);
    const ImagePtr roi = op.get(image, region);
    RC_ASSERT(sameImages(*before, *image));
    testing::fillRandom(*roi, 12345);
    const ImagePtr out = makeRandom(image->getGeometry(), 999);
    op.putInto(image, roi, region, out);
    RC_ASSERT(sameImages(*before, *image));
    RC_ASSERT(bytesOf(*op.get(out, region)) == bytesOf(*roi));
    RC_ASSERT(sameImages(*withRegion(*image, *roi, region), *out));
    op.put(image, roi, region);
    RC_ASSERT(sameImages(*out, *image));
    op.put(image, op.get(before, region), region);
    RC_ASSERT(sameImages(*before, *image));
}

RC_GTEST_PROP(RegionLaws, ARegionOfARegionIsARegion, (bool b3d))
{
    const RegionOperators op = regionOperators(b3d);
    auto [image, outer] = randomCase();
    if (!b3d) {
        outer.z = 0;
        outer.sizeZ = image->getSizeZ();
    }
    Region inner;
    inner.x = *rc::gen::inRange(0UL, outer.sizeX + 1);
    inner.y = *rc::gen::inRange(0UL, outer.sizeY + 1);
    inner.sizeX = *rc::gen::inRange(0UL, outer.sizeX - inner.x + 1);
    inner.sizeY = *rc::gen::inRange(0UL, outer.sizeY - inner.y + 1);
    inner.sizeZ = outer.sizeZ;
    Region both = inner;
    both.x += outer.x;
    both.y += outer.y;
    both.z = outer.z;
    RC_ASSERT(sameImages(*op.get(image, both), *op.get(op.get(image, outer), inner)));
}

} // namespace
} // namespace orlix::imaproc::util
