// Strip to strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAlgorithm.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CopyImgLvl3 final
    : public StripAlgorithm<CopyImgLvl3, UtilityLibrary, RawStripParserMode, TypedBy<attr::InYStrip2d>,
                            attr::InYStrip2d, attr::OutYStrip2d>
{
public:
    static constexpr const char* g_name = "CopyImgLvl3";
    static constexpr auto g_toolTip = eProcessorMessage::eCopyImgLvl3;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, same element type.
    processor::RulePtr createRule() const;

    /// Copies `info.nbElements` elements of type T from the input's block to the output's, with instruction set ISA.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

private:
    /// What a kernel works on.
    struct Block
    {
        const void* source;
        void* destination;
        simd::eMemoryPlace place; ///< of the output
    };
    Block accessKernelBlock() const;
};

} // namespace orlix::imaproc::util
