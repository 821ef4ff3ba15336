// A strip of the smaller volume into its place in the larger one, by a kernel chosen by element type and instruction
// set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

/// The input strip is that of the smaller volume. The output strip has its plans of the larger one; x and y of the
/// offset are the kernel's to apply.
class ORLIXIPLUTILITY_API PutROI3dImgLvl3 final
    : public KernelLevel<PutROI3dImgLvl3, UtilityLibrary, TypedBy<attr::InZStrip3d>, Unparsed<attr::InZStrip3d>,
                         Plain<attr::InInputImg3dOffset>, Unparsed<attr::InOutZStrip3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutROI3dImgLvl3", eProcessorMessage::ePutROI3dImgLvl3};

    using Rule = processor::NoRule;

    PutROI3dImgLvl3();
    ~PutROI3dImgLvl3() override;

    /// Copies the strip, of elements of type T, to its place with instruction set ISA.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Finds the place in the output strip. Fails where it does not hold the input strip.
    processor::StepResult preProcess() override;

private:
    PixelBox m_box;
};

} // namespace orlix::imaproc::util
