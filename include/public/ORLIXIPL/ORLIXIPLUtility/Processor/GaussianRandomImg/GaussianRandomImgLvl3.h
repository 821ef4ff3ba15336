// Normal random values into a strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RandomAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomLevel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GaussianRandomImgLvl3 final
    : public RandomKernelLevel<KernelLevel<GaussianRandomImgLvl3, UtilityLibrary, TypedBy<attr::OutYStrip2d>,
                                           Plain<attr::InGaussianParameter>, Raw<attr::OutYStrip2d>>,
                               attr::OutYStrip2d>
{
public:
    static constexpr processor::ProcessorText g_text{"GaussianRandomImgLvl3",
                                                     eProcessorMessage::eGaussianRandomImgLvl3};

    using Rule = processor::NoRule;

    GaussianRandomImgLvl3();
    ~GaussianRandomImgLvl3() override;

    /// Fills `info.nbElements` elements of type T, with instruction set ISA. Plain code writes exactly these; every
    /// other set writes whole packs.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes mean and deviation in single precision.
    processor::StepResult preProcess() override;

private:
    float m_mean = 0;
    float m_stdDev = 0;
};

} // namespace orlix::imaproc::util
