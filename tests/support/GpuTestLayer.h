// The devices that tests of operators run on: those made of software, or, as ORLIX_TEST_GPU_LAYER=cuda asks, real ones.
#pragma once

#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "support/SoftwareGpuLayer.h"

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

namespace orlix::testing {

/// Throws std::invalid_argument for a layer that there is none of.
inline bool isCudaLayerAsked()
{
    const char* const layer = std::getenv("ORLIX_TEST_GPU_LAYER");
    if (layer == nullptr) {
        return false;
    }
    if (std::string(layer) != "cuda") {
        throw std::invalid_argument("ORLIX_TEST_GPU_LAYER is '" + std::string(layer) + "': give cuda");
    }
    return true;
}

/// Why tests that have to run on a device can't; empty where they can, and where nobody asks for one.
inline std::string getMissingDevice()
{
    if (!isCudaLayerAsked() || hard::accessGpuLayer().getDescription().getNbDevices() > 0) {
        return "";
    }
    return hard::accessGpuLayer().getDescription().getMissingReason();
}

/// For its life the layer of the process, unless a real one is asked for.
class GpuTestLayer
{
public:
    GpuTestLayer()
    {
        if (!isCudaLayerAsked()) {
            m_scope.emplace(m_software);
        }
    }

    /// Null on a real device.
    SoftwareGpuLayer* software() { return m_scope ? &m_software : nullptr; }

private:
    SoftwareGpuLayer m_software{2};
    std::optional<hard::GpuLayerScope> m_scope;
};

} // namespace orlix::testing
