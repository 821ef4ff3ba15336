#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<RandomImgLvl2, eProcessorMessage> g_registration;

} // namespace

RandomImgLvl2::RandomImgLvl2() = default;
RandomImgLvl2::~RandomImgLvl2() = default;

} // namespace orlix::imaproc::util
