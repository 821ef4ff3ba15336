#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesTiledLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ExtractImg2dValuesTiledLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<ExtractImg2dValuesTiledLvl3, eProcessorMessage>
    g_registration(ExtractImg2dValuesTiledLvl3Kernels::g_tables);

} // namespace

ExtractImg2dValuesTiledLvl3::ExtractImg2dValuesTiledLvl3() = default;
ExtractImg2dValuesTiledLvl3::~ExtractImg2dValuesTiledLvl3() = default;

} // namespace orlix::imaproc::util
