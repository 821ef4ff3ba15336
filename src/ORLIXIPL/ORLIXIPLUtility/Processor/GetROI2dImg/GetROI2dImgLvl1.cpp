#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetROI2dImgLvl1, eProcessorMessage> g_registration;

} // namespace

GetROI2dImgLvl1::GetROI2dImgLvl1() = default;
GetROI2dImgLvl1::~GetROI2dImgLvl1() = default;

processor::StepResult GetROI2dImgLvl1::postProcess()
{
    processor::StepResult step = DispatchLevel::postProcess();
    if (step.status == processor::eStepStatus::eStepSuccess) {
        calibrateROI2d(accessAttribute<attr::InImg>()->getImage(),
                       accessAttribute<attr::InInputImg2dOffset>()->getDataItemNode(),
                       accessAttribute<attr::OutImg>()->getImage());
    }
    return step;
}

} // namespace orlix::imaproc::util
