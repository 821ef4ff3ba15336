#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ConvertImgLvl2, eProcessorMessage> g_registration;

} // namespace

ConvertImgLvl2::ConvertImgLvl2() = default;
ConvertImgLvl2::~ConvertImgLvl2() = default;

} // namespace orlix::imaproc::util
