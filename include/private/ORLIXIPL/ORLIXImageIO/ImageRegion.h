// A part of an image on its five axes: what it is asked for, where it lies, what image it makes.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/ReadRegion.h"

#include <string>

namespace orlix::image::io {

/// What a caller asks for.
struct RegionWish
{
    RegionOffsets offsets;
    RegionSizes sizes;
};

/// Some of the pixels along one axis.
struct AxisPart
{
    unsigned long first;
    unsigned long size;

    unsigned long end() const { return first + size; }
    bool contains(unsigned long index) const { return index >= first && index - first < size; }
    friend bool operator==(const AxisPart&, const AxisPart&) = default;
};

/// What both parts hold; of size 0 where that is nothing.
AxisPart commonPart(const AxisPart& a, const AxisPart& b);

/// A part of an image, in which it lies.
struct ImageRegion
{
    AxisPart x, y, z, c, t;

    bool isEmpty() const { return x.size == 0 || y.size == 0 || z.size == 0 || c.size == 0 || t.size == 0; }
    bool holdsPlansOf(const PagePlace& place, unsigned long channels) const ///< of so many channels from place.c on
    {
        return z.contains(place.z) && t.contains(place.t) && channelsOf(place, channels).size > 0;
    }
    AxisPart channelsOf(const PagePlace& place, unsigned long channels) const
    {
        return commonPart(c, {place.c, channels});
    }
};

/// All of an image.
ImageRegion wholeImage(const BaseImageGeometry& geometry);

/// Throws ORLIXImageIOException, naming `file` and the first axis on which the region doesn't lie in the image.
ImageRegion regionOf(const BaseImageGeometry& geometry, const RegionWish& wish, const std::string& file);

/// Of the image that the region makes.
BaseImageGeometry geometryOf(const ImageRegion& region, const BaseImageGeometry& whole);
CalibrationPtr calibrationOf(const ImageRegion& region, const BaseImageGeometry& whole,
                             const CalibrationPtr& calibration);

} // namespace orlix::image::io
