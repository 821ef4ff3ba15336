#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesStripedLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ExtractImg3dValuesStripedLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<ExtractImg3dValuesStripedLvl3, eProcessorMessage>
    g_registration(ExtractImg3dValuesStripedLvl3Kernels::g_tables);

} // namespace

ExtractImg3dValuesStripedLvl3::ExtractImg3dValuesStripedLvl3() = default;
ExtractImg3dValuesStripedLvl3::~ExtractImg3dValuesStripedLvl3() = default;

} // namespace orlix::imaproc::util
