// From which size on an image over memory of others lies beyond a cache: its elements count in bytes, its gaps don't.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
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

TEST(MemoryPlaceTest, OfWrappedImagesGoesByTheBytesOfTheirElements)
{
    const unsigned long nbInMemory = hard::getLastLevelCacheBytes() / 2;
    const unsigned long nbInLevel2 = hard::getL2CacheBytes() / 2;
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        const unsigned long size = elementSize(type);
        const unsigned long nbLines = 2;
        const auto placeOfBytes = [&](unsigned long bytes, unsigned long gap) {
            return placeOf(type, bytes / size / nbLines, nbLines, gap);
        };
        for (const unsigned long gap : {0UL, 1UL << 30}) {
            EXPECT_EQ(placeOfBytes(nbInMemory, gap), eMemoryPlace::memory) << getBufferTypeName(type);
            EXPECT_NE(placeOfBytes(nbInMemory - 8, gap), eMemoryPlace::memory) << getBufferTypeName(type);
            EXPECT_EQ(placeOfBytes(nbInLevel2, gap),
                      nbInLevel2 < nbInMemory ? eMemoryPlace::secondLevelCache : eMemoryPlace::memory);
            EXPECT_NE(placeOfBytes(nbInLevel2 + 8, gap), eMemoryPlace::secondLevelCache) << getBufferTypeName(type);
        }
    }
}

} // namespace
} // namespace orlix::image
