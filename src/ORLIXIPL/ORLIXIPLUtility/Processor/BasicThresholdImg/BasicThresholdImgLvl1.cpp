#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgRule.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl1, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr BasicThresholdImgLvl1::createRule() const
{
    return matchSize(accessAttribute<attr::InImg>(), accessAttribute<attr::OutBinImg>()) &&
           matchImageBounds(accessAttribute<attr::InImg>(), accessAttribute<attr::InThresholdMin>(),
                            accessAttribute<attr::InThresholdMax>()) &&
           hasFixedType(accessAttribute<attr::OutBinImg>());
}

void BasicThresholdImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    initializers[attr::OutBinImg::getObjectNameStr()] = duplicateInOut<attr::InImg, attr::OutBinImg>(
        accessAttribute<attr::OutBinImg>(), accessAttribute<attr::InImg>(), eImageStoragePolicy::eDefaultStorage);
}

processor::ProviderResult BasicThresholdImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                                  boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            planByPlan(accessAttribute<attr::InImg>()->getStorage()),
                            sameForAll(accessAttribute<attr::InThresholdMin>()->accessValue()),
                            sameForAll(accessAttribute<attr::InThresholdMax>()->accessValue()),
                            planByPlan(accessAttribute<attr::OutBinImg>()->getStorage()));
}

} // namespace orlix::imaproc::util
