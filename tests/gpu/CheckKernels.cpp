// Every kernel on every element that is worth trying, in plans that are no multiple of a block.
#include "CheckKernels.h"

#include "DevicePlans.h"
#include "KernelLaunch.h"
#include "support/GpuOracle.h"

#include <iostream>

namespace orlix::gpu {

namespace {

using imaproc::util::gpu::kernelName;

/// Sizes around a block's side and around a grid of several blocks, in one plan and in many.
struct Shape
{
    unsigned long sizeX;
    unsigned long sizeY;
    unsigned long nbPlans;
};

std::vector<Shape> shapesOf(unsigned int side, std::size_t nbValues)
{
    const unsigned long nbLines = nbValues / 1021 + 1;
    return {{1, 1, 1},
            {side - 1, side + 1, 3},
            {side, side, 1},
            {2 * side + 1, 2 * side - 1, 12},
            {side * 9 + 1, 1, 2},
            {1, side * 9 + 1, 2},
            {1021, nbLines, 1}};
}

/// All values of `T`, one after the other through the plans; floats of every exponent and sign as well.
template <class T>
std::vector<T> elementsToTry()
{
    std::vector<T> values = testing::interestingElements<T>();
    if constexpr (std::is_same_v<T, float>) {
        for (unsigned long bits = 0; bits < 1UL << 32; bits += 4099) {
            const auto pattern = static_cast<unsigned int>(bits);
            float value = 0;
            std::memcpy(&value, &pattern, sizeof value);
            values.push_back(value);
        }
    }
    return values;
}

/// Runs `start` for each shape and compares its output with what `expected` makes of the input's elements.
template <class TIn, class TOut, class TStart, class TExpected>
bool check(const std::string& name, unsigned int side, TStart start, TExpected expected)
{
    const Kernel kernel(name);
    const std::vector<TIn> values = elementsToTry<TIn>();
    for (const Shape& shape : shapesOf(side, values.size())) {
        const std::size_t planSize = shape.sizeX * shape.sizeY;
        DevicePlans<TIn> in(planSize, shape.nbPlans, 0x5A);
        DevicePlans<TOut> out(planSize, shape.nbPlans, 0xA5);
        for (std::size_t i = 0; i < planSize * shape.nbPlans; ++i) {
            in.set(i / planSize, i % planSize, values[i % values.size()]);
        }
        in.upload();
        require(start(kernel, infoOf(side, shape.sizeX, shape.sizeY, shape.nbPlans), in.constTable(), out.table()),
                name.c_str());
        require(cudaDeviceSynchronize(), name.c_str());
        out.download();
        for (std::size_t i = 0; i < planSize * shape.nbPlans; ++i) {
            const TOut found = out.get(i / planSize, i % planSize);
            const TOut wanted = expected(values[i % values.size()]);
            if (!testing::isSameElement(found, wanted)) {
                std::cout << name << ", blocks of " << side << ", element " << i << " of " << shape.sizeX << " x "
                          << shape.sizeY << " x " << shape.nbPlans << ": " << +values[i % values.size()] << " became "
                          << +found << ", not " << +wanted << "\n";
                return false;
            }
        }
        if (!out.isSurroundingIntact()) {
            std::cout << name << ", blocks of " << side << ": wrote beside a plan of " << shape.sizeX << " x "
                      << shape.sizeY << "\n";
            return false;
        }
    }
    return true;
}

void count(KernelTally& tally, bool bPassed)
{
    ++tally.nbKernels;
    tally.nbFailed += bPassed ? 0 : 1;
}

template <class T>
void checkSingle(KernelTally& tally, unsigned int side)
{
    count(tally, check<T, T>(
                     kernelName<T>("CopyImg_knl"), side,
                     [](const Kernel& kernel, const LauncherInfo& info, const T** in, T** out) {
                         return kernel.start(info, in, out);
                     },
                     [](T value) { return value; }));
    const T filling = testing::interestingElements<T>().back();
    count(tally, check<T, T>(
                     kernelName<T>("EraseImg_knl"), side,
                     [filling](const Kernel& kernel, const LauncherInfo& info, const T**, T** out) {
                         return kernel.start(info, filling, out);
                     },
                     [filling](T) { return filling; }));
    count(tally, check<T, unsigned char>(
                     kernelName<T>("BasicThresholdImg_knl"), side,
                     [](const Kernel& kernel, const LauncherInfo& info, const T** in, unsigned char** out) {
                         return kernel.start(info, in, T(1), T(127), out);
                     },
                     [](T value) { return testing::thresholdedOnDevice<T>(value, T(1), T(127)); }));
}

template <class TIn, class TOut>
bool checkConversion(unsigned int side, bool bBinary)
{
    return check<TIn, TOut>(
        kernelName<TIn, TOut>("ConvertImg_knl"), side,
        [bBinary](const Kernel& kernel, const LauncherInfo& info, const TIn** in, TOut** out) {
            return kernel.start(info, bBinary, in, out);
        },
        [bBinary](TIn value) {
            return bBinary ? static_cast<TOut>(testing::madeBinaryOnDevice(value))
                           : testing::convertedOnDevice<TOut>(value);
        });
}

template <class TIn, class... TOuts>
void checkRow(KernelTally& tally, unsigned int side)
{
    // Nothing but bytes becomes binary.
    (count(tally, checkConversion<TIn, TOuts>(side, false) &&
                      (!std::is_same_v<TOuts, unsigned char> || checkConversion<TIn, TOuts>(side, true))),
     ...);
}

template <class... Ts>
void checkAll(KernelTally& tally, unsigned int side)
{
    (checkSingle<Ts>(tally, side), ...);
    (checkRow<Ts, Ts...>(tally, side), ...);
}

} // namespace

KernelTally checkKernels(unsigned int side)
{
    KernelTally tally;
    checkAll<signed char, unsigned char, short, unsigned short, int, unsigned int, float>(tally, side);
    return tally;
}

} // namespace orlix::gpu
