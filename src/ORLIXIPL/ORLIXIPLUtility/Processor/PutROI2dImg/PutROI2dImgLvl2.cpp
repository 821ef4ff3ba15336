#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutROI2dImgLvl2, eProcessorMessage> g_registration;

} // namespace

PutROI2dImgLvl2::PutROI2dImgLvl2() = default;
PutROI2dImgLvl2::~PutROI2dImgLvl2() = default;

} // namespace orlix::imaproc::util
