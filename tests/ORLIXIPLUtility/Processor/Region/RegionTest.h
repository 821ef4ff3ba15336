// What holds of the operators on regions in 2d and in 3d alike: each test runs for both.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace orlix::imaproc::util {

/// A box; operators on plans don't look at z.
struct Region
{
    unsigned long x = 0, y = 0, z = 0;
    unsigned long sizeX = 0, sizeY = 0, sizeZ = 0;
};

/// The operators of one number of dimensions.
struct RegionOperators
{
    bool b3d;
    std::function<ImagePtr(const ImageConstPtr& in, const Region& region)> get;
    std::function<void(const ImageConstPtr& in, const Region& region, const ImagePtr& out)> getInto;
    std::function<void(const ImagePtr& inOut, const ImageConstPtr& roi, const Region& at)> put;
    std::function<void(const ImageConstPtr& in, const ImageConstPtr& roi, const Region& at, const ImagePtr& out)>
        putInto;
};

inline RegionOperators regionOperators(bool b3d)
{
    if (!b3d) {
        return {
            false, [](const ImageConstPtr& in, const Region& r) { return getROI2dImg(in, r.x, r.y, r.sizeX, r.sizeY); },
            [](const ImageConstPtr& in, const Region& r, const ImagePtr& out) {
                getROI2dImg(in, r.x, r.y, r.sizeX, r.sizeY, out);
            },
            [](const ImagePtr& inOut, const ImageConstPtr& roi, const Region& r) { putROI2dImg(inOut, roi, r.x, r.y); },
            [](const ImageConstPtr& in, const ImageConstPtr& roi, const Region& r, const ImagePtr& out) {
                putROI2dImg(in, roi, r.x, r.y, out);
            }};
    }
    return {true,
            [](const ImageConstPtr& in, const Region& r) {
                return getROI3dImg(in, r.x, r.y, r.z, r.sizeX, r.sizeY, r.sizeZ);
            },
            [](const ImageConstPtr& in, const Region& r, const ImagePtr& out) {
                getROI3dImg(in, r.x, r.y, r.z, r.sizeX, r.sizeY, r.sizeZ, out);
            },
            [](const ImagePtr& inOut, const ImageConstPtr& roi, const Region& r) {
                putROI3dImg(inOut, roi, r.x, r.y, r.z);
            },
            [](const ImageConstPtr& in, const ImageConstPtr& roi, const Region& r, const ImagePtr& out) {
                putROI3dImg(in, roi, r.x, r.y, r.z, out);
            }};
}

class RegionTest : public ::testing::TestWithParam<bool>
{
protected:
    RegionOperators m_op = regionOperators(GetParam());

    /// The region as this number of dimensions takes it: all plans in 2d.
    Region over(const image::BaseImage& image, Region region) const
    {
        if (!GetParam()) {
            region.z = 0;
            region.sizeZ = image.getSizeZ();
        }
        return region;
    }
    /// A volume, channels and time steps; in 2d an image may also have one plan only.
    image::BaseImageGeometry geometry(image::eImageBufferType type, unsigned long x, unsigned long y, unsigned long z,
                                      unsigned long c = 1, unsigned long t = 1) const
    {
        image::VolumeGeometry volume;
        volume.init3d(z);
        image::ColorGeometry color;
        color.initChannels(c);
        image::TemporalGeometry temporal;
        temporal.initSequence(t);
        return {type, x, y, volume, color, temporal};
    }
    image::BaseImageGeometry roiGeometry(const image::BaseImage& image, const Region& region) const
    {
        return geometry(image.getBufferType(), region.sizeX, region.sizeY, region.sizeZ, image.getSizeC(),
                        image.getSizeT());
    }
};

/// The oracle: the bytes of the region, x fastest, then y, z, c, t.
inline std::vector<std::byte> regionBytes(const image::BaseImage& image, const Region& region)
{
    std::vector<std::byte> bytes;
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        const unsigned long size = image::elementSize(image.getBufferType(t));
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = region.z; z < region.z + region.sizeZ; ++z) {
                for (unsigned long y = region.y; region.sizeX > 0 && y < region.y + region.sizeY; ++y) {
                    const std::byte* const row = image.accessRow(y, z, c, t) + region.x * size;
                    bytes.insert(bytes.end(), row, row + region.sizeX * size);
                }
            }
        }
    }
    return bytes;
}

/// The oracle: a plain copy of `image` with the pixels of `roi` in the region.
inline ImagePtr withRegion(const image::BaseImage& image, const image::BaseImage& roi, const Region& region)
{
    const ImagePtr result = testing::plainCopy(image);
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        const unsigned long size = image::elementSize(image.getBufferType(t));
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < roi.getSizeZ(); ++z) {
                for (unsigned long y = 0; roi.getSizeX() > 0 && y < roi.getSizeY(); ++y) {
                    std::memcpy(result->accessRow(region.y + y, region.z + z, c, t) + region.x * size,
                                roi.accessRow(y, z, c, t), roi.getSizeX() * size);
                }
            }
        }
    }
    return result;
}

} // namespace orlix::imaproc::util
