#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CopyImgLvl1, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr CopyImgLvl1::createRule() const
{
    return matchSizeAndType(accessAttribute<attr::InImg>(), accessAttribute<attr::OutImg>());
}

void CopyImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    initializers[attr::OutImg::getObjectNameStr()] =
        duplicateInOut<attr::InImg, attr::OutImg>(accessAttribute<attr::OutImg>(), accessAttribute<attr::InImg>(),
                                                  eImageStoragePolicy::eDefaultStorage);
}

processor::ProviderResult CopyImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                        boost::shared_ptr<core::BaseActionProvider>& provider)
{
    const attr::InImg& in = *accessAttribute<attr::InImg>();
    const attr::OutImg& out = *accessAttribute<attr::OutImg>();
    if (isInSitu(in, out)) {
        return processor::ProviderResult::none();
    }
    return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                            planByPlan(in.getStorage(), !out.getImage().needsUnlocalizedInput()),
                            planByPlan(out.getStorage()));
}

} // namespace orlix::imaproc::util
