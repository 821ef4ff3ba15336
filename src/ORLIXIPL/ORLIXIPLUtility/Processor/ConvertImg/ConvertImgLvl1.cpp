#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ConvertImgLvl1, eProcessorMessage> g_registration;

} // namespace

ConvertImgLvl1::ConvertImgLvl1() = default;
ConvertImgLvl1::~ConvertImgLvl1() = default;

} // namespace orlix::imaproc::util
