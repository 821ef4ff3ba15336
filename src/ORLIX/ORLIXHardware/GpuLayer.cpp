// Which layer is that of the process.
#include "ORLIX/ORLIXHardware/GpuLayer.h"

#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "ORLIX/ORLIXHardware/NoGpuLayer.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <dlfcn.h>

namespace orlix::hard {

namespace {

/// Layers by scope, the innermost last.
struct LayerStack
{
    std::mutex mutex;
    std::vector<GpuLayer*> layers;
};

LayerStack& accessLayers()
{
    static LayerStack g_layers;
    return g_layers;
}

GpuLayer* findInnermost()
{
    LayerStack& stack = accessLayers();
    const std::lock_guard<std::mutex> lock(stack.mutex);
    return stack.layers.empty() ? nullptr : stack.layers.back();
}

#ifdef ORLIX_CUDA_MODULE_FILE
/// The module lies beside this library, and enters its layer when it is loaded. It stays: what it holds of devices may
/// be used until the process ends.
void loadCudaModule()
{
    Dl_info library;
    if (::dladdr(reinterpret_cast<void*>(&loadCudaModule), &library) != 0) {
        const std::string file = library.dli_fname;
        static_cast<void>(
            ::dlopen((file.substr(0, file.rfind('/') + 1) + ORLIX_CUDA_MODULE_FILE).c_str(), RTLD_NOW | RTLD_LOCAL));
    }
}
#else
void loadCudaModule() {}
#endif

} // namespace

GpuLayer::GpuLayer() = default;

GpuLayer::~GpuLayer() = default;

const GpuDescription& GpuLayer::getDescription()
{
    const std::lock_guard<std::mutex> lock(m_descriptionMutex);
    if (!m_description) {
        m_description = std::make_unique<GpuDescription>(*this);
    }
    return *m_description;
}

GpuLayer& accessGpuLayer()
{
    if (GpuLayer* const layer = findInnermost(); layer != nullptr) {
        return *layer;
    }
    // No std::call_once: it binds to the C++ library's data of threads, for which a process that loads us late may lack
    // room.
    [[maybe_unused]] static const bool g_bLoaded = (loadCudaModule(), true);
    GpuLayer* const layer = findInnermost();
    return layer != nullptr ? *layer : details::accessNoGpuLayer();
}

GpuLayerScope::GpuLayerScope(GpuLayer& layer) : m_layer(&layer)
{
    LayerStack& stack = accessLayers();
    const std::lock_guard<std::mutex> lock(stack.mutex);
    stack.layers.push_back(m_layer);
}

GpuLayerScope::~GpuLayerScope()
{
    LayerStack& stack = accessLayers();
    const std::lock_guard<std::mutex> lock(stack.mutex);
    stack.layers.erase(std::next(std::find(stack.layers.rbegin(), stack.layers.rend(), m_layer)).base());
}

} // namespace orlix::hard
