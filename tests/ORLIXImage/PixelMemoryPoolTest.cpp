// Reuse of large blocks, its bound, and giving back.
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace orlix::image {
namespace {

constexpr unsigned long g_mebi = 1ul << 20;

ImagePtr imageOf(unsigned long bytes)
{
    return createImage(*geometry2d(eImageBufferType::UInt8, bytes / 1024, 1024));
}

const void* placeOf(const ImagePtr& image)
{
    return image->getPixelLayout().first;
}

class PixelMemoryPool : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (m_limit == 0) {
            GTEST_SKIP() << "this build allocates plainly and keeps nothing";
        }
        releasePooledMemory();
        setPooledMemoryLimit(64 * g_mebi);
    }
    void TearDown() override
    {
        setPooledMemoryLimit(m_limit);
        releasePooledMemory();
    }

    const unsigned long m_limit = getPooledMemoryLimit();
};

TEST_F(PixelMemoryPool, DefaultLimitIsNoMoreThan4GiB)
{
    EXPECT_GT(m_limit, 16 * g_mebi);
    EXPECT_LE(m_limit, 4096 * g_mebi);
}

TEST_F(PixelMemoryPool, HandsOutTheSamePagesAgain)
{
    ImagePtr image = imageOf(8 * g_mebi);
    const void* const place = placeOf(image);
    image.reset();
    image = imageOf(8 * g_mebi);
    EXPECT_EQ(placeOf(image), place);
    const ImagePtr other = imageOf(8 * g_mebi);
    EXPECT_NE(placeOf(other), place);
    image.reset();
    EXPECT_EQ(placeOf(imageOf(8 * g_mebi + 100 * 1024)), place) << "a slightly larger image fits the same block";
}

TEST_F(PixelMemoryPool, TakesTheNewestBlockFirst)
{
    ImagePtr a = imageOf(4 * g_mebi), b = imageOf(4 * g_mebi);
    const void* const placeOfB = placeOf(b);
    a.reset();
    b.reset();
    EXPECT_EQ(placeOf(imageOf(4 * g_mebi)), placeOfB);
}

TEST_F(PixelMemoryPool, GivesEverythingBack)
{
    imageOf(8 * g_mebi);
    imageOf(2 * g_mebi);
    const unsigned long released = releasePooledMemory();
    EXPECT_GE(released, 10 * g_mebi);
    EXPECT_LE(released, 12 * g_mebi);
    EXPECT_EQ(releasePooledMemory(), 0u);
}

TEST_F(PixelMemoryPool, KeepsNoMoreThanItsLimit)
{
    std::vector<ImagePtr> images;
    for (int i = 0; i < 20; ++i) {
        images.push_back(imageOf(8 * g_mebi));
    }
    images.clear();
    const unsigned long released = releasePooledMemory();
    EXPECT_LE(released, 64 * g_mebi);
    EXPECT_GT(released, 50 * g_mebi);

    imageOf(65 * g_mebi);
    EXPECT_EQ(releasePooledMemory(), 0u) << "one block above the limit is not kept";
}

TEST_F(PixelMemoryPool, OldestBlocksLeaveFirst)
{
    imageOf(40 * g_mebi);
    imageOf(4 * g_mebi);
    imageOf(30 * g_mebi); // 40 and 30 are more than 64
    const unsigned long released = releasePooledMemory();
    EXPECT_GE(released, 34 * g_mebi);
    EXPECT_LT(released, 40 * g_mebi);
}

TEST_F(PixelMemoryPool, ALowerLimitTakesEffectAtOnce)
{
    imageOf(40 * g_mebi);
    setPooledMemoryLimit(0);
    EXPECT_EQ(getPooledMemoryLimit(), 0u);
    EXPECT_EQ(releasePooledMemory(), 0u);
    imageOf(8 * g_mebi);
    EXPECT_EQ(releasePooledMemory(), 0u);
}

TEST_F(PixelMemoryPool, KeepsABoundedNumberOfBlocks)
{
    setPooledMemoryLimit(16384 * g_mebi);
    std::vector<ImagePtr> images;
    for (int i = 0; i < 4500; ++i) {
        images.push_back(imageOf(g_mebi)); // never written, so no page is used
    }
    images.clear();
    const unsigned long released = releasePooledMemory();
    EXPECT_LE(released, 4096 * (g_mebi + g_mebi / 4));
    EXPECT_GT(released, 4096 * g_mebi);
}

TEST_F(PixelMemoryPool, KeepsAThousandImagesOfAMebibyte)
{
    setPooledMemoryLimit(4096 * g_mebi);
    const auto places = [] {
        std::vector<ImagePtr> images;
        std::set<const void*> found;
        for (int i = 0; i < 1000; ++i) {
            images.push_back(imageOf(g_mebi));
            found.insert(placeOf(images.back()));
        }
        return found;
    };
    const std::set<const void*> first = places();
    EXPECT_EQ(first.size(), 1000u);
    EXPECT_EQ(places(), first);
}

/// Flags of the mapping that `place` lies in, as the kernel spells them.
std::string mappingFlagsOf(const void* place)
{
    std::ifstream maps("/proc/self/smaps");
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    bool bFound = false;
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t first = 0;
        std::uintptr_t end = 0;
        if (std::sscanf(line.c_str(), "%lx-%lx ", &first, &end) == 2) {
            bFound = address >= first && address < end;
        } else if (bFound && line.rfind("VmFlags:", 0) == 0) {
            return line;
        }
    }
    return "";
}

TEST_F(PixelMemoryPool, SmallerBlocksLieInHugePagesAsLargeOnesDo)
{
    const ImagePtr large = imageOf(8 * g_mebi);
    if (mappingFlagsOf(placeOf(large)).find(" hg") == std::string::npos) {
        GTEST_SKIP() << "this system has no huge pages";
    }
    for (const unsigned long bytes : {g_mebi, g_mebi * 3 / 2, 2 * g_mebi - 8192}) {
        const ImagePtr image = imageOf(bytes);
        EXPECT_NE(mappingFlagsOf(placeOf(image)).find(" hg"), std::string::npos) << bytes;
    }
}

/// What is mapped for neighbours counts as kept, so that a program that wants nothing kept gets nothing more.
TEST_F(PixelMemoryPool, MapsNeighboursWithinTheLimitOnly)
{
    setPooledMemoryLimit(8 * g_mebi);
    const ImagePtr alone = imageOf(g_mebi);
    EXPECT_EQ(releasePooledMemory(), 0u);
    setPooledMemoryLimit(64 * g_mebi);
    const ImagePtr image = imageOf(g_mebi);
    const unsigned long released = releasePooledMemory();
    EXPECT_GE(released, 15 * g_mebi);
    EXPECT_LE(released, 64 * g_mebi);
    std::memset(planData<unsigned char>(*image, 0, 0, 0), 1, g_mebi); // the neighbours have gone, this one hasn't
    std::memset(planData<unsigned char>(*alone, 0, 0, 0), 1, g_mebi);
}

TEST_F(PixelMemoryPool, ImagesBeginAtSeveralPlacesOfAPageButNeverALineApart)
{
    for (const unsigned long bytes : {64ul << 10, 256ul << 10, g_mebi, 8 * g_mebi}) {
        std::vector<ImagePtr> images;
        std::set<std::uintptr_t> offsets;
        for (int i = 0; i < 48; ++i) {
            images.push_back(imageOf(bytes));
            const std::uintptr_t offset = reinterpret_cast<std::uintptr_t>(placeOf(images.back())) % 4096;
            EXPECT_EQ(offset % 512, 0u) << bytes;
            offsets.insert(offset);
        }
        EXPECT_GE(offsets.size(), 4u) << bytes;
    }
}

TEST_F(PixelMemoryPool, SurvivesWhatCannotBeHad)
{
    imageOf(8 * g_mebi);
    EXPECT_THROW(imageOf(1ul << 50), ORLIXImageException);
    EXPECT_NO_THROW(imageOf(8 * g_mebi));
}

TEST(PixelMemory, ServesThreadsThatMakeAndEndImagesAtOnce)
{
    std::vector<std::thread> threads;
    for (unsigned char id = 1; id <= 4; ++id) {
        threads.emplace_back([id] {
            for (unsigned long round = 0; round < 40; ++round) {
                const unsigned long bytes = (round % 4 + 1) * g_mebi / (round % 5 == 0 ? 1024 : 1);
                const ImagePtr image = imageOf(bytes);
                auto* const first = planData<unsigned char>(*image, 0, 0, 0);
                std::memset(first, id, bytes);
                ASSERT_EQ(first[0], id);
                ASSERT_EQ(first[bytes - 1], id);
                if (round % 16 == 0) {
                    releasePooledMemory();
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace
} // namespace orlix::image
