// Strip to strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CopyImgLvl3 final : public KernelLevel<CopyImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d>,
                                                                 Raw<attr::InYStrip2d>, Raw<attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"CopyImgLvl3", eProcessorMessage::eCopyImgLvl3};

    using Rule = MatchSizeAndType<attr::InYStrip2d, attr::OutYStrip2d>;

    CopyImgLvl3();
    ~CopyImgLvl3() override;

    /// Copies `info.nbElements` elements of type T from the input's block to the output's, with instruction set ISA.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);
};

} // namespace orlix::imaproc::util
