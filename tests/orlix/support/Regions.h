// Regions of images, cut by plain loops.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <cstring>

namespace orlix::test {

/// Numbers along x, y and z.
struct Place
{
    unsigned long x, y, z;
};

/// A new image of such pixels of every channel and time step; a volume where `image` is one.
inline ImagePtr cut(const image::BaseImage& image, const Place& at, const Place& size)
{
    const image::BaseImageGeometry& whole = image.getGeometry();
    image::VolumeGeometry volume;
    if (whole.getVolumeGeometry().is3d()) {
        volume.init3d(size.z);
    }
    const ImagePtr part = image::createImage(
        {whole.getBufferType(), size.x, size.y, volume, whole.getColorGeometry(), whole.getTemporalGeometry()});
    const unsigned long bytes = image::elementSize(whole.getBufferType());
    for (unsigned long t = 0; t < whole.getSizeT(); ++t) {
        for (unsigned long c = 0; c < whole.getSizeC(); ++c) {
            for (unsigned long z = 0; z < size.z; ++z) {
                for (unsigned long y = 0; y < size.y; ++y) {
                    std::memcpy(part->accessRow(y, z, c, t), image.accessRow(at.y + y, at.z + z, c, t) + at.x * bytes,
                                size.x * bytes);
                }
            }
        }
    }
    return part;
}

} // namespace orlix::test
