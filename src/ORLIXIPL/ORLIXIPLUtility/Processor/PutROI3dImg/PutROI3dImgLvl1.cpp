#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutROI3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

PutROI3dImgLvl1::PutROI3dImgLvl1() = default;
PutROI3dImgLvl1::~PutROI3dImgLvl1() = default;

} // namespace orlix::imaproc::util
