#include "TimeKernels.h"

#include "DevicePlans.h"
#include "KernelLaunch.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace orlix::gpu {

namespace {

using imaproc::util::gpu::kernelName;

constexpr unsigned long g_side = 8192;
constexpr unsigned long g_nbElements = g_side * g_side;

class Event
{
public:
    Event() { require(cudaEventCreate(&m_event), "cudaEventCreate"); }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() { static_cast<void>(cudaEventDestroy(m_event)); }

    void record() { require(cudaEventRecord(m_event), "cudaEventRecord"); }
    /// Waits for this one.
    double secondsSince(const Event& start)
    {
        require(cudaEventSynchronize(m_event), "cudaEventSynchronize");
        float milliseconds = 0;
        require(cudaEventElapsedTime(&milliseconds, start.m_event, m_event), "cudaEventElapsedTime");
        return static_cast<double>(milliseconds) * 1e-3;
    }

private:
    cudaEvent_t m_event = nullptr;
};

double medianOf(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Seconds of the device for one of ten runs in a row, the median of seven such rows.
template <class TWork>
double deviceSeconds(TWork work)
{
    constexpr int nbRuns = 10;
    work();
    Event start, end;
    std::vector<double> rows;
    for (int row = 0; row < 7; ++row) {
        start.record();
        for (int run = 0; run < nbRuns; ++run) {
            work();
        }
        end.record();
        rows.push_back(end.secondsSince(start) / nbRuns);
    }
    return medianOf(rows);
}

/// Bytes in a second, both read and written ones counted, of a copy by the runtime that moves `bytes` in all.
double copyRate(unsigned long bytes)
{
    const DeviceMemory from(bytes / 2), to(bytes / 2);
    const double seconds = deviceSeconds([&] {
        require(cudaMemcpyAsync(to.data(), from.data(), bytes / 2, cudaMemcpyDeviceToDevice), "cudaMemcpyAsync");
    });
    return static_cast<double>(bytes) / seconds;
}

template <class TIn, class TOut, class TStart>
void printRow(const std::string& name, unsigned long readBytes, TStart start)
{
    const DevicePlans<TIn> in(g_nbElements, 1, 1);
    const DevicePlans<TOut> out(g_nbElements, 1, 2);
    const Kernel kernel(name);
    const unsigned long bytes = g_nbElements * (readBytes + sizeof(TOut));
    const double copy = copyRate(bytes);
    const auto rate = [&](unsigned int side) {
        return static_cast<double>(bytes) / deviceSeconds([&] {
                   require(start(kernel, infoOf(side, g_side, g_side), in.constTable(), out.table()), name.c_str());
               });
    };
    const double rate16 = rate(16), rate32 = rate(32);
    std::printf("| %-44s | %6.0f | %6.0f | %4.2f | %6.0f | %4.2f |\n", name.c_str(), copy * 1e-9, rate16 * 1e-9,
                rate16 / copy, rate32 * 1e-9, rate32 / copy);
}

template <class T>
void printCopy()
{
    printRow<T, T>(kernelName<T>("CopyImg_knl"), sizeof(T),
                   [](const Kernel& kernel, const LauncherInfo& info, const T** in, T** out) {
                       return kernel.start(info, in, out);
                   });
}
template <class T>
void printErase()
{
    printRow<T, T>(kernelName<T>("EraseImg_knl"), 0,
                   [](const Kernel& kernel, const LauncherInfo& info, const T**, T** out) {
                       return kernel.start(info, T(1), out);
                   });
}
template <class T>
void printThreshold()
{
    printRow<T, unsigned char>(kernelName<T>("BasicThresholdImg_knl"), sizeof(T),
                               [](const Kernel& kernel, const LauncherInfo& info, const T** in, unsigned char** out) {
                                   return kernel.start(info, in, T(1), T(127), out);
                               });
}
template <class TIn, class TOut>
void printConvert()
{
    printRow<TIn, TOut>(kernelName<TIn, TOut>("ConvertImg_knl"), sizeof(TIn),
                        [](const Kernel& kernel, const LauncherInfo& info, const TIn** in, TOut** out) {
                            return kernel.start(info, false, in, out);
                        });
}

/// Microseconds of the host from a launch to the answer that it has worked, the median.
double smallLaunchMicroseconds(unsigned int side)
{
    const DevicePlans<float> in(64 * 64, 1, 1), out(64 * 64, 1, 2);
    const Kernel kernel(kernelName<float>("CopyImg_knl"));
    std::vector<double> launches;
    for (int launch = 0; launch < 2000; ++launch) {
        const auto start = std::chrono::steady_clock::now();
        require(kernel.start(infoOf(side, 64, 64), in.constTable(), out.table()), "launch");
        require(cudaDeviceSynchronize(), "cudaDeviceSynchronize");
        require(cudaGetLastError(), "cudaGetLastError");
        launches.push_back(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count());
    }
    return medianOf(launches);
}

} // namespace

void timeKernels()
{
    std::printf("| 8192 x 8192, GB/s read and written           | copy   | b 16   | of copy | b 32 | of copy |\n");
    std::printf("| --- | ---: | ---: | ---: | ---: | ---: |\n");
    printCopy<unsigned char>();
    printCopy<unsigned short>();
    printCopy<float>();
    printErase<unsigned char>();
    printErase<unsigned short>();
    printErase<float>();
    printThreshold<unsigned char>();
    printThreshold<unsigned short>();
    printThreshold<float>();
    printConvert<float, float>();
    printConvert<int, float>();
    printConvert<float, int>();
    printConvert<unsigned short, float>();
    printConvert<float, unsigned short>();
    printConvert<unsigned char, float>();
    printConvert<unsigned short, unsigned char>();
    printConvert<unsigned char, unsigned char>();
    std::printf("\n64 x 64 floats copied, launch and wait: %.1f us with blocks of 16, %.1f us with 32\n",
                smallLaunchMicroseconds(16), smallLaunchMicroseconds(32));
}

} // namespace orlix::gpu
