// One value into a strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API EraseImgLvl3 final
    : public KernelLevel<EraseImgLvl3, UtilityLibrary, TypedBy<attr::OutYStrip2d>, Plain<attr::InOptEraseValue>,
                         Raw<attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"EraseImgLvl3", eProcessorMessage::eEraseImgLvl3};

    using Rule = processor::NoRule;

    EraseImgLvl3();
    ~EraseImgLvl3() override;

    /// Sets `info.nbElements` elements of type T to the value, with instruction set ISA. Plain code writes exactly
    /// these; every other set writes whole rounds of 16 (SSE2), 32 (AVX, AVX2) or 64 (AVX512) elements.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes the value as elements are made of it.
    processor::StepResult preProcess() override;

private:
    ElementValue m_value{};
};

} // namespace orlix::imaproc::util
