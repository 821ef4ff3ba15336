#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutROI2dImgLvl1, eProcessorMessage> g_registration;

} // namespace

PutROI2dImgLvl1::PutROI2dImgLvl1() = default;
PutROI2dImgLvl1::~PutROI2dImgLvl1() = default;

} // namespace orlix::imaproc::util
