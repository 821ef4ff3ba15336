#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetROI3dImgLvl2, eProcessorMessage> g_registration;

} // namespace

GetROI3dImgLvl2::GetROI3dImgLvl2() = default;
GetROI3dImgLvl2::~GetROI3dImgLvl2() = default;

} // namespace orlix::imaproc::util
