#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CopyImgLvl1, eProcessorMessage> g_registration;

} // namespace

CopyImgLvl1::CopyImgLvl1() = default;
CopyImgLvl1::~CopyImgLvl1() = default;

} // namespace orlix::imaproc::util
