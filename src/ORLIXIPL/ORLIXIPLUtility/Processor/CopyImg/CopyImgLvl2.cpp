#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CopyImgLvl2, eProcessorMessage> g_registration;

} // namespace

CopyImgLvl2::CopyImgLvl2() = default;
CopyImgLvl2::~CopyImgLvl2() = default;

processor::ProviderResult CopyImgLvl2::tryToLaunchGpuProcess(const core::BasePriority& priority,
                                                             boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_gpuProcess.tryToLaunch(*this, accessOwnAttributes(), priority, provider);
}

} // namespace orlix::imaproc::util
