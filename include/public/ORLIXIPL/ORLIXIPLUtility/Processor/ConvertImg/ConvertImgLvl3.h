// Strip to strip of another element type, by a kernel chosen by both types and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl3 final
    : public KernelLevel<ConvertImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d, attr::OutYStrip2d>,
                         Raw<attr::InYStrip2d>, Raw<attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"ConvertImgLvl3", eProcessorMessage::eConvertImgLvl3};

    using Rule = MatchSize<attr::InYStrip2d, attr::OutYStrip2d>;

    ConvertImgLvl3();
    ~ConvertImgLvl3() override;

    /// Converts `info.nbElements` elements of type TIn of the input's block to TOut in the output's, with instruction
    /// set ISA. Reads and writes up to 63 elements past them.
    template <class TIn, class TOut, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Looks whether the output is binary, which the storage type doesn't tell.
    processor::StepResult preProcess() override;

private:
    bool m_bBinary = false;
};

} // namespace orlix::imaproc::util
