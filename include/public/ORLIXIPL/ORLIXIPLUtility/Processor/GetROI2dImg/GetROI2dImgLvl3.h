// Region of a strip to a strip of its size, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

/// The input strip begins with the region's first line; x of the offset is the kernel's to apply.
class ORLIXIPLUTILITY_API GetROI2dImgLvl3 final
    : public KernelLevel<GetROI2dImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d>, Unparsed<attr::InYStrip2d>,
                         Plain<attr::InInputImg2dOffset>, Plain<attr::InOutputImg2dSize>, Unparsed<attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI2dImgLvl3", eProcessorMessage::eGetROI2dImgLvl3};

    using Rule = processor::NoRule;

    GetROI2dImgLvl3();
    ~GetROI2dImgLvl3() override;

    /// Copies the region of the strip, of elements of type T, with instruction set ISA.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Finds the region in both strips. Fails where one does not hold it.
    processor::StepResult preProcess() override;

private:
    PixelBox m_box;
};

} // namespace orlix::imaproc::util
