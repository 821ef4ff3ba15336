#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<EraseImgLvl1, eProcessorMessage> g_registration;

} // namespace

EraseImgLvl1::EraseImgLvl1() = default;
EraseImgLvl1::~EraseImgLvl1() = default;

} // namespace orlix::imaproc::util
