// What one thread of the converting kernel does. Devices convert by rules of their own: they clamp where the
// processor's kernels wrap, and any value but 0 is true in a binary image.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuElement.h"

namespace orlix::imaproc::util::gpu {

/// The seven storage types.
template <class T>
struct GpuRange
{
    static constexpr bool bSigned = T(-1) < T(0);
    static constexpr int nbBits = 8 * static_cast<int>(sizeof(T));
    static constexpr long long min = bSigned ? -(1LL << (nbBits - 1)) : 0;
    static constexpr long long max = (1LL << (bSigned ? nbBits - 1 : nbBits)) - 1;
};

template <class T, class TOther>
inline constexpr bool g_bSameType = false;
template <class T>
inline constexpr bool g_bSameType<T, T> = true;

/// Toward zero; what doesn't fit becomes the next that does, a NaN 0. The instruction of devices does so by itself.
template <class T>
ORLIX_GPU_BODY T truncateOnDevice(float value)
{
#ifdef __CUDA_ARCH__
    if constexpr (GpuRange<T>::bSigned) {
        return static_cast<T>(__float2int_rz(value));
    } else {
        return static_cast<T>(__float2uint_rz(value));
    }
#else
    if (value != value) {
        return 0;
    }
    if (value >= static_cast<float>(GpuRange<T>::max)) { // rounded up to 2^31 or 2^32 for the widest
        return static_cast<T>(GpuRange<T>::max);
    }
    return value <= static_cast<float>(GpuRange<T>::min) ? static_cast<T>(GpuRange<T>::min) : static_cast<T>(value);
#endif
}

template <class TOut>
ORLIX_GPU_BODY TOut convertFloatOnDevice(float value)
{
    if constexpr (g_bSameType<TOut, float>) {
        constexpr float low = -0x1.ffffdcp127F; // -3.40282e38: what lies below is raised to it
        constexpr float high = 0x1.fffffep127F; // the largest finite value
        return value <= low ? low : value > high ? high : value;
    } else {
        // The upper limits of the 32-bit types are no floats: 2^31 and 2^32 stand for them.
        constexpr float low = static_cast<float>(GpuRange<TOut>::min);
        constexpr float high = static_cast<float>(GpuRange<TOut>::max);
        if (value <= low) {
            return static_cast<TOut>(GpuRange<TOut>::min);
        }
        return value > high ? static_cast<TOut>(GpuRange<TOut>::max) : truncateOnDevice<TOut>(value);
    }
}

template <class TIn, class TOut>
ORLIX_GPU_BODY TOut convertOnDevice(TIn value)
{
    if constexpr (g_bSameType<TIn, float>) {
        return convertFloatOnDevice<TOut>(value);
    } else if constexpr (g_bSameType<TIn, TOut> || g_bSameType<TOut, float> || g_bSameType<TOut, unsigned int>) {
        return static_cast<TOut>(value); // to UInt32 by sign extension, without a limit
    } else if constexpr (g_bSameType<TIn, unsigned int> && GpuRange<TOut>::bSigned) {
        // The lower limit is compared as an unsigned number, so nearly every value lies below it. This is required.
        constexpr auto low = static_cast<unsigned int>(GpuRange<TOut>::min);
        return static_cast<TOut>(value > low ? GpuRange<TOut>::max : GpuRange<TOut>::min);
    } else {
        const long long wide = value;
        constexpr long long low = GpuRange<TOut>::min;
        constexpr long long high = GpuRange<TOut>::max;
        return static_cast<TOut>(wide < low ? low : wide > high ? high : wide);
    }
}

/// `bBinary`: the output is a binary image.
template <class TIn, class TOut>
ORLIX_GPU_BODY void ConvertImg_thread(const orlix::gpu::ThreadPlace& place, const orlix::gpu::LauncherInfo& info,
                                      bool bBinary, const TIn* const* in, TOut* const* out)
{
    const GpuElement element = findElement(place, info);
    if (element.bInside) {
        const TIn value = in[element.plan][element.index];
        out[element.plan][element.index] =
            bBinary ? static_cast<TOut>(value != 0) : convertOnDevice<TIn, TOut>(value); // a NaN is not 0
    }
}

} // namespace orlix::imaproc::util::gpu
