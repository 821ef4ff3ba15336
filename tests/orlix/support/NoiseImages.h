// Images for tests of the command line.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"
#include "support/SameImages.h"

#include <cstring>

namespace orlix::test {

/// An image whose elements are noise, the same at each call.
inline ImagePtr makeNoise(const image::BaseImageGeometry& geometry)
{
    const ImagePtr image = image::createImage(geometry);
    const unsigned long rowBytes = geometry.getSizeX() * image::elementSize(geometry.getBufferType());
    const bool bBinary = geometry.getBufferType() == image::eImageBufferType::eBufferBinary;
    const bool bReal = geometry.getBufferType() == image::eImageBufferType::Real32;
    unsigned state = 12345;
    for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
        for (unsigned long c = 0; c < geometry.getSizeC(); ++c) {
            for (unsigned long z = 0; z < geometry.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < geometry.getSizeY(); ++y) {
                    std::byte* row = image->accessRow(y, z, c, t);
                    for (unsigned long x = 0; x < rowBytes; ++x) {
                        state = state * 1664525U + 1013904223U;
                        const unsigned value = bBinary ? state >> 31 : bReal ? state >> 26 : state >> 24;
                        row[x] = static_cast<std::byte>(value);
                    }
                }
            }
        }
    }
    return image;
}

} // namespace orlix::test
