// From which size on images lie beyond a cache, on which kind of processor. Of an image over memory of others the
// elements count in bytes, the gaps don't.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

namespace orlix::image {
namespace {

using simd::eMemoryPlace;

/// No element is ever touched, so that one stands for all.
eMemoryPlace placeOf(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY, unsigned long gap)
{
    alignas(4) static unsigned char element[4] = {};
    return wrapImage(*geometry2d(type, sizeX, sizeY), element, {sizeX + gap, 0, 0, 0}, nullptr)->getPixelLayout().place;
}

constexpr unsigned long g_mebi = 1UL << 20;

TEST(MemoryPlaceTest, FollowsFromTheSizesOfTheCaches)
{
    constexpr MemoryTraits traits{2 * g_mebi, 32 * g_mebi, false};
    EXPECT_EQ(findMemoryPlace(0, traits), eMemoryPlace::secondLevelCache);
    EXPECT_EQ(findMemoryPlace(g_mebi, traits), eMemoryPlace::secondLevelCache);
    EXPECT_EQ(findMemoryPlace(g_mebi + 1, traits), eMemoryPlace::lastLevelCache);
    EXPECT_EQ(findMemoryPlace(16 * g_mebi - 1, traits), eMemoryPlace::lastLevelCache);
    EXPECT_EQ(findMemoryPlace(16 * g_mebi, traits), eMemoryPlace::lastLevelCacheFilled);
    EXPECT_EQ(findMemoryPlace(32 * g_mebi - 1, traits), eMemoryPlace::lastLevelCacheFilled);
    EXPECT_EQ(findMemoryPlace(32 * g_mebi, traits), eMemoryPlace::memory);
    EXPECT_EQ(findMemoryPlace(~0UL, traits), eMemoryPlace::memory);
}

/// Where the second level is the last one, nothing lies in it that doesn't lie in the last level.
TEST(MemoryPlaceTest, WithoutAThirdLevel)
{
    constexpr MemoryTraits traits{2 * g_mebi, 2 * g_mebi, false};
    EXPECT_EQ(findMemoryPlace(g_mebi - 1, traits), eMemoryPlace::secondLevelCache);
    EXPECT_EQ(findMemoryPlace(g_mebi, traits), eMemoryPlace::lastLevelCacheFilled);
    EXPECT_EQ(findMemoryPlace(2 * g_mebi, traits), eMemoryPlace::memory);
}

TEST(MemoryPlaceTest, ProcessorsAreAssistedOnlyWhereThatPays)
{
    constexpr unsigned long sizes[] = {g_mebi, 4 * g_mebi, 16 * g_mebi, 32 * g_mebi};
    constexpr eMemoryPlace intelPlaces[] = {eMemoryPlace::secondLevelCache, eMemoryPlace::assistedLastLevelCache,
                                            eMemoryPlace::assistedLastLevelCacheFilled, eMemoryPlace::assistedMemory};
    const MemoryTraits intel = makeMemoryTraits(2 * g_mebi, 32 * g_mebi, "GenuineIntel");
    for (unsigned level = 0; level < 4; ++level) {
        EXPECT_EQ(findMemoryPlace(sizes[level], intel), intelPlaces[level]);
        EXPECT_EQ(static_cast<unsigned>(levelOf(intelPlaces[level])), level);
        EXPECT_EQ(isAssisted(intelPlaces[level]), level > 0);
        for (const char* const vendor : {"AuthenticAMD", "HygonGenuine", "unknown"}) {
            const MemoryTraits other = makeMemoryTraits(2 * g_mebi, 32 * g_mebi, vendor);
            EXPECT_EQ(static_cast<unsigned>(findMemoryPlace(sizes[level], other)), level) << vendor;
        }
    }
}

TEST(MemoryPlaceTest, OfWrappedImagesGoesByTheBytesOfTheirElements)
{
    const unsigned long nbInMemory = hard::getLastLevelCacheBytes() / 8 * 8;
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        const unsigned long size = elementSize(type);
        const unsigned long nbLines = 2;
        for (const unsigned long gap : {0UL, 1UL << 30}) {
            for (const unsigned long bytes : {nbInMemory, nbInMemory - 8, nbInMemory / 2, nbInMemory / 2 - 8,
                                              hard::getL2CacheBytes() / 2, hard::getL2CacheBytes() / 2 + 8}) {
                EXPECT_EQ(placeOf(type, bytes / size / nbLines, nbLines, gap), findMemoryPlace(bytes))
                    << getBufferTypeName(type) << ", " << bytes << " bytes";
            }
        }
    }
    EXPECT_EQ(levelOf(findMemoryPlace(hard::getLastLevelCacheBytes())), eMemoryPlace::memory);
    EXPECT_EQ(levelOf(findMemoryPlace(hard::getLastLevelCacheBytes() / 2)), eMemoryPlace::lastLevelCacheFilled);
}

} // namespace
} // namespace orlix::image
