// Devices made of software, which run what one thread of a kernel does on this processor, thread after thread.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"
#include "support/SoftwareDeviceMemory.h"

#include <algorithm>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace orlix::testing {

enum class eGpuCall {
    countDevices,
    describe,
    selectDevice,
    allocate,
    free,
    upload,
    download,
    copy,
    launch,
    synchronize,
    takeLastError
};

/// Counts and orders every call, and can fail each. Memory is that of `SoftwareDeviceMemory`, open during a call alone,
/// and filled with its pattern when it is made. Refuses what a device refuses: grids and blocks that are too large or
/// empty, memory that isn't its own.
class SoftwareGpuLayer final : public hard::GpuLayer
{
public:
    explicit SoftwareGpuLayer(int nbDevices = 1, unsigned int maxThreadsPerBlock = 1024)
        : m_nbDevices(nbDevices), m_maxThreadsPerBlock(maxThreadsPerBlock)
    {}

    /// The call of this kind after the next `nbBefore` ones fails with `text`, which has to live as long as the
    /// process.
    void failCall(eGpuCall call, unsigned nbBefore, const char* text) { m_failures.push_back({call, nbBefore, text}); }

    const std::vector<eGpuCall>& getCalls() const { return m_calls; }
    void forgetCalls() { m_calls.clear(); }
    std::size_t countCalls(eGpuCall call) const
    {
        return static_cast<std::size_t>(std::count(m_calls.begin(), m_calls.end(), call));
    }
    /// Allocations that nobody has freed yet.
    std::size_t getNbAllocations() const { return m_memory.size(); }
    /// Has nobody written beside an allocation, neither a living one nor one that was freed?
    bool isSurroundingIntact()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const OpenMemory open(m_memory);
        return m_bIntact && std::all_of(m_memory.begin(), m_memory.end(),
                                        [](const auto& memory) { return memory->isSurroundingIntact(); });
    }
    int getSelectedDevice()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_selected[std::this_thread::get_id()];
    }
    const hard::GpuLaunch& getLastLaunch() const { return m_lastLaunch; }

    gpu::CudaResult countDevices(int& nbDevices) override
    {
        return call(eGpuCall::countDevices, [&] {
            nbDevices = m_nbDevices;
            return g_success;
        });
    }
    gpu::CudaResult describe(int device, hard::GpuProperties& properties) override
    {
        return call(eGpuCall::describe, [&]() -> gpu::CudaResult {
            if (device < 0 || device >= m_nbDevices) {
                return {false, "invalid device ordinal"};
            }
            properties = {"software " + std::to_string(device), 9, 0, 1UL << 30, 4, 2048, m_maxThreadsPerBlock};
            return g_success;
        });
    }
    gpu::CudaResult selectDevice(int device) override
    {
        return call(eGpuCall::selectDevice, [&]() -> gpu::CudaResult {
            if (device < 0 || device >= m_nbDevices) {
                return {false, "invalid device ordinal"};
            }
            m_selected[std::this_thread::get_id()] = device;
            return g_success;
        });
    }
    gpu::CudaResult allocate(unsigned long bytes, void*& memory) override
    {
        return call(eGpuCall::allocate, [&] {
            memory =
                bytes == 0 ? nullptr : m_memory.emplace_back(std::make_unique<SoftwareDeviceMemory>(bytes))->data();
            return g_success;
        });
    }
    gpu::CudaResult free(void* memory) override
    {
        return call(eGpuCall::free, [&] {
            if (memory == nullptr) {
                return g_success;
            }
            const auto found = std::find_if(m_memory.begin(), m_memory.end(),
                                            [memory](const auto& own) { return own->data() == memory; });
            if (found == m_memory.end()) {
                return g_invalidArgument;
            }
            (*found)->open();
            m_bIntact = m_bIntact && (*found)->isSurroundingIntact();
            m_memory.erase(found);
            return g_success;
        });
    }
    gpu::CudaResult upload(void* deviceMemory, const void* hostMemory, unsigned long bytes) override
    {
        return call(eGpuCall::upload, [&] { return move(deviceMemory, hostMemory, bytes, {deviceMemory}); });
    }
    gpu::CudaResult download(void* hostMemory, const void* deviceMemory, unsigned long bytes) override
    {
        return call(eGpuCall::download, [&] { return move(hostMemory, deviceMemory, bytes, {deviceMemory}); });
    }
    gpu::CudaResult copy(void* to, const void* from, unsigned long bytes) override
    {
        return call(eGpuCall::copy, [&] { return move(to, from, bytes, {to, from}); });
    }

    void launch(const hard::GpuLaunch& launch) override
    {
        keepError(call(eGpuCall::launch, [&]() -> gpu::CudaResult {
            m_lastLaunch = launch;
            const gpu::Extent3d& grid = launch.grid;
            const gpu::Extent3d& block = launch.block;
            const bool bGrid = isWithin(grid, 0x7fffffff, 65535, 65535);
            if (!bGrid || !isWithin(block, 1024, 1024, 64) || block.x * block.y * block.z > m_maxThreadsPerBlock) {
                return {false, "invalid configuration argument"};
            }
            if (launch.runThread == nullptr) {
                return {false, "invalid device function"};
            }
            const OpenMemory open(m_memory);
            gpu::ThreadPlace place{{}, block, {}};
            forEach(grid, place.blockIndex,
                    [&] { forEach(block, place.threadIndex, [&] { launch.runThread(place, launch.arguments); }); });
            return g_success;
        }));
    }
    void synchronize() override
    {
        keepError(call(eGpuCall::synchronize, [] { return g_success; }));
    }
    int takeLastError() override
    {
        keepError(call(eGpuCall::takeLastError, [] { return g_success; }));
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_lastErrors[std::this_thread::get_id()], 0);
    }
    const char* getErrorText(int error) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return error == 0 ? "no error" : m_errorTexts.at(static_cast<std::size_t>(error) - 1);
    }

private:
    struct Failure
    {
        eGpuCall call;
        unsigned nbBefore;
        const char* text;
    };
    using Memory = std::list<std::unique_ptr<SoftwareDeviceMemory>>;

    /// All memory can be touched for as long as this lives.
    struct OpenMemory
    {
        explicit OpenMemory(Memory& memory) : m_memory(memory)
        {
            for (const auto& own : m_memory) {
                own->open();
            }
        }
        OpenMemory(const OpenMemory&) = delete;
        OpenMemory& operator=(const OpenMemory&) = delete;
        ~OpenMemory()
        {
            for (const auto& own : m_memory) {
                own->close();
            }
        }
        Memory& m_memory;
    };

    static constexpr gpu::CudaResult g_success = {true, ""};
    static constexpr gpu::CudaResult g_invalidArgument = {false, "invalid argument"};

    template <class TWork>
    gpu::CudaResult call(eGpuCall call, TWork&& work)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.push_back(call);
        const char* text = nullptr;
        for (auto failure = m_failures.begin(); failure != m_failures.end();) {
            if (failure->call == call && failure->nbBefore-- == 0) {
                text = failure->text;
                failure = m_failures.erase(failure);
            } else {
                ++failure;
            }
        }
        return text == nullptr ? work() : gpu::CudaResult{false, text};
    }

    /// Of the addresses those in `own` have to lie in memory of this layer, with all bytes.
    gpu::CudaResult move(void* to, const void* from, unsigned long bytes, std::initializer_list<const void*> own)
    {
        for (const void* memory : own) {
            const auto holds = [&](const auto& candidate) { return candidate->contains(memory, bytes); };
            if (bytes > 0 && std::none_of(m_memory.begin(), m_memory.end(), holds)) {
                return g_invalidArgument;
            }
        }
        const OpenMemory open(m_memory);
        if (bytes > 0) {
            std::memcpy(to, from, bytes);
        }
        return g_success;
    }

    void keepError(const gpu::CudaResult& result)
    {
        if (!result.bSuccess) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_errorTexts.push_back(result.message);
            m_lastErrors[std::this_thread::get_id()] = static_cast<int>(m_errorTexts.size());
        }
    }

    static bool isWithin(const gpu::Extent3d& extent, unsigned x, unsigned y, unsigned z)
    {
        return extent.x - 1 < x && extent.y - 1 < y && extent.z - 1 < z; // 0 - 1 is the largest number
    }
    template <class TWork>
    static void forEach(const gpu::Extent3d& extent, gpu::Extent3d& place, TWork&& work)
    {
        for (place.z = 0; place.z < extent.z; ++place.z) {
            for (place.y = 0; place.y < extent.y; ++place.y) {
                for (place.x = 0; place.x < extent.x; ++place.x) {
                    work();
                }
            }
        }
    }

    const int m_nbDevices;
    const unsigned int m_maxThreadsPerBlock;
    std::mutex m_mutex;
    std::vector<Failure> m_failures;
    std::vector<eGpuCall> m_calls;
    Memory m_memory;
    bool m_bIntact = true;
    hard::GpuLaunch m_lastLaunch{};
    std::map<std::thread::id, int> m_selected;
    std::map<std::thread::id, int> m_lastErrors;
    std::vector<const char*> m_errorTexts;
};

} // namespace orlix::testing
