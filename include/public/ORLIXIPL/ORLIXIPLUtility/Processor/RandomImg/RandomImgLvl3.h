// Uniform random values into a strip, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgRule.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomLevel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API RandomImgLvl3 final
    : public RandomKernelLevel<KernelLevel<RandomImgLvl3, UtilityLibrary, TypedBy<attr::OutYStrip2d>,
                                           Plain<attr::InOutputRange>, Raw<attr::OutYStrip2d>>,
                               attr::OutYStrip2d>
{
public:
    static constexpr processor::ProcessorText g_text{"RandomImgLvl3", eProcessorMessage::eRandomImgLvl3};

    using Rule = RandomImgRule<attr::OutYStrip2d, attr::InOutputRange>;

    RandomImgLvl3();
    ~RandomImgLvl3() override;

    /// Fills `info.nbElements` elements of type T, with instruction set ISA. Plain code writes exactly these; every
    /// other set writes whole packs.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes the ends of the range as elements are compared with them.
    processor::StepResult preProcess() override;

private:
    ElementValue m_min{};
    ElementValue m_max{};
};

} // namespace orlix::imaproc::util
