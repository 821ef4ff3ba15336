// Volume to strip of a slice along x or y, by a kernel chosen by element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/SlicePlans.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GetSlice3dImgLvl3 final
    : public KernelLevel<GetSlice3dImgLvl3, UtilityLibrary, TypedBy<attr::OutYStrip2d>, Plain<attr::InSubImg3d>,
                         Plain<attr::InAxis>, Plain<attr::InSliceIndex>, Raw<attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetSlice3dImgLvl3", eProcessorMessage::eGetSlice3dImgLvl3};

    using Rule = processor::NoRule;

    GetSlice3dImgLvl3();
    ~GetSlice3dImgLvl3() override;

    /// Fills the block of the output from rows, or single elements, of the volume's plans. A row of the output comes
    /// from the plan of its number. Along z, and on rows beyond the last plan along x, nothing is written.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Finds the plans, and the place of the strip among them.
    processor::StepResult preProcess() override;

private:
    SlicePlans<const std::byte> m_in{};
    SliceStrip m_strip{};
};

} // namespace orlix::imaproc::util
