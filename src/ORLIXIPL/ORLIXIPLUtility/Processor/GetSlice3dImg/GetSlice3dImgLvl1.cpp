#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetSlice3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

GetSlice3dImgLvl1::GetSlice3dImgLvl1() = default;
GetSlice3dImgLvl1::~GetSlice3dImgLvl1() = default;

} // namespace orlix::imaproc::util
