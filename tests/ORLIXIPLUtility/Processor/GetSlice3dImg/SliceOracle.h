// What slices are, pixel by pixel, and the images that the tests of slices go through.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "support/Images.h"

#include <array>
#include <cstring>
#include <set>

namespace orlix::imaproc::util {

constexpr eAxis::domain g_axes[] = {eAxis::eX, eAxis::eY, eAxis::eZ};

using Sizes = std::array<unsigned long, 5>; ///< x, y, z, c, t

/// An image that is a volume even where it has one plan.
inline boost::shared_ptr<image::BaseImageGeometry> volumeOf(const image::eImageBufferType& type, const Sizes& sizes)
{
    image::VolumeGeometry volume;
    volume.init3d(sizes[2]);
    image::ColorGeometry color;
    color.initChannels(sizes[3]);
    image::TemporalGeometry temporal;
    if (sizes[4] != 1) {
        temporal.initSequence(sizes[4]);
    }
    return boost::make_shared<image::BaseImageGeometry>(type, sizes[0], sizes[1], volume, color, temporal);
}

/// The geometry of its slices.
inline boost::shared_ptr<image::BaseImageGeometry> sliceOf(const image::eImageBufferType& type, const Sizes& sizes,
                                                           eAxis::domain axis)
{
    const unsigned long across = axis == eAxis::eX ? sizes[1] : sizes[0];
    const unsigned long down = axis == eAxis::eZ ? sizes[1] : sizes[2];
    return image::geometry5d(type, across, down, 1, sizes[3], sizes[4]);
}

inline Sizes sizesOf(const image::BaseImage& image)
{
    return {image.getSizeX(), image.getSizeY(), image.getSizeZ(), image.getSizeC(), image.getSizeT()};
}

/// Calls `action` with the addresses of a pixel of the slice and of that of the volume, and the bytes of a pixel.
template <class TAction>
void forEachSlicePixel(const image::BaseImage& volume, const image::BaseImage& slice, eAxis::domain axis,
                       unsigned long index, const TAction& action)
{
    for (unsigned long t = 0; t < slice.getSizeT(); ++t) {
        const unsigned long size = image::elementSize(slice.getBufferType(t));
        for (unsigned long c = 0; c < slice.getSizeC(); ++c) {
            for (unsigned long v = 0; v < slice.getSizeY(); ++v) {
                for (unsigned long u = 0; u < slice.getSizeX(); ++u) {
                    const unsigned long x = axis == eAxis::eX ? index : u;
                    const unsigned long y = axis == eAxis::eX ? u : axis == eAxis::eY ? index : v;
                    const unsigned long z = axis == eAxis::eZ ? index : v;
                    action(slice.accessRow(v, 0, c, t) + u * size, volume.accessRow(y, z, c, t) + x * size, size);
                }
            }
        }
    }
}

/// The slice as a new image.
inline ImagePtr plainSlice(const image::BaseImage& volume, eAxis::domain axis, unsigned long index)
{
    const ImagePtr slice = image::createImage(*sliceOf(volume.getBufferType(), sizesOf(volume), axis));
    forEachSlicePixel(volume, *slice, axis, index,
                      [](std::byte* to, const std::byte* from, unsigned long size) { std::memcpy(to, from, size); });
    return slice;
}

/// The volume as a new image with that slice in it.
inline ImagePtr plainVolumeWith(const image::BaseImage& volume, const image::BaseImage& slice, eAxis::domain axis,
                                unsigned long index)
{
    const ImagePtr whole = testing::plainCopy(volume);
    forEachSlicePixel(*whole, slice, axis, index,
                      [](const std::byte* from, std::byte* to, unsigned long size) { std::memcpy(to, from, size); });
    return whole;
}

/// Volumes with rows below, at and beyond registers and cache lines.
const Sizes g_volumes[] = {{1, 1, 1, 1, 1},  {1, 5, 3, 1, 1},  {2, 3, 4, 2, 3},   {5, 1, 4, 1, 1},  {7, 5, 1, 1, 1},
                           {16, 3, 2, 1, 1}, {33, 2, 3, 1, 2}, {64, 65, 3, 1, 1}, {67, 9, 5, 2, 1}, {130, 3, 7, 1, 1}};

/// First, last and one between.
inline std::set<unsigned long> someIndices(const Sizes& sizes, eAxis::domain axis)
{
    const unsigned long size = sizes[axis];
    return {0, size / 2, size - 1};
}

inline std::string nameOf(const image::BaseImage& volume, eAxis::domain axis, unsigned long index)
{
    return volume.getGeometry().toString() + " slice " + std::to_string(index) + " along " +
           EnumerationNames<eAxis>::nameOf(axis);
}

/// How wrapped images lie in memory: at either forbidden page, with and without gaps, beside a cache line.
const testing::WrapForm g_wrapForms[] = {{testing::GuardEdge::eEnd, 0, 0},
                                         {testing::GuardEdge::eBegin, 0, 0},
                                         {testing::GuardEdge::eEnd, 3, 5},
                                         {testing::GuardEdge::eBegin, 5, 0, 3, false}};

} // namespace orlix::imaproc::util
