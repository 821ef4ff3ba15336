// Bytes of all elements of an image.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

namespace orlix::image {

/// Gaps don't count. The geometry is one of an image that is there, so that the bytes can be counted.
inline unsigned long pixelBytesOf(const BaseImageGeometry& geometry)
{
    const unsigned long step = geometry.getSizeX() * geometry.getSizeY() * geometry.getSizeZ() * geometry.getSizeC();
    if (geometry.hasUniformBufferType()) {
        return step * geometry.getSizeT() * elementSize(geometry.getBufferType());
    }
    unsigned long bytes = 0;
    for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
        bytes += step * elementSize(geometry.getBufferType(t));
    }
    return bytes;
}

} // namespace orlix::image
