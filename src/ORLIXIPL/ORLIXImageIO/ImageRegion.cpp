// Placing a region in an image.
#include "ORLIXIPL/ORLIXImageIO/ImageRegion.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace orlix::image::io {

namespace {

AxisPart partOf(unsigned long whole, unsigned long offset, const std::optional<unsigned long>& size, const char* axis,
                const BaseImageGeometry& geometry, const std::string& file)
{
    const WideSize end = WideSize(offset) + size.value_or(0);
    if (end > whole) {
        const bool bBegins = offset > whole;
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eRegionBeyond, file, geometry.toString(),
                                    bBegins ? "begins" : "ends", axis, bBegins ? textOf(offset) : textOf(end), axis,
                                    whole);
    }
    return {offset, size.value_or(whole - offset)};
}

} // namespace

AxisPart commonPart(const AxisPart& a, const AxisPart& b)
{
    const unsigned long first = std::max(a.first, b.first), end = std::min(a.end(), b.end());
    return {first, end > first ? end - first : 0};
}

ImageRegion wholeImage(const BaseImageGeometry& geometry)
{
    return {{0, geometry.getSizeX()},
            {0, geometry.getSizeY()},
            {0, geometry.getSizeZ()},
            {0, geometry.getSizeC()},
            {0, geometry.getSizeT()}};
}

ImageRegion regionOf(const BaseImageGeometry& geometry, const RegionWish& wish, const std::string& file)
{
    const auto& [offsets, sizes] = wish;
    return {partOf(geometry.getSizeX(), offsets.x, sizes.x, "x", geometry, file),
            partOf(geometry.getSizeY(), offsets.y, sizes.y, "y", geometry, file),
            partOf(geometry.getSizeZ(), offsets.z, sizes.z, "z", geometry, file),
            partOf(geometry.getSizeC(), offsets.c, sizes.c, "c", geometry, file),
            partOf(geometry.getSizeT(), offsets.t, sizes.t, "t", geometry, file)};
}

BaseImageGeometry geometryOf(const ImageRegion& region, const BaseImageGeometry& whole)
{
    VolumeGeometry volume;
    if (whole.getVolumeGeometry().is3d() || region.z.size != 1) {
        volume.init3d(region.z.size);
    }
    ColorGeometry color;
    color.initChannels(region.c.size);
    TemporalGeometry temporal;
    if (whole.getTemporalGeometry().isSequence() || region.t.size != 1) {
        temporal.initSequence(region.t.size);
    }
    return {whole.getBufferType(), region.x.size, region.y.size, volume, color, temporal};
}

CalibrationPtr calibrationOf(const ImageRegion& region, const BaseImageGeometry& whole,
                             const CalibrationPtr& calibration)
{
    const GeometricCalibration from = calibration ? *calibration : GeometricCalibration(); // 1 px at 0
    const bool b3d = calibration ? calibration->is3d() : whole.getVolumeGeometry().is3d();
    const auto moved = [](unsigned long offset, float pixelSize, float origin) {
        return static_cast<float>(offset) * pixelSize + origin;
    };
    const float originX = moved(region.x.first, from.getPixelSizeX(), from.getOriginX());
    const float originY = moved(region.y.first, from.getPixelSizeY(), from.getOriginY());
    auto result = boost::make_shared<GeometricCalibration>();
    if (b3d) {
        const float originZ = moved(region.z.first, from.getPixelSizeZ(), from.getOriginZ());
        result->init3d(from.getUnit(), from.getPixelSizeX(), from.getPixelSizeY(), from.getPixelSizeZ(), originX,
                       originY, originZ);
    } else {
        result->init2d(from.getUnit(), from.getPixelSizeX(), from.getPixelSizeY(), originX, originY);
    }
    return result;
}

} // namespace orlix::image::io
