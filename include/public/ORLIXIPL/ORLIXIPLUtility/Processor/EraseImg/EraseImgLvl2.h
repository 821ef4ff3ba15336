// One value into a plan: hands its strips to EraseImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgGpuLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API EraseImgLvl2 final
    : public StripLevel<EraseImgLvl2, UtilityLibrary, EraseImgLvl3, SameForStrips<attr::InOptEraseValue>,
                        ByYStrip<attr::OutSubImg2d, attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"EraseImgLvl2", eProcessorMessage::eEraseImgLvl2};

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    EraseImgLvl2();
    ~EraseImgLvl2() override;

    /// Has the device do the work where all images lie on one: see GpuProcess.
    processor::ProviderResult tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider);

private:
    GpuProcess<EraseImgGpuLvl3, SameForPlans<attr::InOptEraseValue>, OnDevice<attr::OutSubImg2d, attr::OutImg>>
        m_gpuProcess;
};

} // namespace orlix::imaproc::util
