// One value into a strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAlgorithm.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API EraseImgLvl3 final
    : public StripAlgorithm<EraseImgLvl3, UtilityLibrary, RawStripParserMode, TypedBy<attr::OutYStrip2d>,
                            attr::InOptEraseValue, attr::OutYStrip2d>
{
public:
    static constexpr const char* g_name = "EraseImgLvl3";
    static constexpr auto g_toolTip = eProcessorMessage::eEraseImgLvl3;
    static constexpr const char* g_header = __FILE__;

    processor::RulePtr createRule() const { return processor::none(); }

    /// Sets `info.nbElements` elements of type T to the value, with instruction set ISA. Plain code writes exactly
    /// these; every other set writes whole rounds of 16 (SSE2), 32 (AVX, AVX2) or 64 (AVX512) elements.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

private:
    /// What a kernel works on.
    struct Block
    {
        void* destination;
        ElementValue value;
        simd::eMemoryPlace place; ///< of the output
    };
    Block accessKernelBlock() const;
};

} // namespace orlix::imaproc::util
