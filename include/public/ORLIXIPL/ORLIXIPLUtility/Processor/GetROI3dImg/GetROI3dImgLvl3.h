// Region of a strip to a strip of its size, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

/// The input strip begins with the region's first plan; x and y of the offset are the kernel's to apply.
class ORLIXIPLUTILITY_API GetROI3dImgLvl3 final
    : public KernelLevel<GetROI3dImgLvl3, UtilityLibrary, TypedBy<attr::InZStrip3d>, Unparsed<attr::InZStrip3d>,
                         Plain<attr::InInputImg3dOffset>, Plain<attr::InOutputImg3dSize>, Unparsed<attr::OutZStrip3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI3dImgLvl3", eProcessorMessage::eGetROI3dImgLvl3};

    using Rule = processor::NoRule;

    GetROI3dImgLvl3();
    ~GetROI3dImgLvl3() override;

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
