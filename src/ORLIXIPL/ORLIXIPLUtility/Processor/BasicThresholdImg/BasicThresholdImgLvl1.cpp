#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl1, eProcessorMessage> g_registration;

} // namespace

BasicThresholdImgLvl1::BasicThresholdImgLvl1() = default;
BasicThresholdImgLvl1::~BasicThresholdImgLvl1() = default;

} // namespace orlix::imaproc::util
