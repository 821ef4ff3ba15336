// A level-3 class whose kernels go by no element type: registered from a table, found, and run line by line.
#include "ORLIXIPL/ORLIXImageProcessing/UntypedKernelRow.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"
#include "ORLIXImageProcessing/StripProcessors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {

/// Writes to each line its number, and which kernel did.
class NumberLines final : public KernelLevel<NumberLines, test::PictureLibrary, TypedBy<>, ByLine<test::OutMaskStrip>>
{
public:
    static constexpr processor::ProcessorText g_text{"NumberLines", 0};
    using Rule = processor::NoRule;

    template <eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info)
    {
        auto* line = static_cast<unsigned char*>(accessBlock<test::OutMaskStrip>());
        for (unsigned long i = 0; i < info.nbElements; ++i) {
            line[i] = static_cast<unsigned char>(16 * ISA + info.currentLine);
        }
        return succeed();
    }
};

ORLIX_KERNEL_SETS(NumberLines, plain, sse2)
ORLIX_KERNEL_TABLE(NumberLines, plain, Untyped)
ORLIX_KERNEL_TABLE(NumberLines, sse2, Untyped)

} // namespace orlix::imaproc::util

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using util::NumberLines;

void enterKernelsOnce()
{
    static const bool g_bEntered = [] {
        processor::details::functionRegistration(NumberLines::accessFunctionSelector(), util::g_NumberLines_plain);
        processor::details::functionRegistration(NumberLines::accessFunctionSelector(), util::g_NumberLines_sse2);
        return true;
    }();
    EXPECT_TRUE(g_bEntered);
}

TEST(UntypedKernelRow, IsEnteredAndFoundUnderNoType)
{
    enterKernelsOnce();
    const auto& rows = NumberLines::accessFunctionSelector().getFunctions();
    ASSERT_EQ(rows.size(), 2u);
    processor::DataTypeIdentifierColl none;
    none.init();
    EXPECT_EQ(rows[0].getDataTypes().toString(), "no type");
    EXPECT_EQ(NumberLines::accessFunctionSelector().select(none, {eInstructionSet::eNone}), &rows[0]);
    EXPECT_EQ(NumberLines::accessFunctionSelector().select(none, {}), &rows[1]);
}

TEST(UntypedKernelRow, RunsWhateverTheStripsType)
{
    enterKernelsOnce();
    for (const eImageBufferType type : {eImageBufferType::eBufferBinary, eImageBufferType::UInt8}) {
        for (const eInstructionSet::domain set : {eInstructionSet::eNone, eInstructionSet::eSSE2}) {
            const ImagePtr image = image::createImage(*image::geometry2d(type, 5, 4));
            const auto level = makeInitialised<NumberLines>();
            NumberLines::forceInstructionSets({set});
            level->set<OutMaskStrip>(boost::make_shared<image::OutputImageYStrip2d>(*image, 1, 3));
            EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
            NumberLines::releaseForcedInstructionSets();
            for (unsigned long y = 1; y < 4; ++y) {
                for (unsigned long x = 0; x < 5; ++x) {
                    EXPECT_EQ(image::planData<unsigned char>(*image, 0, 0, 0)[5 * y + x], 16 * set + y - 1);
                }
            }
        }
    }
}

} // namespace
} // namespace orlix::imaproc::test
