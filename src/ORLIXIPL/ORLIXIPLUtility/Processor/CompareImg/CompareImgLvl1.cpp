#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CompareImgLvl1, eProcessorMessage> g_registration;

} // namespace

CompareImgLvl1::CompareImgLvl1() = default;
CompareImgLvl1::~CompareImgLvl1() = default;

} // namespace orlix::imaproc::util
