// Grey strip to binary strip, by a kernel chosen by the input's element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgRule.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BasicThresholdImgLvl3 final
    : public KernelLevel<BasicThresholdImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d>, Raw<attr::InYStrip2d>,
                         Plain<attr::InThresholdMin>, Plain<attr::InThresholdMax>, Raw<attr::OutBinYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BasicThresholdImgLvl3",
                                                     eProcessorMessage::eBasicThresholdImgLvl3};

    using Rule = BasicThresholdImgRule<attr::InYStrip2d, attr::OutBinYStrip2d>;

    BasicThresholdImgLvl3();
    ~BasicThresholdImgLvl3() override;

    /// Sets `info.nbElements` bytes of the output's block to 1 where the input's elements of type T lie between the
    /// bounds, else to 0, with instruction set ISA. Plain code writes exactly these; every other set reads and writes
    /// whole packs of 16 (SSE2), 32 (AVX2) or 64 (AVX512) elements.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes the bounds as elements are compared with them.
    processor::StepResult preProcess() override;

private:
    ElementValue m_low{};
    ElementValue m_high{};
};

} // namespace orlix::imaproc::util
