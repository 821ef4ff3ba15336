// Layout of owned images, and what cannot be made.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <set>

#include <sys/resource.h>
#include <unistd.h>

namespace orlix::image {
namespace {

constexpr auto g_uint8 = eImageBufferType::UInt8;

std::string messageOf(const BaseImageGeometry& geometry)
{
    try {
        (void)createImage(geometry);
    } catch (const ORLIXImageException& exception) {
        return exception.what();
    }
    return "no exception";
}

BaseImageGeometry mixedGeometry(const std::vector<eImageBufferType>& types, unsigned long sizeX, unsigned long sizeY,
                                unsigned long sizeZ, unsigned long sizeC)
{
    VolumeGeometry volume;
    volume.init3d(sizeZ);
    ColorGeometry color;
    color.initChannels(sizeC);
    TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {types, sizeX, sizeY, volume, color, temporal};
}

// Fills every plan with a number of its own and its room with another, then looks that no plan was touched by others.
void expectPlansApart(BaseImage& image)
{
    const unsigned long planElements = image.getSizeX() * image.getSizeY();
    const auto forEachPlan = [&](auto&& action) {
        unsigned char number = 0;
        for (unsigned long t = 0; t < image.getSizeT(); ++t) {
            for (unsigned long c = 0; c < image.getSizeC(); ++c) {
                for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                    const unsigned long size = elementSize(image.getBufferType(t));
                    action(image.accessRow(0, z, c, t), planElements * size, 64 * size, ++number);
                }
            }
        }
    };
    forEachPlan([](std::byte* first, unsigned long bytes, unsigned long room, unsigned char number) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % 64, 0u);
        std::memset(first, number, bytes);
        std::memset(first + bytes, 0xEE, room);
    });
    forEachPlan([](const std::byte* first, unsigned long bytes, unsigned long, unsigned char number) {
        for (unsigned long i = 0; i < bytes; ++i) {
            ASSERT_EQ(first[i], std::byte{number});
        }
    });
}

TEST(CreateImage, PlansAreAlignedDenseAndHaveRoomInEveryType)
{
    for (const auto type : g_allBufferTypes) {
        for (const unsigned long sizeX : {1ul, 63ul, 64ul, 65ul}) {
            const ImagePtr image = createImage(*geometry5d(type, sizeX, 3, 3, 2, 2));
            EXPECT_EQ(image->getBufferType(), type);
            EXPECT_EQ(rowPitch(*image), sizeX);
            EXPECT_TRUE(image->getPixelLayout().bDense);
            EXPECT_TRUE(image->getPixelLayout().bRoomBehindPlans);
            EXPECT_FALSE(image->isGpuImage());
            EXPECT_EQ(image->getImageType(), eImageType::eOwnedImage);
            EXPECT_FALSE(image->needsUnlocalizedInput());
            expectPlansApart(*image);
        }
    }
}

TEST(CreateImage, StepsOfSeveralTypesLieApart)
{
    using Types = std::vector<eImageBufferType>;
    for (const Types& types : {Types{eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::UInt16},
                               Types{eImageBufferType::Real32, eImageBufferType::UInt8, eImageBufferType::UInt8}}) {
        const ImagePtr image = createImage(mixedGeometry(types, 7, 5, 3, 2));
        expectPlansApart(*image);
        EXPECT_EQ(rowPitch(*image), 7u);
        EXPECT_EQ(image->getBufferType(), types[0]);
        EXPECT_EQ(image->getBufferType(2), types[2]);
        EXPECT_EQ(image->accessRow(1, 2, 1, 1) - image->accessRow(0, 2, 1, 1),
                  static_cast<long>(7 * elementSize(types[1])));
    }
}

// The last steps may have other elements than the first: their plans and the room behind them lie in the image's memory
// all the same.
TEST(CreateImage, ImagesOfSeveralTypesLieApart)
{
    constexpr unsigned long room = 64;
    for (const auto& [firstType, lastType] : {std::pair(eImageBufferType::Real32, eImageBufferType::UInt8),
                                              {eImageBufferType::UInt8, eImageBufferType::Real32}}) {
        std::vector<ImagePtr> images;
        std::set<std::pair<const std::byte*, const std::byte*>> places;
        for (int i = 0; i < 64; ++i) {
            images.push_back(createImage(mixedGeometry({firstType, lastType}, 1, 1, 1, 1)));
            const std::byte* const last = images.back()->accessRow(0, 0, 0, 1);
            places.emplace(images.back()->accessRow(0, 0, 0, 0), last + (1 + room) * elementSize(lastType));
        }
        for (auto next = std::next(places.begin()); next != places.end(); ++next) {
            EXPECT_LE(std::prev(next)->second, next->first);
        }
    }
}

TEST(CreateImage, TheSizeTellsWhichCacheMayHoldTheImage)
{
    using simd::eMemoryPlace;
    const auto placeOf = [](unsigned long sizeX, unsigned long sizeY) {
        return levelOf(createImage(*geometry2d(g_uint8, sizeX, sizeY))->getPixelLayout().place);
    };
    EXPECT_EQ(placeOf(64, 64), eMemoryPlace::secondLevelCache);
    EXPECT_EQ(placeOf(1ul << 15, 1ul << 15), eMemoryPlace::memory);
    const unsigned long half = hard::getLastLevelCacheBytes() / 2;
    EXPECT_EQ(placeOf(half, 1), eMemoryPlace::lastLevelCacheFilled);
    EXPECT_LT(placeOf(half - 256, 1), eMemoryPlace::lastLevelCacheFilled);
}

TEST(CreateImage, SizesOfZeroAreLegalOnEveryAxis)
{
    const unsigned long huge = 1ul << 62;
    for (const auto& geometry :
         {geometry5d(g_uint8, 0, 4, 3, 2, 2), geometry5d(g_uint8, 5, 0, 3, 2, 2), geometry5d(g_uint8, 5, 4, 0, 2, 2),
          geometry5d(g_uint8, 5, 4, 3, 0, 2), geometry5d(g_uint8, 5, 4, 3, 2, 0), geometry2d(g_uint8, 0, 0),
          geometry5d(g_uint8, huge, huge, 0, huge, huge)}) {
        const ImagePtr image = createImage(*geometry);
        EXPECT_TRUE(image->getGeometry().hasSameSizes(*geometry));
        EXPECT_NE(image->getPixelLayout().first, nullptr);
        if (image->getSizeX() == 5) {
            EXPECT_EQ(rowPitch(*image), 5u);
        }
    }
    EXPECT_NE(planData<unsigned char>(*createImage(*geometry2d(g_uint8, 0, 4)), 0, 0, 0), nullptr);
    EXPECT_EQ(createImage(mixedGeometry({}, 5, 4, 3, 2))->getSizeT(), 0u);
}

TEST(CreateImage, NeedsAnElementType)
{
    EXPECT_EQ(
        messageOf(*geometry2d(eImageBufferType::eNoBuffer, 5, 4)),
        "An image of 5x4x1x1x1 none can't be made, since it has no element type: give a buffer type from 1 to 11");
    EXPECT_NE(messageOf(*geometry2d(eImageBufferType::eNoBuffer, 0, 4)), "no exception");
    EXPECT_NE(messageOf(mixedGeometry({g_uint8, eImageBufferType::eNoBuffer}, 5, 4, 1, 1)), "no exception");
    EXPECT_NE(messageOf(mixedGeometry({g_uint8, eImageBufferType::eNoBuffer}, 0, 4, 1, 1)), "no exception");
}

TEST(CreateImage, WhatCannotBeHadIsACleanException)
{
    EXPECT_EQ(messageOf(*geometry2d(g_uint8, 1ul << 40, 1ul << 40)),
              "The size of an image of 1099511627776x1099511627776x1x1x1 UInt8 does not fit in 63 bits: make one of its"
              " five sizes smaller");
    EXPECT_EQ(
        messageOf(*geometry2d(g_uint8, 1ul << 30, 1ul << 30)),
        "An image of 1073741824x1073741824x1x1x1 UInt8 needs 1152921504606847040 bytes, which can't be had: make it"
        " smaller or free some memory");
    const unsigned long most = ~0ul;
    for (const auto& geometry :
         {geometry2d(g_uint8, most, 1), geometry2d(g_uint8, (1ul << 63) - 1, 1), geometry2d(g_uint8, 1, most),
          geometry2d(eImageBufferType::Real32, 1ul << 61, 1), geometry5d(g_uint8, 1, 1, most, 1, 1),
          geometry5d(g_uint8, 1, 1, 1, most, 1), geometry5d(g_uint8, 1, 1, 1, 1, most),
          geometry5d(g_uint8, 1ul << 20, 1ul << 20, 1ul << 20, 1ul << 3, 1)}) {
        EXPECT_NE(messageOf(*geometry).find("does not fit in 63 bits"), std::string::npos) << geometry->toString();
    }
    EXPECT_NE(messageOf(mixedGeometry({g_uint8, eImageBufferType::Real32}, 1ul << 31, 1ul << 31, 1, 1))
                  .find("does not fit in 63 bits"),
              std::string::npos);
}

unsigned long mappedBytes()
{
    unsigned long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<unsigned long>(sysconf(_SC_PAGESIZE));
}

/// The process may map so many bytes more than it has, for the scope.
class ScopedMemoryLimit
{
public:
    explicit ScopedMemoryLimit(unsigned long bytes)
    {
        getrlimit(RLIMIT_AS, &m_former);
        const rlimit limit{mappedBytes() + bytes, m_former.rlim_max};
        m_bSet = setrlimit(RLIMIT_AS, &limit) == 0;
    }
    ~ScopedMemoryLimit() { setrlimit(RLIMIT_AS, &m_former); }
    ScopedMemoryLimit(const ScopedMemoryLimit&) = delete;
    ScopedMemoryLimit& operator=(const ScopedMemoryLimit&) = delete;

    bool isSet() const { return m_bSet; }

private:
    rlimit m_former{};
    bool m_bSet = false;
};

TEST(CreateImage, WhatTheSystemRefusesIsACleanExceptionAndLeavesNothingBehind)
{
    if (getPooledMemoryLimit() == 0) {
        GTEST_SKIP() << "this build allocates plainly, for sanitizers, which end a process that asks for too much";
    }
    const auto geometry = geometry5d(g_uint8, 1024, 1024, 128, 2, 2);
    releasePooledMemory();
    {
        const ScopedMemoryLimit limit(128ul << 20);
        ASSERT_TRUE(limit.isSet());
        const std::string text = messageOf(*geometry);
        EXPECT_EQ(text.find("An image of 1024x1024x128x2x2 UInt8 needs 5369"), 0u) << text;
        EXPECT_NE(text.find(" bytes, which can't be had: make it smaller or free some memory"), std::string::npos)
            << text;
        const unsigned long before = mappedBytes();
        for (int repetition = 0; repetition < 100; ++repetition) {
            EXPECT_EQ(messageOf(*geometry), text);
        }
        EXPECT_LT(mappedBytes(), before + (8ul << 20));
        const ImagePtr smaller = createImage(*geometry2d(g_uint8, 1024, 1024));
        std::memset(planData<unsigned char>(*smaller, 0, 0, 0), 1, 1024 * 1024);
    }
    EXPECT_EQ(createImage(*geometry)->getGeometry().getNbPixels(), 512ul << 20) << "once there is memory";
    releasePooledMemory();
}

TEST(PlanData, ChecksIndicesAndType)
{
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2));
    const BaseImage& constImage = *image;
    EXPECT_EQ(static_cast<void*>(planData<unsigned short>(*image, 2, 1, 1)), image->accessRow(0, 2, 1, 1));
    EXPECT_EQ(planData<unsigned short>(constImage, 2, 1, 1), planData<unsigned short>(*image, 2, 1, 1));
    EXPECT_EQ(extractBufferFromImage<unsigned short>(*image, 3, 2, 1, 1),
              planData<unsigned short>(*image, 2, 1, 1) + 15);
    EXPECT_EQ(extractBufferFromConstImage<unsigned short>(constImage, 3, 2, 1, 1),
              planData<unsigned short>(*image, 2, 1, 1) + 15);
    EXPECT_THROW((void)planData<unsigned short>(*image, 3, 0, 0), ORLIXImageException);
    EXPECT_THROW((void)planData<unsigned short>(*image, 0, 2, 0), ORLIXImageException);
    EXPECT_THROW((void)planData<short>(*image, 0, 0, 0), ORLIXImageException);
    try {
        (void)planData<unsigned short>(constImage, 0, 0, 2);
        FAIL();
    } catch (const ORLIXImageException& exception) {
        EXPECT_STREQ(exception.what(),
                     "There is no plan (z=0, c=0, t=2) in an image of 5x4x3x2x2 UInt16: give indices below its sizes");
    }
}

RC_GTEST_PROP(CreateImageProperty, ElementAddressesAreDistinctAndInsideTheBlock, ())
{
    const auto size = [] { return *rc::gen::inRange(0ul, 5ul); };
    const auto type = *rc::gen::elementOf(g_allBufferTypes);
    const auto geometry = geometry5d(type, size() * size(), size(), size(), size(), size());
    const ImagePtr image = createImage(*geometry);
    std::set<const void*> addresses;
    for (unsigned long t = 0; t < image->getSizeT(); ++t) {
        for (unsigned long c = 0; c < image->getSizeC(); ++c) {
            for (unsigned long z = 0; z < image->getSizeZ(); ++z) {
                for (unsigned long y = 0; y < image->getSizeY(); ++y) {
                    std::byte* const row = image->accessRow(y, z, c, t);
                    for (unsigned long x = 0; x < image->getSizeX(); ++x) {
                        std::memset(row + x * elementSize(type), 1, elementSize(type));
                        addresses.insert(row + x * elementSize(type));
                    }
                }
            }
        }
    }
    RC_ASSERT(addresses.size() == geometry->getNbPixels());
    if (!addresses.empty()) {
        const auto* const first = static_cast<const std::byte*>(*addresses.begin());
        const auto* const last = static_cast<const std::byte*>(*addresses.rbegin());
        const unsigned long planBytes = (image->getSizeX() * image->getSizeY() + 128) * elementSize(type);
        RC_ASSERT(first == image->getPixelLayout().first);
        RC_ASSERT(static_cast<unsigned long>(last - first) < planBytes * geometry->getNbPlans());
    }
}

} // namespace
} // namespace orlix::image
