#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<EraseImgLvl2, eProcessorMessage> g_registration;

} // namespace

EraseImgLvl2::EraseImgLvl2() = default;
EraseImgLvl2::~EraseImgLvl2() = default;

processor::ProviderResult EraseImgLvl2::tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                              boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_gpuProcess.tryToLaunch(*this, accessOwnAttributes(), priority, provider);
}

} // namespace orlix::imaproc::util
