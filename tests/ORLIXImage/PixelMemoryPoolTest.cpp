// Reuse of large blocks, its bound, and giving back.
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

#include <gtest/gtest.h>

#include <cstring>
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
    setPooledMemoryLimit(4096 * g_mebi);
    std::vector<ImagePtr> images;
    for (int i = 0; i < 600; ++i) {
        images.push_back(imageOf(g_mebi)); // never written, so no page is used
    }
    images.clear();
    EXPECT_LE(releasePooledMemory(), 512 * (g_mebi + g_mebi / 4));
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
