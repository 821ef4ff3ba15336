#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BuildLines2dImgLvl1, eProcessorMessage> g_registration;

} // namespace

BuildLines2dImgLvl1::BuildLines2dImgLvl1() = default;
BuildLines2dImgLvl1::~BuildLines2dImgLvl1() = default;

} // namespace orlix::imaproc::util
