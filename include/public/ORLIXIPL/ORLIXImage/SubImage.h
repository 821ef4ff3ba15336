// A view of some plans of another image, or of the time steps of several.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// View of part of an image: plans [z, z + sizeZ), channels [c, c + sizeC), time steps [t, t + sizeT), whole in x and
/// y; or of the time steps of several images. Shares and keeps alive the parents' pixels, not the parents: where a
/// parent grows, the view stays what it was. Takes the parent's calibration.
class ORLIXIMAGE_API SubImage final : public BaseImage
{
public:
    /// `geometry` is the view's own; no bounds are checked.
    SubImage(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c, unsigned long t)
        : BaseImage(parent, std::move(geometry), z, c, t)
    {}
    /// View of the time steps of all `parts`, in order, as one sequence. The parts agree in all other sizes and have
    /// host pixels, `geometry` tells the type of every step; nothing is checked. Takes the first part's calibration.
    SubImage(const std::vector<const BaseImage*>& parts, BaseImageGeometry geometry)
        : BaseImage(parts, std::move(geometry))
    {}
    ~SubImage() override;
};

/// View of part of `parent`, as the constructors make it: a SubImage of an image of the host, a CudaImage of one on a
/// device. No bounds are checked.
ORLIXIMAGE_API ImagePtr makeView(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c,
                                 unsigned long t);

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
