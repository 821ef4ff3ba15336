#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetROI3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

GetROI3dImgLvl1::GetROI3dImgLvl1() = default;
GetROI3dImgLvl1::~GetROI3dImgLvl1() = default;

processor::StepResult GetROI3dImgLvl1::postProcess()
{
    processor::StepResult step = DispatchLevel::postProcess();
    if (step.status == processor::eStepStatus::eStepSuccess) {
        calibrateROI3d(accessAttribute<attr::InImg3d>()->getImage(),
                       accessAttribute<attr::InInputImg3dOffset>()->getDataItemNode(),
                       accessAttribute<attr::OutImg>()->getImage());
    }
    return step;
}

} // namespace orlix::imaproc::util
