// Every kernel of BasicThresholdImgLvl3 by itself: how far it writes, and that it stays within what it may touch.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/BasicThresholdImg/ThresholdOracle.h"
#include "support/TestSettings.h"

#include <limits>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                              eInstructionSet::eAVX512};

/// Pixels that a kernel of the set takes at once.
unsigned long stepOf(eInstructionSet::domain set)
{
    switch (set) {
    case eInstructionSet::eSSE2: return 16;
    case eInstructionSet::eAVX2: return 32;
    case eInstructionSet::eAVX512: return 64;
    default: return 1;
    }
}

const testing::KernelTable g_table{{std::begin(g_sets), std::end(g_sets)}};

TEST(BasicThresholdImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<BasicThresholdImgLvl3>(g_table);
}

TEST(BasicThresholdImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<BasicThresholdImgLvl3>(g_table);
}

/// An owned line has room behind it, where the last pack may end, and shows where it does.
TEST(BasicThresholdImgKernelsTest, writesWholePacksAndNoMore)
{
    testing::forEachKernel<BasicThresholdImgLvl3>(g_table, [](eInstructionSet::domain set, eImageBufferType type) {
        const unsigned long step = stepOf(set);
        const Bounds bounds = middleOf(type);
        for (unsigned long length = 1; length <= 3 * step + 17; ++length) {
            const ImagePtr in = makeRandom(*geometry2d(type, length, 1), length);
            const ImagePtr out = image::createImage(*geometry2d(g_binary, length, 1));
            std::byte* const first = out->accessRow(0, 0, 0, 0);
            std::fill_n(first, length + 64, std::byte{0xA7});
            ASSERT_EQ(runThreshold(in, bounds.low, bounds.high, out), "");
            ASSERT_TRUE(isThreshold(*in, bounds.low, bounds.high, *out));
            const unsigned long nbWritten = (length + step - 1) / step * step;
            for (unsigned long i = length; i < length + 64; ++i) {
                ASSERT_EQ(first[i] == std::byte{0xA7}, i >= nbWritten) << "length " << length << ", byte " << i;
            }
        }
    });
}

TEST(BasicThresholdImgKernelsTest, everySetTypeAndLengthStaysWithinItsElements)
{
    testing::forEachKernel<BasicThresholdImgLvl3>(g_table, [](eInstructionSet::domain, eImageBufferType type) {
        const Bounds bounds = middleOf(type);
        for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1 + length % 3, false}}) {
                const testing::WatchedImage in(*geometry2d(type, length, 1), form);
                testing::fillRandom(*in.get(), length);
                const testing::WatchedImage out(*geometry2d(g_binary, length, 1), form);
                ASSERT_EQ(runThreshold(in.get(), bounds.low, bounds.high, out.get()), "");
                ASSERT_TRUE(isThreshold(*in.get(), bounds.low, bounds.high, *out.get()));
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact());
            }
        }
    });
}

/// Without a rule the kernels still do what they are asked for.
TEST(BasicThresholdImgKernelsTest, boundsThatARuleWouldRefuse)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    testing::forEachKernel<BasicThresholdImgLvl3>(g_table, [&](eInstructionSet::domain, eImageBufferType type) {
        const ImagePtr in = makeRandom(*geometry2d(type, 200, 3));
        const auto nbSelected = [&](double low, double high) {
            const ImagePtr out = createImage(*geometry2d(g_binary, 200, 3));
            BasicThresholdImgLvl3 level;
            EXPECT_TRUE(level.init(processor::eProcessorRulePolicy::eRulePolicySkip));
            level.set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 0, 3));
            level.set<attr::InThresholdMin>(low);
            level.set<attr::InThresholdMax>(high);
            level.set<attr::OutBinYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out, 0, 3));
            EXPECT_TRUE(level.run(g_sync));
            const std::vector<std::byte> bytes = testing::bytesOf(*out);
            EXPECT_EQ(static_cast<unsigned long>(std::count(bytes.begin(), bytes.end(), std::byte{0}) +
                                                 std::count(bytes.begin(), bytes.end(), std::byte{1})),
                      bytes.size());
            return std::count(bytes.begin(), bytes.end(), std::byte{1});
        };
        EXPECT_EQ(nbSelected(100, 99), 0);
        EXPECT_EQ(nbSelected(100, 0), 0);
        if (type == eImageBufferType::Real32) {
            EXPECT_EQ(nbSelected(nan, 1e30), 0);
            EXPECT_EQ(nbSelected(-1e30, nan), 0);
            EXPECT_EQ(nbSelected(infinity, -infinity), 0);
            EXPECT_GE(nbSelected(-infinity, infinity), 500) << "all but NaN";
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
