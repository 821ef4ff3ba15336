#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GaussianRandomImgLvl1, eProcessorMessage> g_registration;

} // namespace

GaussianRandomImgLvl1::GaussianRandomImgLvl1() = default;
GaussianRandomImgLvl1::~GaussianRandomImgLvl1() = default;

} // namespace orlix::imaproc::util
