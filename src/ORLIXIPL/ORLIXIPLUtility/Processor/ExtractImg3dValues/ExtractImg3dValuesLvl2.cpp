#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ExtractImg3dValuesLvl2, eProcessorMessage> g_registration;

} // namespace

ExtractImg3dValuesLvl2::ExtractImg3dValuesLvl2() = default;
ExtractImg3dValuesLvl2::~ExtractImg3dValuesLvl2() = default;

} // namespace orlix::imaproc::util
