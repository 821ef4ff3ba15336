// Grey strip to binary strip, by a kernel chosen by the input's element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAlgorithm.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BasicThresholdImgLvl3 final
    : public StripAlgorithm<BasicThresholdImgLvl3, UtilityLibrary, RawStripParserMode, TypedBy<attr::InYStrip2d>,
                            attr::InYStrip2d, attr::InThresholdMin, attr::InThresholdMax, attr::OutBinYStrip2d>
{
public:
    static constexpr const char* g_name = "BasicThresholdImgLvl3";
    static constexpr auto g_toolTip = eProcessorMessage::eBasicThresholdImgLvl3;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, the lower bound not above the upper one, both within the range of the input, a binary output.
    processor::RulePtr createRule() const;

    /// Sets `info.nbElements` bytes of the output's block to 1 where the input's elements of type T lie between the
    /// bounds, else to 0, with instruction set ISA. Plain code writes exactly these; every other set reads and writes
    /// whole packs of 16 (SSE2), 32 (AVX2) or 64 (AVX512) elements.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

private:
    /// What a kernel works on.
    struct Block
    {
        const void* source;
        void* destination;
        ElementValue low;
        ElementValue high;
        simd::eMemoryPlace place; ///< of the output
    };
    Block accessKernelBlock() const;
};

} // namespace orlix::imaproc::util
