// The switch of GPU support.
#include "ORLIX/ORLIXCore/GpuSupport.h"

#include "ORLIX/ORLIXCore/ComputerInfoPool.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"

#include <atomic>

namespace orlix::core {

namespace {

/// Every level that could use a device asks.
std::atomic<bool>& accessSwitch()
{
    static std::atomic<bool> g_bActivated{false};
    return g_bActivated;
}

} // namespace

bool isGpuSupportActivated()
{
    return accessSwitch().load(std::memory_order_relaxed);
}

ProcessingResult<bool> setGpuSupportActivated(bool bActivated)
{
    accessSwitch().store(false, std::memory_order_relaxed);
    if (!bActivated) {
        return true;
    }
    const hard::GpuDescription& gpus =
        ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    if (gpus.getNbDevices() == 0) {
        return ProcessingResult<bool>::failure(
            formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eGpuStaysOff, gpus.getMissingReason()));
    }
    accessSwitch().store(true, std::memory_order_relaxed);
    return true;
}

} // namespace orlix::core
