// The one door to CUDA devices: whoever stands behind it, the CUDA runtime, nobody, or a test.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXHardware/LauncherInfo.h"

#include <memory>
#include <mutex>
#include <string>

namespace orlix::hard {

class GpuDescription;

/// What a layer tells of a device.
struct GpuProperties
{
    std::string name;
    int computeMajor = 0; ///< compute capability
    int computeMinor = 0;
    unsigned long memoryBytes = 0;
    unsigned int nbMultiProcessors = 0;
    unsigned int maxThreadsPerMultiProcessor = 0;
    unsigned int maxThreadsPerBlock = 0;
};

/// One run of a kernel over a grid of blocks.
struct GpuLaunch
{
    gpu::Extent3d grid;     ///< blocks
    gpu::Extent3d block;    ///< threads
    const char* kernel;     ///< its name, by which a layer finds what was compiled for devices
    void* const* arguments; ///< where the arguments lie, in order
    /// Does what one thread of the kernel does, on the processor; for layers without a device.
    void (*runThread)(const gpu::ThreadPlace& place, void* const* arguments);
};

/// Devices count from 0. Memory, launches and waiting belong to the device that the calling thread has selected, 0
/// until it selects one; so does the last error. All functions may be called from every thread. Nothing here throws but
/// for want of host memory: results tell, with the text of the runtime.
class ORLIXHARDWARE_API GpuLayer
{
public:
    GpuLayer();
    GpuLayer(const GpuLayer&) = delete;
    GpuLayer& operator=(const GpuLayer&) = delete;
    virtual ~GpuLayer();

    virtual gpu::CudaResult countDevices(int& nbDevices) = 0;
    virtual gpu::CudaResult describe(int device, GpuProperties& properties) = 0;
    virtual gpu::CudaResult selectDevice(int device) = 0;

    /// Device memory that starts on a multiple of 256 bytes; null for 0 bytes.
    virtual gpu::CudaResult allocate(unsigned long bytes, void*& memory) = 0;
    /// Null is nothing to free.
    virtual gpu::CudaResult free(void* memory) = 0;
    virtual gpu::CudaResult upload(void* deviceMemory, const void* hostMemory, unsigned long bytes) = 0;
    virtual gpu::CudaResult download(void* hostMemory, const void* deviceMemory, unsigned long bytes) = 0;
    /// Both in device memory.
    virtual gpu::CudaResult copy(void* to, const void* from, unsigned long bytes) = 0;

    /// Starts the kernel. Whether that and the kernel itself worked is told by `takeLastError` after `synchronize`.
    virtual void launch(const GpuLaunch& launch) = 0;
    /// Waits until the device has done all that was started.
    virtual void synchronize() = 0;
    /// The error of the last launch and of what `synchronize` waited for, 0 for none; asked once, it is forgotten. What
    /// failed in one of the functions with a result is not among them.
    virtual int takeLastError() = 0;
    /// What such an error means.
    virtual const char* getErrorText(int error) = 0;

    /// The devices, asked on the first call.
    const GpuDescription& getDescription();

private:
    std::mutex m_descriptionMutex;
    std::unique_ptr<GpuDescription> m_description;
};

/// The layer of this process: that of the innermost GpuLayerScope, else CUDA's, else, where ORLIX was built without
/// CUDA, one without devices whose failures say so. CUDA's is loaded by the first call that finds no scope, and stays.
ORLIXHARDWARE_API GpuLayer& accessGpuLayer();

/// Makes a layer that of the process for as long as this object lives. The layer has to live longer, and so do objects
/// that it was made for. Begin and end it while nothing uses a device.
class ORLIXHARDWARE_API GpuLayerScope
{
public:
    explicit GpuLayerScope(GpuLayer& layer);
    GpuLayerScope(const GpuLayerScope&) = delete;
    GpuLayerScope& operator=(const GpuLayerScope&) = delete;
    ~GpuLayerScope();

private:
    GpuLayer* m_layer;
};

} // namespace orlix::hard
