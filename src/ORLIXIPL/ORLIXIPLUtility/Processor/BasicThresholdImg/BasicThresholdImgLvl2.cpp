#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl2, eProcessorMessage> g_registration;

} // namespace

BasicThresholdImgLvl2::BasicThresholdImgLvl2() = default;
BasicThresholdImgLvl2::~BasicThresholdImgLvl2() = default;

processor::ProviderResult
BasicThresholdImgLvl2::tryToLaunchGpuProcess(const core::BasePriority& priority,
                                             boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_gpuProcess.tryToLaunch(*this, accessOwnAttributes(), priority, provider);
}

} // namespace orlix::imaproc::util
