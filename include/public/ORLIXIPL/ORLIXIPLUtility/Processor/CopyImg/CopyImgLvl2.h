// Plan to plan: hands its strips to CopyImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgGpuLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CopyImgLvl2 final
    : public StripLevel<CopyImgLvl2, UtilityLibrary, CopyImgLvl3,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d, PlacedFor<attr::OutImg>>,
                        ByYStrip<attr::OutImg, attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"CopyImgLvl2", eProcessorMessage::eCopyImgLvl2};

    using Rule = MatchSizeAndType<attr::InSubImg2d, attr::OutImg>;
    using Initializers = processor::AllOutputsGiven;

    CopyImgLvl2();
    ~CopyImgLvl2() override;

    /// Has the device do the work where all images lie on one: see GpuProcess.
    processor::ProviderResult tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider);

private:
    GpuProcess<CopyImgGpuLvl3, OnDevice<attr::InSubImg2d, attr::InSubGpuImg>, OnDevice<attr::OutImg>> m_gpuProcess;
};

} // namespace orlix::imaproc::util
