#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutROI3dImgLvl2, eProcessorMessage> g_registration;

} // namespace

PutROI3dImgLvl2::PutROI3dImgLvl2() = default;
PutROI3dImgLvl2::~PutROI3dImgLvl2() = default;

} // namespace orlix::imaproc::util
