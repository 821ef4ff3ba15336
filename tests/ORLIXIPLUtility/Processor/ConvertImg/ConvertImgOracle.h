// What convertImg has to give, element by element and set by set, in plain wide arithmetic that no kernel shares.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace orlix::testing {

using BufferType = image::eImageBufferType::domain;
using Set = eInstructionSet::domain;

/// An element before its conversion.
struct SourceElement
{
    std::uint32_t bits = 0; ///< as in memory, 0 above
    std::int64_t whole = 0; ///< value of an integer; of a float what truncation to 32 bits gives
    float real = 0;         ///< value of a float
};

inline bool isReal(BufferType type)
{
    return type == image::eImageBufferType::Real32;
}
inline bool isSigned(BufferType type)
{
    return type == image::eImageBufferType::Int8 || type == image::eImageBufferType::Int16 ||
           type == image::eImageBufferType::Int32;
}
inline unsigned bitsOf(BufferType type)
{
    return 8 * static_cast<unsigned>(image::elementSize(type));
}

/// The lowest `nbBits` bits of `value`, taken for a signed or an unsigned number.
inline std::int64_t asSigned(std::int64_t value, unsigned nbBits)
{
    const std::int64_t range = std::int64_t{1} << nbBits;
    const std::int64_t low = value & (range - 1);
    return low < range / 2 ? low : low - range;
}
inline std::int64_t asUnsigned(std::int64_t value, unsigned nbBits)
{
    return value & ((std::int64_t{1} << nbBits) - 1);
}

/// Towards zero; -2^31 for NaN and what 32 bits can't hold.
inline std::int64_t truncateTo32(double value)
{
    const double truncated = std::trunc(value);
    return truncated >= -2147483648.0 && truncated <= 2147483647.0 ? static_cast<std::int64_t>(truncated)
                                                                   : -2147483648LL;
}

inline SourceElement readElement(BufferType type, std::uint32_t bits)
{
    SourceElement element;
    element.bits = bits;
    if (isReal(type)) {
        element.real = std::bit_cast<float>(bits);
        element.whole = truncateTo32(element.real);
    } else {
        element.whole = isSigned(type) ? asSigned(bits, bitsOf(type)) : std::int64_t{bits};
    }
    return element;
}

/// An integer that is to lose bits, `value` with the bits of its source taken as signed.
inline std::int64_t narrowed(Set set, std::int64_t value, unsigned nbBits, BufferType to)
{
    const bool bWideSets = set == eInstructionSet::eAVX2 || set == eInstructionSet::eAVX512;
    const auto clamped = [](std::int64_t number, BufferType type) {
        const std::int64_t range = std::int64_t{1} << bitsOf(type);
        return isSigned(type) ? std::clamp(number, -range / 2, range / 2 - 1)
                              : std::clamp<std::int64_t>(number, 0, range - 1);
    };
    if (set == eInstructionSet::eNone) {
        return value; // the low bits, whatever they are
    }
    if (nbBits == 16 || (bitsOf(to) == 16 && isSigned(to))) {
        return clamped(value, to);
    }
    if (bitsOf(to) == 16) {
        return bWideSets ? clamped(value, to) : value;
    }
    if (isSigned(to)) {
        return clamped(clamped(value, image::eImageBufferType::Int16), to);
    }
    return clamped(asSigned(bWideSets ? clamped(value, image::eImageBufferType::UInt16) : value, 16), to);
}

/// A float to 32 unsigned bits.
inline std::int64_t unsignedOf(Set set, float value)
{
    const double truncated = std::trunc(static_cast<double>(value));
    if (set == eInstructionSet::eNone) {
        const bool bHeld = truncated >= -9223372036854775808.0 && truncated < 9223372036854775808.0;
        return bHeld ? static_cast<std::int64_t>(truncated) : 0;
    }
    const bool bInRange = truncated >= 0.0 && truncated < 4294967296.0; // -0.5 is truncated to 0
    if (bInRange) {
        return static_cast<std::int64_t>(truncated);
    }
    return set == eInstructionSet::eAVX512 ? 4294967295LL : 0;
}

/// The bits of the element after its conversion under a set that has kernels: not AVX.
inline std::uint32_t convertedBits(Set set, BufferType from, const SourceElement& element, BufferType to)
{
    if (to == image::eImageBufferType::eBufferBinary) {
        if (isReal(from)) {
            return std::isnan(element.real) ? set == eInstructionSet::eAVX512 : element.real >= 1.0F;
        }
        return element.whole >= 1;
    }
    if (isReal(to)) {
        return isReal(from) ? element.bits
                            : std::bit_cast<std::uint32_t>(static_cast<float>(static_cast<double>(element.whole)));
    }
    std::int64_t result = element.whole;
    if (isReal(from) && bitsOf(to) == 32 && !isSigned(to)) {
        result = unsignedOf(set, element.real);
    } else if (bitsOf(to) < bitsOf(from)) {
        result = narrowed(set, asSigned(element.whole, bitsOf(from)), bitsOf(from), to);
    }
    return static_cast<std::uint32_t>(asUnsigned(result, bitsOf(to)));
}

} // namespace orlix::testing
