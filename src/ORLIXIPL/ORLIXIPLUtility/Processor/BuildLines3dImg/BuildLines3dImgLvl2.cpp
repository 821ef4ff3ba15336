#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BuildLines3dImgLvl2, eProcessorMessage> g_registration;

} // namespace

BuildLines3dImgLvl2::BuildLines3dImgLvl2() = default;
BuildLines3dImgLvl2::~BuildLines3dImgLvl2() = default;

} // namespace orlix::imaproc::util
