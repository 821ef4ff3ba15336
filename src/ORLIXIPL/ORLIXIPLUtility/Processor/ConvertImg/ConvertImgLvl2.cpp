#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ConvertImgLvl2, eProcessorMessage> g_registration;

} // namespace

ConvertImgLvl2::ConvertImgLvl2() = default;
ConvertImgLvl2::~ConvertImgLvl2() = default;

processor::ProviderResult ConvertImgLvl2::tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                                boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_gpuProcess.tryToLaunch(*this, accessOwnAttributes(), priority, provider);
}

} // namespace orlix::imaproc::util
