// Hands on what the hardware layer knows.
#include "ORLIX/ORLIXCore/ComputerInfoPool.h"

namespace orlix::core {

const hard::ProcessorInfo& ComputerDescription::getProcessorInfo() const
{
    return hard::getProcessorInfo();
}

const hard::GpuDescription& ComputerDescription::getGpuDescription() const
{
    return hard::accessGpuLayer().getDescription();
}

ComputerInfoPool& ComputerInfoPool::getInstance()
{
    static ComputerInfoPool g_pool;
    return g_pool;
}

} // namespace orlix::core
