#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ConvertImgLvl1, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr ConvertImgLvl1::createRule() const
{
    return matchSize(accessAttribute<attr::InImg>(), accessAttribute<attr::OutImg>()) &&
           bufferType(accessAttribute<attr::OutImg>(), accessAttribute<attr::InConvertImageBufferType>());
}

void ConvertImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    initializers[attr::OutImg::getObjectNameStr()] =
        duplicateInOut<attr::InImg, attr::OutImg>(accessAttribute<attr::OutImg>(), accessAttribute<attr::InImg>(),
                                                  accessAttribute<attr::InConvertImageBufferType>());
}

processor::ProviderResult ConvertImgLvl1::retrieveProvider(const core::BasePriority& priority,
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
