#include "ORLIX/ORLIXHardware/NoGpuLayer.h"

#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLogMessages.h"

namespace orlix::hard {

namespace {

class NoGpuLayer final : public GpuLayer
{
public:
    gpu::CudaResult countDevices(int&) override { return fail(); }
    gpu::CudaResult describe(int, GpuProperties&) override { return fail(); }
    gpu::CudaResult selectDevice(int) override { return fail(); }
    gpu::CudaResult allocate(unsigned long, void*&) override { return fail(); }
    gpu::CudaResult free(void*) override { return fail(); }
    gpu::CudaResult upload(void*, const void*, unsigned long) override { return fail(); }
    gpu::CudaResult download(void*, const void*, unsigned long) override { return fail(); }
    gpu::CudaResult copy(void*, const void*, unsigned long) override { return fail(); }
    void launch(const GpuLaunch&) override {}
    void synchronize() override {}
    int takeLastError() override { return 1; }
    const char* getErrorText(int) override { return fail().message; }

private:
    static gpu::CudaResult fail()
    {
        static const std::string g_text = formatMessage<eORLIXHardwareMessage>(eORLIXHardwareMessage::eNoCuda);
        return {false, g_text.c_str()};
    }
};

} // namespace

GpuLayer& details::accessNoGpuLayer()
{
    static NoGpuLayer g_layer;
    return g_layer;
}

} // namespace orlix::hard
