#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetROI2dImgLvl2, eProcessorMessage> g_registration;

} // namespace

GetROI2dImgLvl2::GetROI2dImgLvl2() = default;
GetROI2dImgLvl2::~GetROI2dImgLvl2() = default;

} // namespace orlix::imaproc::util
