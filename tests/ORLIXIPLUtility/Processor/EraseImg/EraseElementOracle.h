// What an erased pixel has to be, worked out in whole numbers of any size.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace orlix::imaproc::util::test {

/// The whole part of `value` modulo 2^bits, as a number from 0 on, where it lies within [-2^(width-1), 2^(width-1)),
/// else what -2^(width-1) leaves.
inline std::uint64_t expectedInteger(double value, int width, int bits)
{
    const long double half = std::ldexp(1.0L, width - 1);
    const long double whole = std::trunc(static_cast<long double>(value));
    const bool bHeld = whole >= -half && whole < half; // not for a NaN
    long double rest = std::fmod(bHeld ? whole : -half, std::ldexp(1.0L, bits));
    if (rest < 0) {
        rest += std::ldexp(1.0L, bits);
    }
    return static_cast<std::uint64_t>(rest);
}

/// The bytes of one erased element.
inline std::vector<std::byte> expectedElement(const image::eImageBufferType& type, double value)
{
    const unsigned long size = image::elementSize(type);
    std::vector<std::byte> bytes(size);
    if (type == image::eImageBufferType::Real32) {
        // The largest number that rounds to a finite one lies half a step above the largest of single precision.
        const double limit = std::ldexp(2.0 - std::ldexp(1.0, -24), 127);
        const float infinity = std::numeric_limits<float>::infinity();
        const float real = value >= limit ? infinity : value <= -limit ? -infinity : static_cast<float>(value);
        std::memcpy(bytes.data(), &real, size);
        return bytes;
    }
    const bool bUnsigned32 =
        type == image::eImageBufferType::UInt32 || type == image::eImageBufferType::eBufferUInt32Like;
    const std::uint64_t integer = expectedInteger(value, bUnsigned32 ? 64 : 32, static_cast<int>(8 * size));
    for (unsigned long i = 0; i < size; ++i) {
        bytes[i] = static_cast<std::byte>(integer >> 8 * i & 0xFF);
    }
    return bytes;
}

} // namespace orlix::imaproc::util::test
