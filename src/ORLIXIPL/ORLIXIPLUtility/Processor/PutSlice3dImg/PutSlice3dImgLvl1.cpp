#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutSlice3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

PutSlice3dImgLvl1::PutSlice3dImgLvl1() = default;
PutSlice3dImgLvl1::~PutSlice3dImgLvl1() = default;

} // namespace orlix::imaproc::util
