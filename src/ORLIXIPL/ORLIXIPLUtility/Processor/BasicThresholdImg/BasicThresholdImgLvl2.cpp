#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgRule.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuLaunch.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl2, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr BasicThresholdImgLvl2::createRule() const
{
    return matchSize(accessAttribute<attr::InSubImg2d>(), accessAttribute<attr::OutBinImg>()) &&
           matchImageBounds(accessAttribute<attr::InSubImg2d>(), accessAttribute<attr::InThresholdMin>(),
                            accessAttribute<attr::InThresholdMax>()) &&
           hasFixedType(accessAttribute<attr::OutBinImg>());
}

processor::ProviderResult BasicThresholdImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                                  boost::shared_ptr<core::BaseActionProvider>& provider)
{
    processor::ProviderResult gpu = tryToLaunchGpuProcess();
    if (gpu.status != processor::eProviderStatus::eProviderNone) {
        return gpu;
    }
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            stripByStrip(accessAttribute<attr::InSubImg2d>()->getStorage()),
                            sameForAll(accessAttribute<attr::InThresholdMin>()->accessValue()),
                            sameForAll(accessAttribute<attr::InThresholdMax>()->accessValue()),
                            stripByStrip(accessAttribute<attr::OutBinImg>()->getStorage()));
}

} // namespace orlix::imaproc::util
