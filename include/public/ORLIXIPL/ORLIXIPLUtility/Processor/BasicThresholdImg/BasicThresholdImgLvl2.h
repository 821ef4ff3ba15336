// Grey plan to binary plan: hands its strips to BasicThresholdImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgGpuLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BasicThresholdImgLvl2 final
    : public StripLevel<BasicThresholdImgLvl2, UtilityLibrary, BasicThresholdImgLvl3,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d>, SameForStrips<attr::InThresholdMin>,
                        SameForStrips<attr::InThresholdMax>, ByYStrip<attr::OutBinImg, attr::OutBinYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BasicThresholdImgLvl2",
                                                     eProcessorMessage::eBasicThresholdImgLvl2};

    using Rule = BasicThresholdImgRule<attr::InSubImg2d, attr::OutBinImg>;
    using Initializers = processor::AllOutputsGiven;

    BasicThresholdImgLvl2();
    ~BasicThresholdImgLvl2() override;

    /// Has the device do the work where all images lie on one: see GpuProcess.
    processor::ProviderResult tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider);

private:
    GpuProcess<BasicThresholdImgGpuLvl3, OnDevice<attr::InSubImg2d, attr::InSubGpuImg>,
               SameForPlans<attr::InThresholdMin>, SameForPlans<attr::InThresholdMax>, OnDevice<attr::OutBinImg>>
        m_gpuProcess;
};

} // namespace orlix::imaproc::util
