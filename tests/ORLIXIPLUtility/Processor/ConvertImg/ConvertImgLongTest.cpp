// Every pattern of 32 bits through every conversion, under the set that is forced. For `scripts/test --long`.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::BufferType;
using testing::Set;

constexpr unsigned long g_nbPatterns = 1UL << 32;
constexpr unsigned long g_nbChunk = 1UL << 14; // stays within the second-level cache with its results
constexpr std::array<BufferType, 8> g_targets = {
    eImageBufferType::Int8,  eImageBufferType::UInt8,  eImageBufferType::Int16,  eImageBufferType::UInt16,
    eImageBufferType::Int32, eImageBufferType::UInt32, eImageBufferType::Real32, eImageBufferType::eBufferBinary};
using Elements = std::vector<testing::SourceElement>;

/// All that the oracle decides by is known to the compiler, which takes minutes off the test.
template <Set set, BufferType from, BufferType to>
bool isAsExpected(const Elements& elements, const std::byte* found)
{
    constexpr unsigned long size = image::elementSize(to);
    unsigned nbWrong = 0;
    for (unsigned long i = 0; i < elements.size(); ++i) {
        nbWrong += testing::convertedBits(set, from, elements[i], to) != testing::bitsAt(found, i, size);
    }
    return nbWrong == 0;
}

template <BufferType from, BufferType to>
bool isAsExpected(Set set, const Elements& elements, const std::byte* found)
{
    switch (set) {
    case eInstructionSet::eNone: return isAsExpected<eInstructionSet::eNone, from, to>(elements, found);
    case eInstructionSet::eSSE2: return isAsExpected<eInstructionSet::eSSE2, from, to>(elements, found);
    case eInstructionSet::eAVX2: return isAsExpected<eInstructionSet::eAVX2, from, to>(elements, found);
    case eInstructionSet::eAVX512: return isAsExpected<eInstructionSet::eAVX512, from, to>(elements, found);
    default: return false;
    }
}

/// Converts chunk after chunk on one thread; several share the numbers of the chunks.
template <BufferType from>
class ChunkChecker
{
public:
    explicit ChunkChecker(std::atomic<unsigned long>& nextChunk)
        : m_nextChunk(nextChunk), m_in(image::createImage(*image::geometry2d(from, g_nbChunk, 1))),
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
            std::byte* const patterns = m_in->accessRow(0, 0, 0, 0);
            for (unsigned long i = 0; i < g_nbChunk; ++i) {
                const auto pattern = static_cast<std::uint32_t>(first + i);
                std::memcpy(patterns + i * sizeof(pattern), &pattern, sizeof(pattern));
                m_elements[i] = testing::readElement(from, pattern);
            }
            if (const std::string difference = checkAll(std::make_index_sequence<g_targets.size()>());
                !difference.empty()) {
                m_nextChunk = g_nbPatterns / g_nbChunk; // no need to go on
                return difference;
            }
        }
        return {};
    }

private:
    template <std::size_t... indices>
    std::string checkAll(std::index_sequence<indices...>)
    {
        std::string difference;
        static_cast<void>((check<g_targets[indices]>(m_out[indices], difference) && ...));
        return difference;
    }
    template <BufferType to>
    bool check(const ImagePtr& out, std::string& difference)
    {
        convertImg(m_in, out);
        const bool bSame =
            isAsExpected<from, to>(testing::runningSet(from, to), m_elements, out->accessRow(0, 0, 0, 0));
        if (!bSame) {
            difference = testing::isConverted(*m_in, *out).message();
        }
        return bSame;
    }

    std::atomic<unsigned long>& m_nextChunk;
    ImagePtr m_in;
    Elements m_elements;
    std::vector<ImagePtr> m_out;
};

template <BufferType from>
void convertEveryPattern()
{
    const testing::ScopedExecutor calling(core::makePlainThreadExecutor(1));
    std::atomic<unsigned long> nextChunk{0};
    std::mutex mutex;
    std::string difference;
    std::vector<std::thread> threads;
    for (unsigned long i = 0; i < core::getNbUsableThreads(); ++i) {
        threads.emplace_back([&] {
            const std::string found = ChunkChecker<from>(nextChunk).run();
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
    convertEveryPattern<eImageBufferType::Int32>();
}

TEST(ConvertImgLongTest, DISABLED_everyUInt32)
{
    convertEveryPattern<eImageBufferType::UInt32>();
}

TEST(ConvertImgLongTest, DISABLED_everyReal32)
{
    convertEveryPattern<eImageBufferType::Real32>();
}

} // namespace
} // namespace orlix::imaproc::util
