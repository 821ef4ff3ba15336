// Strip to strip of another element type, by a kernel chosen by both types and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAlgorithm.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl3 final
    : public StripAlgorithm<ConvertImgLvl3, UtilityLibrary, RawStripParserMode,
                            TypedBy<attr::InYStrip2d, attr::OutYStrip2d>, attr::InYStrip2d, attr::OutYStrip2d>
{
public:
    static constexpr const char* g_name = "ConvertImgLvl3";
    static constexpr auto g_toolTip = eProcessorMessage::eConvertImgLvl3;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes.
    processor::RulePtr createRule() const;

    /// Converts `info.nbElements` elements of type TIn of the input's block to TOut in the output's, with instruction
    /// set ISA. Reads and writes up to 63 elements past them.
    template <class TIn, class TOut, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

private:
    /// What a kernel works on.
    struct Block
    {
        const void* source;
        void* destination;
        bool bBinary;             ///< the output's element type is binary
        simd::eMemoryPlace place; ///< of the output
    };
    Block accessKernelBlock() const;
};

} // namespace orlix::imaproc::util
