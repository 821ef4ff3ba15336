#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesStripedLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ExtractImg2dValuesStripedLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<ExtractImg2dValuesStripedLvl3, eProcessorMessage>
    g_registration(ExtractImg2dValuesStripedLvl3Kernels::g_tables);

} // namespace

ExtractImg2dValuesStripedLvl3::ExtractImg2dValuesStripedLvl3() = default;
ExtractImg2dValuesStripedLvl3::~ExtractImg2dValuesStripedLvl3() = default;

} // namespace orlix::imaproc::util
