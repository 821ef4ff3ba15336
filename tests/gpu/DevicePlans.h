// Memory of a device, for programs that have the CUDA runtime and nothing else.
#pragma once

#include <cuda_runtime.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace orlix::gpu {

/// Throws std::runtime_error with the text of the runtime.
inline void require(cudaError_t error, const char* what)
{
    if (error != cudaSuccess) {
        throw std::runtime_error(std::string(what) + ": " + cudaGetErrorString(error));
    }
}

class DeviceMemory
{
public:
    explicit DeviceMemory(std::size_t bytes) { require(cudaMalloc(&m_memory, bytes), "cudaMalloc"); }
    DeviceMemory(const DeviceMemory&) = delete;
    DeviceMemory& operator=(const DeviceMemory&) = delete;
    ~DeviceMemory() { static_cast<void>(cudaFree(m_memory)); }

    char* data() const { return static_cast<char*>(m_memory); }

private:
    void* m_memory = nullptr;
};

/// Plans of `T` with their table. Bytes that no thread should write lie before, between and behind them.
template <class T>
class DevicePlans
{
public:
    /// Fills both the plans and what lies around them with `poison`.
    DevicePlans(std::size_t planSize, std::size_t nbPlans, unsigned char poison)
        : m_poison(poison), m_planBytes(planSize * sizeof(T)),
          m_distance((m_planBytes + 2 * g_margin - 1) / g_margin * g_margin), m_pixels(g_margin + nbPlans * m_distance),
          m_table(nbPlans * sizeof(T*)), m_host(g_margin + nbPlans * m_distance, poison)
    {
        std::vector<T*> table;
        for (std::size_t p = 0; p < nbPlans; ++p) {
            table.push_back(reinterpret_cast<T*>(m_pixels.data() + offset(p)));
        }
        require(cudaMemcpy(m_table.data(), table.data(), nbPlans * sizeof(T*), cudaMemcpyHostToDevice), "upload");
        upload();
    }

    T** table() const { return reinterpret_cast<T**>(m_table.data()); }
    const T** constTable() const { return reinterpret_cast<const T**>(m_table.data()); }

    T get(std::size_t plan, std::size_t index) const
    {
        T value;
        std::memcpy(&value, m_host.data() + offset(plan) + index * sizeof(T), sizeof(T));
        return value;
    }
    void set(std::size_t plan, std::size_t index, T value)
    {
        std::memcpy(m_host.data() + offset(plan) + index * sizeof(T), &value, sizeof(T));
    }
    void upload() const
    {
        require(cudaMemcpy(m_pixels.data(), m_host.data(), m_host.size(), cudaMemcpyHostToDevice), "upload");
    }
    void download()
    {
        require(cudaMemcpy(m_host.data(), m_pixels.data(), m_host.size(), cudaMemcpyDeviceToHost), "download");
    }
    /// Of what was downloaded: has nobody written beside the plans?
    bool isSurroundingIntact() const
    {
        for (std::size_t i = 0; i < m_host.size(); ++i) {
            const bool bInPlan = i >= g_margin && (i - g_margin) % m_distance < m_planBytes;
            if (!bInPlan && m_host[i] != m_poison) {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr std::size_t g_margin = 256;

    std::size_t offset(std::size_t plan) const { return g_margin + plan * m_distance; }

    unsigned char m_poison;
    std::size_t m_planBytes;
    std::size_t m_distance;
    DeviceMemory m_pixels;
    DeviceMemory m_table;
    std::vector<unsigned char> m_host;
};

} // namespace orlix::gpu
