#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuLaunch.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<EraseImgLvl2, eProcessorMessage> g_registration;

} // namespace

processor::ProviderResult EraseImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                         boost::shared_ptr<core::BaseActionProvider>& provider)
{
    processor::ProviderResult gpu = tryToLaunchGpuProcess();
    if (gpu.status != processor::eProviderStatus::eProviderNone) {
        return gpu;
    }
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            sameForAll(accessAttribute<attr::InOptEraseValue>()->accessValue()),
                            stripByStrip(accessAttribute<attr::OutSubImg2d>()->getStorage()));
}

} // namespace orlix::imaproc::util
