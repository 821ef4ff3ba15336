// Making images, and the direct way to their pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// A new image of undefined elements. Every plan is dense, starts on a 64-byte boundary and has room for 64 elements
/// behind its last. Memory comes from a pool (see PixelMemoryPool.h). Throws ORLIXImageException, naming sizes and
/// bytes, where the size in bytes overflows, a step's type is none, or the memory cannot be had; nothing is left half
/// made.
ORLIXIMAGE_API ImagePtr createImage(const BaseImageGeometry& geometry);

/// An image over memory of the caller's: `data` is element (0, 0, 0, 0, 0), `strides` are in elements, and `owner`
/// (may be null) is kept for as long as the image or a view of it lives. Nothing outside the elements is read or
/// written. Axes may lie in memory in any order and with gaps, but must nest: each stride spans all that the axes of
/// smaller strides reach. A stride of an axis of size 0 or 1 is not looked at. Throws ORLIXImageException for several
/// element types or none, strides that do not nest (elements would overlap), an extent that overflows, a pointer that
/// is null or not aligned to the element; an image without elements is not checked beyond its type.
ORLIXIMAGE_API ImagePtr wrapImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                                  boost::shared_ptr<void> owner);
/// The same with a distance along every axis, x among them, each of which may be negative: an image backwards, every
/// other column, an axis in place of another. They nest by their magnitudes. Operators gather and scatter rows whose
/// pixels don't lie side by side, some at a time, and give the same values; where speed matters, rows are better kept
/// together. Images over the same memory are one image to an operator, which may then work in place, only where they
/// show the same pixels at the same places: as input and output of one run, an image and its own mirror, say, are the
/// caller's mistake, as is any other overlap.
ORLIXIMAGE_API ImagePtr wrapImage(const BaseImageGeometry& geometry, void* data, const ElementStrides& strides,
                                  boost::shared_ptr<void> owner);
/// The same over memory that is only read, so elements may share places: a stride may be 0, which shows the same
/// elements all along its axis, or windows may overlap.
ORLIXIMAGE_API ImageConstPtr wrapConstImage(const BaseImageGeometry& geometry, const void* data,
                                            const ElementStrides& strides, boost::shared_ptr<void> owner);

/// Distances along all axes, in elements. Of time step t along x, y, z and c; along t from step 0 to step 1, and 0
/// where the steps follow no one pattern. Those along axes of one element or none are 0, x's 1. Throws
/// ORLIXImageException for an image without host pixels, and for a step that isn't there where there is any.
ORLIXIMAGE_API ElementStrides elementStrides(const BaseImage& image, unsigned long t = 0);

namespace details {
/// First element of plan (z, c, t); throws ORLIXImageException for an index outside the image, a T that is not the
/// step's storage type, or an image without host pixels, and, unless `bAnyStrides`, where pixels of a row don't lie
/// side by side or rows not one behind the other.
ORLIXIMAGE_API void* checkedPlanData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t,
                                     bool bTypeMatches, bool bAnyStrides);
} // namespace details

/// First element of plan (z, c, t). Rows lie `rowPitch(image, t)` elements apart. The pointer is valid as long as the
/// image. Throws ORLIXImageException for an index outside the image, a T that is not the storage type, and an image
/// whose pixels or rows don't follow one another forwards: see stridedPlanData.
template <class T>
T* planData(BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<T*>(details::checkedPlanData(image, z, c, t, bMatches, false));
}
template <class T>
const T* planData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<const T*>(details::checkedPlanData(image, z, c, t, bMatches, false));
}

/// The same for any image: pixel (x, y) lies `x * strides.x + y * strides.y` elements from there, where strides are
/// `elementStrides(image, t)`.
template <class T>
T* stridedPlanData(BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<T*>(details::checkedPlanData(image, z, c, t, bMatches, true));
}
template <class T>
const T* stridedPlanData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<const T*>(details::checkedPlanData(image, z, c, t, bMatches, true));
}

/// Elements from a row to the next in time step t, one of the image's; images that were joined may differ in it.
/// Throws ORLIXImageException as `planData` does where pixels or rows don't follow one another forwards.
ORLIXIMAGE_API unsigned long rowPitch(const BaseImage& image, unsigned long t = 0);

/// First element of row `firstLine` of plan (z, c, t), for the seven storage types, whose others follow by
/// `image.getPixelStride(t)`. No bounds are checked.
template <class T>
T* extractBufferFromImage(BaseImage& image, unsigned long firstLine, unsigned long z, unsigned long c, unsigned long t)
{
    return reinterpret_cast<T*>(image.accessRow(firstLine, z, c, t));
}
template <class T>
const T* extractBufferFromConstImage(const BaseImage& image, unsigned long firstLine, unsigned long z, unsigned long c,
                                     unsigned long t)
{
    return reinterpret_cast<const T*>(image.accessRow(firstLine, z, c, t));
}

} // namespace orlix::image
