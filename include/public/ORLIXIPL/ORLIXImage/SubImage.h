// A view of some plans of another image.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// View of part of an image: plans [z, z + sizeZ), channels [c, c + sizeC), time steps [t, t + sizeT), whole in x and y.
/// Shares and keeps alive the parent's pixels, not the parent. Takes the parent's calibration.
class ORLIXIMAGE_API SubImage final : public BaseImage
{
public:
    /// `geometry` is the view's own; no bounds are checked.
    SubImage(const BaseImage& parent, const BaseImageGeometry& geometry, unsigned long z, unsigned long c, unsigned long t);
    ~SubImage() override;
};

/// The geometry of one plan of `image` at time step t.
ORLIXIMAGE_API BaseImageGeometry planGeometry(const BaseImage& image, unsigned long t);
/// The geometry of the whole volume of one channel and time step of `image`.
ORLIXIMAGE_API BaseImageGeometry volumeGeometry(const BaseImage& image, unsigned long t);

} // namespace orlix::image
