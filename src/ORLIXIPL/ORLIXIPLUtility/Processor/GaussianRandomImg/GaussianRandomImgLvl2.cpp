#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GaussianRandomImgLvl2, eProcessorMessage> g_registration;

} // namespace

GaussianRandomImgLvl2::GaussianRandomImgLvl2() = default;
GaussianRandomImgLvl2::~GaussianRandomImgLvl2() = default;

} // namespace orlix::imaproc::util
