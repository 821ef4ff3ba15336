// One comparison of images for the tests of all libraries above compareImg, with a look at where they differ.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iomanip>
#include <sstream>

namespace orlix::testing {

namespace details {

/// Time step `t` of an image by itself, floating elements as the integers of the same bits: a not-a-number is the same
/// as itself here, and 0 is not the same as -0.
inline ImagePtr bitsOfStep(const image::BaseImage& image, unsigned long t)
{
    using image::eImageBufferType;
    const eImageBufferType type = image.getBufferType(t);
    const ImagePtr step = image::createImage(
        *image::geometry5d(type == eImageBufferType::Real32 ? eImageBufferType(eImageBufferType::UInt32) : type,
                           image.getSizeX(), image.getSizeY(), image.getSizeZ(), image.getSizeC(), 1));
    for (unsigned long c = 0; c < image.getSizeC(); ++c) {
        for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
            for (unsigned long y = 0; image.getSizeX() > 0 && y < image.getSizeY(); ++y) {
                std::memcpy(step->accessRow(y, z, c, 0), image.accessRow(y, z, c, t),
                            image.getSizeX() * image::elementSize(type));
            }
        }
    }
    return step;
}

/// Up to 5 values of row y around `at`.
inline void printRow(std::ostream& stream, const image::BaseImage& image, const imaproc::attr::PixelPosition& at,
                     unsigned long y)
{
    const unsigned long first = at.x < 2 ? 0 : at.x - 2;
    for (unsigned long x = first; x < std::min(first + 5, image.getSizeX()); ++x) {
        image::visitStorageType(image.getBufferType(at.t), [&]<class T>() {
            T value;
            std::memcpy(&value, image.accessRow(y, at.z, at.c, at.t) + x * sizeof(T), sizeof(T));
            stream << std::setw(12) << +value;
        });
    }
}

/// The pixels around `at`, those of the first image beside those of the second.
inline void printAround(std::ostream& stream, const image::BaseImage& left, const image::BaseImage& right,
                        const imaproc::attr::PixelPosition& at)
{
    const unsigned long first = at.y < 2 ? 0 : at.y - 2;
    for (unsigned long y = first; y < std::min(first + 5, left.getSizeY()); ++y) {
        stream << '\n' << (y == at.y ? '>' : ' ') << std::setw(6) << y << ':';
        printRow(stream, left, at, y);
        stream << "   |";
        printRow(stream, right, at, y);
    }
}

} // namespace details

/// Same sizes, element types and bits of every element; else the count of differences, and the first with what lies
/// around it.
inline ::testing::AssertionResult sameImages(const image::BaseImage& left, const image::BaseImage& right)
{
    const image::BaseImageGeometry& geometry = left.getGeometry();
    if (!geometry.hasSameSizes(right.getGeometry()) || !geometry.hasSameBufferTypes(right.getGeometry())) {
        return ::testing::AssertionFailure() << geometry.toString() << " against " << right.getGeometry().toString();
    }
    for (unsigned long t = 0; t < left.getSizeT(); ++t) {
        const auto result = imaproc::util::compareImg(details::bitsOfStep(left, t), details::bitsOfStep(right, t));
        if (!result->identical) {
            imaproc::attr::PixelPosition at = result->firstDifference;
            at.t = t;
            std::ostringstream text;
            text << geometry.toString() << ": " << result->nbDifferentPixels << " of " << result->nbComparedPixels
                 << " pixels of time step " << t << " differ, the first at x " << at.x << ", y " << at.y << ", z "
                 << at.z << ", c " << at.c;
            details::printAround(text, left, right, at);
            return ::testing::AssertionFailure() << text.str();
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace orlix::testing
