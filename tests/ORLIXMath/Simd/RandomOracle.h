// What random generators have to give, worked out number by number.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace orlix::simd::test {

inline unsigned long nbLanesOf(eInstructionSet::domain set)
{
    switch (set) {
    case eInstructionSet::eSSE2: return 4;
    case eInstructionSet::eAVX2: return 8;
    case eInstructionSet::eAVX512: return 16;
    default: return 1;
    }
}

/// The lanes of a generator, stepped one by one.
class LaneOracle
{
public:
    LaneOracle(eInstructionSet::domain set, const std::vector<unsigned>& states)
        : m_states(states.begin(), states.begin() + nbLanesOf(set))
    {}

    unsigned long size() const { return m_states.size(); }
    /// 15 bits.
    unsigned bits(unsigned long lane)
    {
        static const unsigned long a[] = {214013, 17405, 214013, 69069, 1664525, 22695477, 1103515245, 134775813};
        static const unsigned long c[] = {2531011, 10395331, 13737667, 1, 1013904223, 1, 12345, 1};
        m_states[lane] = (m_states[lane] * a[lane % 8] + c[lane % 8]) % (1UL << 32);
        return m_states[lane] / 65536 % 32768;
    }
    /// 32 bits.
    unsigned word(unsigned long lane)
    {
        const unsigned first = bits(lane);
        const unsigned second = bits(lane);
        return first * 131072 + second * 4 + bits(lane) % 4;
    }

private:
    std::vector<unsigned long> m_states;
};

/// Raw numbers in the order of the elements that come of them, for elements of so many bytes.
inline std::vector<unsigned> rawOracle(eInstructionSet::domain set, LaneOracle& lanes, unsigned long nb,
                                       unsigned long size)
{
    std::vector<unsigned> raw;
    const unsigned long width = lanes.size();
    while (raw.size() < nb) {
        std::vector<unsigned> packs(2 * width);
        unsigned long nbPacks = 1;
        for (unsigned long lane = 0; lane < width; ++lane) {
            if (size == 1) {
                packs[lane] = lanes.bits(lane);
            } else if (size == 4) {
                packs[lane] = lanes.word(lane);
            } else {
                const unsigned first = lanes.bits(lane);
                const unsigned second = lanes.bits(lane);
                packs[lane] = 2 * first + second % 2;
                if (set != eInstructionSet::eNone) { // two packs share the draw between them
                    packs[width + lane] = 2 * lanes.bits(lane) + second / 2 % 2;
                    nbPacks = 2;
                }
            }
        }
        raw.insert(raw.end(), packs.begin(), packs.begin() + static_cast<long>(nbPacks * width));
    }
    raw.resize(nb);
    return raw;
}

/// As sets with registers read it: with a sign, moved up by 2^31.
inline double movedUp(eInstructionSet::domain set, unsigned raw)
{
    return set == eInstructionSet::eNone ? raw : static_cast<double>(static_cast<int>(raw)) + 2147483648.0;
}

template <class T>
T uniformElement(eInstructionSet::domain set, unsigned raw, T min, T max)
{
    const double nbValues = static_cast<double>(max) - static_cast<double>(min) + 1;
    if constexpr (std::is_same_v<T, float>) {
        double scale = (static_cast<double>(max) - static_cast<double>(min)) / 4294967295.0;
        while (static_cast<float>(4294967295.0 * scale + static_cast<double>(min)) > max) {
            scale = std::nextafter(scale, 0.0);
        }
        return static_cast<float>(movedUp(set, raw) * scale + static_cast<double>(min));
    } else if (set == eInstructionSet::eNone || sizeof(T) == 4) {
        const double scale = nbValues / (sizeof(T) == 1 ? 32768.0 : sizeof(T) == 2 ? 65536.0 : 4294967296.0);
        return static_cast<T>(static_cast<std::int64_t>(std::floor(movedUp(set, raw) * scale)) +
                              static_cast<std::int64_t>(min));
    } else {
        const float scale = static_cast<float>(nbValues) / (sizeof(T) == 1 ? 32768.0F : 65536.0F);
        const float number = static_cast<float>(raw) * scale;
        return static_cast<T>(static_cast<int>(std::floor(number)) + static_cast<int>(min));
    }
}

template <class T>
std::vector<T> uniformOracle(eInstructionSet::domain set, T min, T max, const std::vector<unsigned>& states,
                             unsigned long nb)
{
    LaneOracle lanes(set, states);
    std::vector<T> elements;
    for (const unsigned raw : rawOracle(set, lanes, nb, sizeof(T))) {
        elements.push_back(uniformElement<T>(set, raw, min, max));
    }
    return elements;
}

inline float logOracle(float x)
{
    int e;
    float m = std::frexp(x, &e);
    float t = m - 1.0F;
    if (m < 0.70710677F) {
        --e;
        t = m + (m - 1.0F);
    }
    const float z = t * t;
    float p = 0.070376836F;
    for (const float c :
         {-0.1151461F, 0.116769984F, -0.12420141F, 0.14249323F, -0.16668057F, 0.20000714F, -0.24999994F, 0.3333333F}) {
        p = p * t + c;
    }
    const auto ef = static_cast<float>(e);
    return p * t * z - 0.00021219444F * ef - 0.5F * z + t + ef * 0.6933594F;
}

/// Of 0 to one turn.
inline void sineAndCosineOracle(float x, float& sine, float& cosine)
{
    const int octant = static_cast<int>(x * 1.2732395F) + 1;
    const int even = octant / 2 * 2;
    const auto y = static_cast<float>(even);
    float a = x + y * -0.78515625F;
    a = a + y * -0.00024187565F;
    a = a + y * -3.774895e-8F;
    const float z = a * a;
    sine = ((-0.00019515296F * z + 0.008332161F) * z - 0.16666655F) * z * a + a;
    cosine = ((2.4433157e-5F * z - 0.0013887316F) * z + 0.041666646F) * z * z - 0.5F * z + 1.0F;
    if (even % 4 == 2) {
        std::swap(sine, cosine);
    }
    sine = even % 8 >= 4 ? -sine : sine;
    cosine = even % 8 == 2 || even % 8 == 4 ? -cosine : cosine; // left half of the circle
}

template <class T>
T normalElement(float value)
{
    if constexpr (std::is_same_v<T, float>) {
        return value;
    } else {
        const double rounded = std::trunc(static_cast<double>(value + (value < 0 ? -0.5F : 0.5F)));
        const double low = std::numeric_limits<T>::min();
        const double high = std::numeric_limits<T>::max();
        return static_cast<T>(static_cast<std::int64_t>(std::clamp(rounded, low, high)));
    }
}

template <class T>
std::vector<T> normalOracle(eInstructionSet::domain set, float mean, float deviation,
                            const std::vector<unsigned>& states, unsigned long nb)
{
    LaneOracle lanes(set, states);
    const unsigned long nbRegisters = set == eInstructionSet::eNone ? 1 : 4;
    std::vector<T> elements;
    while (elements.size() < nb) {
        std::vector<T> sines;
        for (unsigned long i = 0; i < nbRegisters * lanes.size(); ++i) {
            const auto unit = [&] {
                return static_cast<float>(movedUp(set, lanes.word(i % lanes.size())) * 0x1p-32 + 0x1p-33);
            };
            const float u1 = unit();
            const float u2 = unit();
            const float l = logOracle(u2);
            const float radius = std::sqrt(-(l + l));
            float sine, cosine;
            sineAndCosineOracle(u1 * 6.2831855F, sine, cosine);
            elements.push_back(normalElement<T>(cosine * radius * deviation + mean));
            sines.push_back(normalElement<T>(sine * radius * deviation + mean));
        }
        elements.insert(elements.end(), sines.begin(), sines.end());
    }
    elements.resize(nb);
    return elements;
}

} // namespace orlix::simd::test
