// Strip of a slice along x or y into a volume, by a kernel chosen by element type and instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/SlicePlans.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutSlice3dImgLvl3 final
    : public KernelLevel<PutSlice3dImgLvl3, UtilityLibrary, TypedBy<attr::InYStrip2d>, Plain<attr::InSubImg3d>,
                         Raw<attr::InYStrip2d>, Plain<attr::InAxis>, Plain<attr::InSliceIndex>, Plain<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutSlice3dImgLvl3", eProcessorMessage::ePutSlice3dImgLvl3};

    using Rule = processor::NoRule;

    PutSlice3dImgLvl3();
    ~PutSlice3dImgLvl3() override;

    /// Writes the block of the input into rows, or single elements, of the volume's plans. A row of the slice goes to
    /// the plan of its number. Along z, and of rows beyond the last plan along x, nothing is written.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Finds the plans, and the place of the strip among them.
    processor::StepResult preProcess() override;

private:
    SlicePlans<std::byte> m_out{};
    SliceStrip m_strip{};
};

} // namespace orlix::imaproc::util
