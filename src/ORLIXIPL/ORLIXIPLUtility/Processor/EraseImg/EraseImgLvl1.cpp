#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<EraseImgLvl1, eProcessorMessage> g_registration;

} // namespace

processor::ProviderResult EraseImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                         boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            sameForAll(accessAttribute<attr::InOptEraseValue>()->accessValue()),
                            planByPlan(accessAttribute<attr::OutImg>()->getStorage()));
}

} // namespace orlix::imaproc::util
