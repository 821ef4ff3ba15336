// Whether two images are the same, judged byte by byte in plain loops: no operator has a say in it.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <optional>
#include <sstream>

namespace orlix::testing {

namespace details {

struct PixelPlace
{
    unsigned long x, y, z, c, t;
};

/// First byte of row y of plan (z, c, t).
inline const unsigned char* rowOf(const image::BaseImage& image, unsigned long y, unsigned long z, unsigned long c,
                                  unsigned long t)
{
    const unsigned char* row = nullptr;
    image::visitStorageType(image.getBufferType(t), [&]<class T>() {
        row =
            reinterpret_cast<const unsigned char*>(image::planData<T>(image, z, c, t) + y * image::rowPitch(image, t));
    });
    return row;
}

/// Up to 5 values of row y around `at`.
inline void printRow(std::ostream& stream, const image::BaseImage& image, const PixelPlace& at, unsigned long y)
{
    const unsigned long first = at.x < 2 ? 0 : at.x - 2;
    for (unsigned long x = first; x < std::min(first + 5, image.getSizeX()); ++x) {
        image::visitStorageType(image.getBufferType(at.t), [&]<class T>() {
            T value;
            std::memcpy(&value, rowOf(image, y, at.z, at.c, at.t) + x * sizeof(T), sizeof(T));
            stream << std::setw(12) << +value;
        });
    }
}

/// The pixels around `at`, those of the first image beside those of the second.
inline void printAround(std::ostream& stream, const image::BaseImage& left, const image::BaseImage& right,
                        const PixelPlace& at)
{
    const unsigned long first = at.y < 2 ? 0 : at.y - 2;
    for (unsigned long y = first; y < std::min(first + 5, left.getSizeY()); ++y) {
        stream << '\n' << (y == at.y ? '>' : ' ') << std::setw(6) << y << ':';
        printRow(stream, left, at, y);
        stream << "   |";
        printRow(stream, right, at, y);
    }
}

/// What differs in a time step, by the order x, y, z, c.
struct StepDifference
{
    unsigned long nbDifferent = 0;
    std::optional<PixelPlace> first;
};

inline StepDifference compareStep(const image::BaseImage& left, const image::BaseImage& right, unsigned long t)
{
    const unsigned long size = image::elementSize(left.getBufferType(t));
    StepDifference step;
    for (unsigned long c = 0; c < left.getSizeC(); ++c) {
        for (unsigned long z = 0; z < left.getSizeZ(); ++z) {
            for (unsigned long y = 0; left.getSizeX() > 0 && y < left.getSizeY(); ++y) {
                const unsigned char* const one = rowOf(left, y, z, c, t);
                const unsigned char* const other = rowOf(right, y, z, c, t);
                if (std::memcmp(one, other, left.getSizeX() * size) == 0) {
                    continue;
                }
                for (unsigned long x = 0; x < left.getSizeX(); ++x) {
                    if (std::memcmp(one + x * size, other + x * size, size) != 0) {
                        ++step.nbDifferent;
                        step.first = step.first ? step.first : PixelPlace{x, y, z, c, t};
                    }
                }
            }
        }
    }
    return step;
}

} // namespace details

/// Same sizes, element types and bits of every element, so that a not-a-number is the same as itself and 0 is not the
/// same as -0; else the count of differences, and the first with what lies around it.
inline ::testing::AssertionResult sameImages(const image::BaseImage& left, const image::BaseImage& right)
{
    const auto different = [&] {
        return ::testing::AssertionFailure()
               << left.getGeometry().toString() << " against " << right.getGeometry().toString();
    };
    if (left.getSizeX() != right.getSizeX() || left.getSizeY() != right.getSizeY() ||
        left.getSizeZ() != right.getSizeZ() || left.getSizeC() != right.getSizeC() ||
        left.getSizeT() != right.getSizeT() || left.getBufferType() != right.getBufferType()) {
        return different();
    }
    for (unsigned long t = 0; t < left.getSizeT(); ++t) {
        if (left.getBufferType(t) != right.getBufferType(t)) {
            return different();
        }
        const details::StepDifference step = details::compareStep(left, right, t);
        if (step.first) {
            const details::PixelPlace& at = *step.first;
            std::ostringstream text;
            text << left.getGeometry().toString() << ": " << step.nbDifferent << " of "
                 << left.getSizeX() * left.getSizeY() * left.getSizeZ() * left.getSizeC() << " pixels of time step "
                 << t << " differ, the first at x " << at.x << ", y " << at.y << ", z " << at.z << ", c " << at.c;
            details::printAround(text, left, right, at);
            return ::testing::AssertionFailure() << text.str();
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace orlix::testing
