#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ExtractImg2dValuesLvl2, eProcessorMessage> g_registration;

} // namespace

ExtractImg2dValuesLvl2::ExtractImg2dValuesLvl2() = default;
ExtractImg2dValuesLvl2::~ExtractImg2dValuesLvl2() = default;

} // namespace orlix::imaproc::util
