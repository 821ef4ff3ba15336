// What the CUDA devices of this computer are.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"

#include <vector>

namespace orlix::hard {

/// Immutable; every query is safe from every thread. `device` counts from 0; one that isn't there raises
/// ORLIXHardwareException.
class ORLIXHARDWARE_API GpuDescription
{
public:
    /// Asks the layer. Devices from the first on that can't be described are left out.
    explicit GpuDescription(GpuLayer& layer);

    int getNbDevices() const { return static_cast<int>(m_devices.size()); }
    /// Why there are no devices, or no more of them; empty where all is well.
    const std::string& getMissingReason() const { return m_missingReason; }

    const GpuProperties& getProperties(int device) const;
    unsigned int getNbMultiProcessors(int device) const { return getProperties(device).nbMultiProcessors; }
    unsigned int getMaxThreadsPerMultiProcessor(int device) const
    {
        return getProperties(device).maxThreadsPerMultiProcessor;
    }
    unsigned int getMaxThreadsPerBlock(int device) const { return getProperties(device).maxThreadsPerBlock; }
    /// Side of the blocks that planes are cut into: 32, the threads that a device runs in step, or the next lower power
    /// of two whose square a block can have. At least 1.
    unsigned int getBlockSize2d(int device) const;

private:
    std::vector<GpuProperties> m_devices;
    std::string m_missingReason;
};

} // namespace orlix::hard
