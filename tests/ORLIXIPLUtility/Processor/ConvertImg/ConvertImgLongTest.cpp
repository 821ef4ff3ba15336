// Every pattern of 32 bits through every conversion, under the set that is forced. For `scripts/test --long`.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::BufferType;

constexpr unsigned long g_nbPatterns = 1UL << 32;
constexpr unsigned long g_nbChunk = 1UL << 15; // stays within the second-level cache with its results
constexpr BufferType g_targets[] = {eImageBufferType::Int8,   eImageBufferType::UInt8,        eImageBufferType::Int16,
                                    eImageBufferType::UInt16, eImageBufferType::Int32,        eImageBufferType::UInt32,
                                    eImageBufferType::Real32, eImageBufferType::eBufferBinary};

/// Converts chunk after chunk on one thread; several share the numbers of the chunks.
class ChunkChecker
{
public:
    ChunkChecker(BufferType from, std::atomic<unsigned long>& nextChunk)
        : m_from(from), m_nextChunk(nextChunk), m_in(image::createImage(*image::geometry2d(from, g_nbChunk, 1))),
          m_elements(g_nbChunk)
    {
        for (const BufferType to : g_targets) {
            m_out.push_back(image::createImage(*image::geometry2d(to, g_nbChunk, 1)));
        }
    }

    /// The first difference in words, empty where there is none.
    std::string run()
    {
        for (unsigned long first = m_nextChunk++ * g_nbChunk; first < g_nbPatterns; first = m_nextChunk++ * g_nbChunk) {
            auto* const patterns = reinterpret_cast<std::uint32_t*>(m_in->accessRow(0, 0, 0, 0));
            for (unsigned long i = 0; i < g_nbChunk; ++i) {
                patterns[i] = static_cast<std::uint32_t>(first + i);
                m_elements[i] = testing::readElement(m_from, patterns[i]);
            }
            for (const ImagePtr& out : m_out) {
                convertImg(m_in, out);
                if (!isAsExpected(*out)) {
                    const ::testing::AssertionResult result = testing::isConverted(*m_in, *out);
                    m_nextChunk = g_nbPatterns / g_nbChunk; // no need to go on
                    return result.message();
                }
            }
        }
        return {};
    }

private:
    bool isAsExpected(const image::BaseImage& out) const
    {
        bool bSame = true;
        image::visitStorageType(out.getBufferType(), [&]<class T>() {
            const BufferType to = out.getBufferType();
            const testing::Set set = testing::runningSet(m_from, to);
            const std::byte* const row = out.accessRow(0, 0, 0, 0);
            for (unsigned long i = 0; i < g_nbChunk; ++i) {
                bSame &= testing::convertedBits(set, m_from, m_elements[i], to) == testing::bitsAt(row, i, sizeof(T));
            }
        });
        return bSame;
    }

    BufferType m_from;
    std::atomic<unsigned long>& m_nextChunk;
    ImagePtr m_in;
    std::vector<testing::SourceElement> m_elements;
    std::vector<ImagePtr> m_out;
};

void convertEveryPattern(BufferType from)
{
    const testing::ScopedExecutor calling(core::makePlainThreadExecutor(1));
    std::atomic<unsigned long> nextChunk{0};
    std::mutex mutex;
    std::string difference;
    std::vector<std::thread> threads;
    for (unsigned long i = 0; i < core::getNbUsableThreads(); ++i) {
        threads.emplace_back([&] {
            const std::string found = ChunkChecker(from, nextChunk).run();
            const std::lock_guard<std::mutex> lock(mutex);
            difference = difference.empty() ? found : difference;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(difference, "");
}

TEST(ConvertImgLongTest, DISABLED_everyInt32)
{
    convertEveryPattern(eImageBufferType::Int32);
}

TEST(ConvertImgLongTest, DISABLED_everyUInt32)
{
    convertEveryPattern(eImageBufferType::UInt32);
}

TEST(ConvertImgLongTest, DISABLED_everyReal32)
{
    convertEveryPattern(eImageBufferType::Real32);
}

} // namespace
} // namespace orlix::imaproc::util
