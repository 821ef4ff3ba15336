// The image that a part of a file's image is read into.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/ImageRegion.h"

#include <cstddef>

namespace orlix::image::io {

/// Takes places in the whole image to places in memory. Rows of the image touch.
class RegionTarget
{
public:
    /// `image` has the sizes of the region.
    RegionTarget(BaseImage& image, const ImageRegion& region) : m_image(image), m_region(region) {}

    const ImageRegion& getRegion() const { return m_region; }

    /// Where the region's first pixel of row `y` goes; the row has to be one of the region's.
    std::byte* accessRow(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
    {
        return m_image.accessRow(y - m_region.y.first, z - m_region.z.first, c - m_region.c.first,
                                 t - m_region.t.first);
    }
    std::byte* accessRow(unsigned long y, unsigned long c, const PagePlace& place) const
    {
        return accessRow(y, place.z, c, place.t);
    }

private:
    BaseImage& m_image;
    ImageRegion m_region;
};

} // namespace orlix::image::io
