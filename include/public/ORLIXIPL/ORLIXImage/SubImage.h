// A view of some plans of another image.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// View of part of an image: plans [z, z + sizeZ), channels [c, c + sizeC), time steps [t, t + sizeT), whole in x and
/// y. Shares and keeps alive the parent's pixels, not the parent. Takes the parent's calibration.
class ORLIXIMAGE_API SubImage final : public BaseImage
{
public:
    /// `geometry` is the view's own; no bounds are checked.
    SubImage(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c, unsigned long t)
        : BaseImage(parent, std::move(geometry), z, c, t)
    {}
    ~SubImage() override;
};

/// The geometry of one plan of `image` at time step t.
inline BaseImageGeometry planGeometry(const BaseImage& image, unsigned long t)
{
    return {image.getBufferType(t), image.getSizeX(), image.getSizeY(),
            VolumeGeometry(),       ColorGeometry(),  TemporalGeometry()};
}

/// The geometry of the whole volume of one channel and time step of `image`.
inline BaseImageGeometry volumeGeometry(const BaseImage& image, unsigned long t)
{
    return {image.getBufferType(t), image.getSizeX(),  image.getSizeY(), image.getGeometry().getVolumeGeometry(),
            ColorGeometry(),        TemporalGeometry()};
}

} // namespace orlix::image
