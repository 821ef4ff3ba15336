// Elements that conversions are tried on: every pattern of 8 and 16 bits, and of 32 bits all that lies near a limit.
#pragma once

#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgOracle.h"

#include <random>
#include <vector>

namespace orlix::testing {

using Patterns = std::vector<std::uint32_t>;

inline Patterns everyPattern(unsigned nbBits)
{
    Patterns patterns(std::size_t{1} << nbBits);
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        patterns[i] = static_cast<std::uint32_t>(i);
    }
    return patterns;
}

inline void addRandom(Patterns& patterns)
{
    std::mt19937 random(20);
    for (int i = 0; i < 200000; ++i) {
        patterns.push_back(static_cast<std::uint32_t>(random()));
    }
}

/// Around every power of two and its negative, every limit of the low and the high half together, all small numbers.
inline Patterns samplesOfIntegers()
{
    Patterns patterns;
    const auto addNear = [&](std::uint32_t bits) {
        for (std::uint32_t d = 0; d <= 8; ++d) {
            patterns.push_back(bits + d);
            patterns.push_back(bits - d);
        }
    };
    for (unsigned power = 0; power < 32; ++power) {
        addNear(std::uint32_t{1} << power);
        addNear(-(std::uint32_t{1} << power));
    }
    for (const std::uint32_t high : {0U, 1U, 2U, 0xFFU, 0x100U, 0x7FFFU, 0x8000U, 0x8001U, 0xFFFEU, 0xFFFFU}) {
        for (const std::uint32_t low : {0U, 0x7FU, 0x80U, 0xFFU, 0x100U, 0x7F7FU, 0x7FFFU, 0x8000U, 0xFF00U, 0xFFFFU}) {
            addNear(high << 16 | low);
        }
    }
    for (std::uint32_t i = 0; i < 210000; ++i) {
        patterns.push_back(i - 70000);
    }
    addRandom(patterns);
    return patterns;
}

/// Around every power of two and its negative, denormal numbers, all small halves and what lies beside them, zeros,
/// infinities and NaN of both signs with payloads of both kinds.
inline Patterns samplesOfReals()
{
    constexpr std::uint32_t sign = 0x80000000;
    Patterns patterns;
    const auto addNear = [&](std::uint32_t magnitude) {
        for (std::uint32_t d = 0; d <= 8; ++d) {
            for (const std::uint32_t bits : {magnitude + d, magnitude - d}) {
                patterns.push_back(bits & ~sign);
                patterns.push_back(bits | sign);
            }
        }
    };
    for (std::uint32_t exponent = 0; exponent < 256; ++exponent) { // 2^-126 and below to infinity and NaN
        addNear(exponent << 23);
        addNear(exponent << 23 | 0x400000);
    }
    for (unsigned power = 0; power < 23; ++power) {
        addNear(std::uint32_t{1} << power);
        addNear(0x7F800000 | std::uint32_t{1} << power);
    }
    for (std::uint32_t half = 0; half < 280000; ++half) {
        const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(half) / 2);
        for (const std::uint32_t beside : {bits - 1, bits, bits + 1}) {
            patterns.push_back(beside & ~sign);
            patterns.push_back(beside | sign);
        }
    }
    for (unsigned power = 0; power < 32; ++power) { // whole numbers of every width, which integers of 32 bits need
        const double limit = std::ldexp(1.0, static_cast<int>(power));
        for (int d = -8; d <= 8; ++d) {
            addNear(std::bit_cast<std::uint32_t>(static_cast<float>(limit + d)));
            addNear(std::bit_cast<std::uint32_t>(static_cast<float>(limit + d + 0.5)));
        }
    }
    addRandom(patterns);
    return patterns;
}

inline Patterns samplesOf(BufferType type)
{
    if (bitsOf(type) < 32) {
        return everyPattern(bitsOf(type));
    }
    return isReal(type) ? samplesOfReals() : samplesOfIntegers();
}

} // namespace orlix::testing
