// Plan to plan of another element type: hands its strips to ConvertImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgGpuLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuProcess.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ConvertImgLvl2 final
    : public StripLevel<ConvertImgLvl2, UtilityLibrary, ConvertImgLvl3,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d, PlacedFor<attr::OutImg>>,
                        ByYStrip<attr::OutImg, attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"ConvertImgLvl2", eProcessorMessage::eConvertImgLvl2};

    using Rule = MatchSize<attr::InSubImg2d, attr::OutImg>;
    using Initializers = processor::AllOutputsGiven;

    ConvertImgLvl2();
    ~ConvertImgLvl2() override;

    /// Has the device do the work where all images lie on one: see GpuProcess.
    processor::ProviderResult tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider);

private:
    GpuProcess<ConvertImgGpuLvl3, OnDevice<attr::InSubImg2d, attr::InSubGpuImg>, OnDevice<attr::OutImg>> m_gpuProcess;
};

} // namespace orlix::imaproc::util
