#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CompareImgLvl2, eProcessorMessage> g_registration;

} // namespace

CompareImgLvl2::CompareImgLvl2() = default;
CompareImgLvl2::~CompareImgLvl2() = default;

} // namespace orlix::imaproc::util
