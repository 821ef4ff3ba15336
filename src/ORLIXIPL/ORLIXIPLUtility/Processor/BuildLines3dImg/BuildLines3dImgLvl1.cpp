#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BuildLines3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

BuildLines3dImgLvl1::BuildLines3dImgLvl1() = default;
BuildLines3dImgLvl1::~BuildLines3dImgLvl1() = default;

} // namespace orlix::imaproc::util
