#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesTiledLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ExtractImg3dValuesTiledLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<ExtractImg3dValuesTiledLvl3, eProcessorMessage>
    g_registration(ExtractImg3dValuesTiledLvl3Kernels::g_tables);

} // namespace

ExtractImg3dValuesTiledLvl3::ExtractImg3dValuesTiledLvl3() = default;
ExtractImg3dValuesTiledLvl3::~ExtractImg3dValuesTiledLvl3() = default;

} // namespace orlix::imaproc::util
