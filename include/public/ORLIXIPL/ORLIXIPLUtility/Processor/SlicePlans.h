// A volume and a strip of a slice as kernels of the slice operators take them.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"

#include <cstddef>

namespace orlix::imaproc::util {

/// The plans of a volume. `TByte` is `std::byte`, const where they are only read.
template <class TByte>
struct SlicePlans
{
    TByte* first;     ///< element (0, 0, 0)
    long pixelStride; ///< in elements, from a pixel of a row to the next
    long rowBytes;    ///< from a row to the next
    long planBytes;   ///< from a plan to the next
    unsigned long sizeX;
    unsigned long sizeY;
    unsigned long sizeZ;
    simd::eMemoryPlace place; ///< of the volume

    /// Of a host image with pixels, or without any.
    template <class TImage>
    static SlicePlans of(const TImage& volume)
    {
        const auto& layout = volume.getPixelLayout();
        return {layout.first,      layout.pixelStride, layout.rowBytes,   layout.planBytes,
                volume.getSizeX(), volume.getSizeY(),  volume.getSizeZ(), layout.place};
    }
    /// Pixel (x, y, z), of elements of `elementBytes`.
    ORLIX_SIMD_INLINE TByte* at(unsigned long x, unsigned long y, unsigned long z, unsigned long elementBytes) const
    {
        return first + static_cast<long>(z) * planBytes + static_cast<long>(y) * rowBytes +
               static_cast<long>(x * elementBytes) * pixelStride;
    }
};

/// Which slice, and which lines of it.
struct SliceStrip
{
    eAxis::domain axis;
    unsigned long index;
    unsigned long sizeX; ///< elements of a line
    unsigned long nbLines;
    unsigned long firstLine; ///< the number of the strip's first line in the slice
};

} // namespace orlix::imaproc::util
