#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuLaunch.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CopyImgLvl2, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr CopyImgLvl2::createRule() const
{
    return matchSizeAndType(accessAttribute<attr::InSubImg2d>(), accessAttribute<attr::OutImg>());
}

processor::ProviderResult CopyImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                        boost::shared_ptr<core::BaseActionProvider>& provider)
{
    processor::ProviderResult gpu = tryToLaunchGpuProcess();
    if (gpu.status != processor::eProviderStatus::eProviderNone) {
        return gpu;
    }
    const attr::InSubImg2d& in = *accessAttribute<attr::InSubImg2d>();
    const attr::OutImg& out = *accessAttribute<attr::OutImg>();
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            stripByStrip(in.getStorage(), !out.getImage().needsUnlocalizedInput()),
                            stripByStrip(out.getStorage()));
}

} // namespace orlix::imaproc::util
