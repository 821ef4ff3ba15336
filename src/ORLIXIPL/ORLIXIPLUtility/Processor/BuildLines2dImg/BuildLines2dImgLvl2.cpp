#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BuildLines2dImgLvl2, eProcessorMessage> g_registration;

} // namespace

BuildLines2dImgLvl2::BuildLines2dImgLvl2() = default;
BuildLines2dImgLvl2::~BuildLines2dImgLvl2() = default;

} // namespace orlix::imaproc::util
