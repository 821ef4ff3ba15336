// What a slice of a volume looks like, and whether a volume has it.
#pragma once

#include "ORLIX/ORLIXUtil/ProcessingResult.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <algorithm>

namespace orlix::imaproc::util {

// A slice keeps the two axes of the volume that it isn't perpendicular to, in their order:
//     along x    y across, z down
//     along y    x across, z down
//     along z    x across, y down

inline unsigned long sliceSizeX(const image::BaseImage& volume, const eAxis& axis)
{
    return axis == eAxis::eX ? volume.getSizeY() : volume.getSizeX();
}
inline unsigned long sliceSizeY(const image::BaseImage& volume, const eAxis& axis)
{
    return axis == eAxis::eX || axis == eAxis::eY ? volume.getSizeZ() : volume.getSizeY();
}

/// The number of slices: the size of the axis.
inline unsigned long countSlices(const image::BaseImage& volume, const eAxis& axis)
{
    return axis == eAxis::eX ? volume.getSizeX() : axis == eAxis::eY ? volume.getSizeY() : volume.getSizeZ();
}

/// What is read, or written, of the volume for each byte of a slice: along x every pixel lies in a cache line of its
/// own, unless rows are shorter than that. For weights: it follows from the geometry, so that strips do.
inline unsigned bytesPerSliceByte(const image::BaseImage& volume, const eAxis& axis)
{
    constexpr unsigned long cacheLine = 64;
    const unsigned long nbElements = cacheLine / std::max(1UL, image::elementSize(volume.getBufferType()));
    return axis == eAxis::eX ? static_cast<unsigned>(std::clamp(volume.getSizeX(), 1UL, nbElements)) : 1U;
}

/// The calibration of a slice: unit, pixel sizes and origins of the two axes that it keeps. A rotation about the axis
/// of the slice becomes the slice's own; one about another axis can't be told in 2d and is left out. Null where the
/// volume has none, or none along z that the slice would need.
ORLIXIPLUTILITY_API boost::shared_ptr<const image::GeometricCalibration>
sliceCalibration(const image::BaseImage& volume, const eAxis& axis);

/// (X, Y, Z, C, T) -> a new image of the slice's sizes, (…, …, 1, C, T), with its calibration and the volume's element
/// types; its pixels are not set.
ORLIXIPLUTILITY_API ImagePtr createSliceImage(const image::BaseImage& volume, const eAxis& axis);

/// Has the volume a slice of that number, from 0? No rule of the slice operators asks, so whoever takes the number from
/// a person does. A failure names sizes and number.
[[nodiscard]] ORLIXIPLUTILITY_API ProcessingResult<bool> hasSlice(const image::BaseImage& volume, const eAxis& axis,
                                                                  unsigned long index);

/// May `slice` be put into the volume there? The number as above, and one element type in every time step, which no
/// rule compares either.
[[nodiscard]] ORLIXIPLUTILITY_API ProcessingResult<bool>
takesSlice(const image::BaseImage& volume, const image::BaseImage& slice, const eAxis& axis, unsigned long index);

} // namespace orlix::imaproc::util
