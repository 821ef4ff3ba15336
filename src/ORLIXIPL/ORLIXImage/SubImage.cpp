// Views of plans and volumes, and their geometries.
#include "ORLIXIPL/ORLIXImage/SubImage.h"

namespace orlix::image {

SubImage::SubImage(const BaseImage& parent, const BaseImageGeometry& geometry, unsigned long z, unsigned long c,
                   unsigned long t)
    : BaseImage(parent, geometry, z, c, t)
{}

SubImage::~SubImage() = default;

BaseImageGeometry planGeometry(const BaseImage& image, unsigned long t)
{
    return {image.getBufferType(t), image.getSizeX(), image.getSizeY(), VolumeGeometry(), ColorGeometry(),
            TemporalGeometry()};
}

BaseImageGeometry volumeGeometry(const BaseImage& image, unsigned long t)
{
    return {image.getBufferType(t), image.getSizeX(), image.getSizeY(), image.getGeometry().getVolumeGeometry(),
            ColorGeometry(), TemporalGeometry()};
}

} // namespace orlix::image
