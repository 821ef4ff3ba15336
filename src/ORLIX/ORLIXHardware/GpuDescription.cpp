// Fills the description of the CUDA devices.
#include "ORLIX/ORLIXHardware/GpuDescription.h"

#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::hard {

GpuDescription::GpuDescription(GpuLayer& layer)
{
    int nbDevices = 0;
    if (const gpu::CudaResult result = layer.countDevices(nbDevices); !result.bSuccess) {
        m_missingReason = result.message;
        return;
    }
    if (nbDevices <= 0) {
        m_missingReason = formatMessage<eORLIXHardwareMessage>(eORLIXHardwareMessage::eNoDevice);
    }
    for (int device = 0; device < nbDevices; ++device) {
        GpuProperties properties;
        if (const gpu::CudaResult result = layer.describe(device, properties); !result.bSuccess) {
            m_missingReason = result.message;
            return;
        }
        m_devices.push_back(std::move(properties));
    }
}

const GpuProperties& GpuDescription::getProperties(int device) const
{
    if (device < 0 || device >= getNbDevices()) {
        raise<eORLIXHardwareMessage>(ORLIX_HERE, eORLIXHardwareMessage::eNoSuchDevice, device, getNbDevices());
    }
    return m_devices[static_cast<std::size_t>(device)];
}

unsigned int GpuDescription::getBlockSize2d(int device) const
{
    const unsigned int maxThreads = getMaxThreadsPerBlock(device);
    unsigned int side = 32;
    while (side > 1 && side * side > maxThreads) {
        side /= 2;
    }
    return side;
}

} // namespace orlix::hard
