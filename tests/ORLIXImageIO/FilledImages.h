// Images with known pixels, and how two of them differ.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/SameImages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>

namespace orlix::image::io::test {

struct Position
{
    unsigned long x, y, z, c, t;
};

inline void forEachPixel(const BaseImage& image, const std::function<void(const Position&)>& work)
{
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < image.getSizeY(); ++y) {
                    for (unsigned long x = 0; x < image.getSizeX(); ++x) {
                        work({x, y, z, c, t});
                    }
                }
            }
        }
    }
}

/// The element's value; every 32-bit integer and float is a double.
inline double valueAt(const BaseImage& image, const Position& p)
{
    double value = 0;
    visitStorageType(image.getBufferType(), [&]<class T>() {
        T element;
        std::memcpy(&element, image.accessRow(p.y, p.z, p.c, p.t) + p.x * sizeof(T), sizeof(T));
        value = static_cast<double>(element);
    });
    return value;
}

inline void setValue(BaseImage& image, const Position& p, double value)
{
    visitStorageType(image.getBufferType(), [&]<class T>() {
        const T element = static_cast<T>(value);
        std::memcpy(image.accessRow(p.y, p.z, p.c, p.t) + p.x * sizeof(T), &element, sizeof(T));
    });
}

/// Bits that look random and depend on position and seed alone.
inline std::uint64_t hashOf(const Position& p, std::uint64_t seed)
{
    std::uint64_t hash = seed;
    for (const unsigned long part : {p.x, p.y, p.z, p.c, p.t}) {
        hash = (hash ^ part) * 0x9e3779b97f4a7c15u;
        hash ^= hash >> 29;
    }
    return hash;
}

/// Fills the whole range of the element type, smooth in some places and random in others, so that compressions meet
/// both. Binary gets 0 and 1.
inline void fill(BaseImage& image, std::uint64_t seed)
{
    const double low = getMinValue(image.getBufferType()), high = getMaxValue(image.getBufferType());
    forEachPixel(image, [&](const Position& p) {
        const std::uint64_t hash = p.x % 16 < 8 ? hashOf(p, seed) : hashOf({0, p.y / 4, p.z, p.c, p.t}, seed);
        const double part = static_cast<double>(hash >> 11) / 9007199254740991.0;
        const bool bFloat = image.getBufferType() == eImageBufferType::Real32;
        setValue(image, p, bFloat ? (part - 0.5) * 1e6 : std::floor(low + part * (high - low) + 0.5));
    });
}

inline ImagePtr filledImage(const BaseImageGeometry& geometry, std::uint64_t seed)
{
    const ImagePtr image = createImage(geometry);
    fill(*image, seed);
    return image;
}

/// Sizes, types, kinds of axes, calibration and pixels.
inline ::testing::AssertionResult areSame(const BaseImage& expected, const BaseImage& found)
{
    if (const auto pixels = orlix::testing::sameImages(expected, found); !pixels) {
        return pixels;
    }
    if (expected.getGeometry().getVolumeGeometry() != found.getGeometry().getVolumeGeometry()) {
        return ::testing::AssertionFailure() << "one is a volume";
    }
    if (expected.getGeometry().getTemporalGeometry() != found.getGeometry().getTemporalGeometry()) {
        return ::testing::AssertionFailure() << "one is a sequence";
    }
    const auto& a = expected.getGeometricCalibration();
    const auto& b = found.getGeometricCalibration();
    if (!a != !b || (a && !(*a == *b))) {
        return ::testing::AssertionFailure() << "calibrations differ";
    }
    return ::testing::AssertionSuccess();
}

} // namespace orlix::image::io::test
