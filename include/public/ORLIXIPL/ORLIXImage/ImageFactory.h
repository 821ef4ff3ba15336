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

namespace details {
/// First element of plan (z, c, t); throws ORLIXImageException for an index outside the image, a T that is not the
/// step's storage type, or an image without host pixels.
ORLIXIMAGE_API void* checkedPlanData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t,
                                     bool bTypeMatches);
} // namespace details

/// First element of plan (z, c, t). Rows lie `rowPitch(image, t)` elements apart. The pointer is valid as long as the
/// image. Throws ORLIXImageException for an index outside the image or a T that is not the storage type.
template <class T>
T* planData(BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<T*>(details::checkedPlanData(image, z, c, t, bMatches));
}
template <class T>
const T* planData(const BaseImage& image, unsigned long z, unsigned long c, unsigned long t)
{
    const bool bMatches = t < image.getSizeT() && isStorageType<T>(image.getBufferType(t));
    return static_cast<const T*>(details::checkedPlanData(image, z, c, t, bMatches));
}

/// Elements from a row to the next in time step t, one of the image's; images that were joined may differ in it.
ORLIXIMAGE_API unsigned long rowPitch(const BaseImage& image, unsigned long t = 0);

/// First element of row `firstLine` of plan (z, c, t), for the seven storage types. No bounds are checked.
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
