// Pixels that follow one another by any distance.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <cstddef>
#include <vector>

namespace orlix::image {

/// Copies `count` elements of `elementBytes`, 1, 2 or 4: from every `fromStride`-th element on from `from` to every
/// `toStride`-th on from `to`, either of which may be negative. Source and destination share no memory.
ORLIXIMAGE_API void copyRun(std::byte* to, long toStride, const std::byte* from, long fromStride, unsigned long count,
                            unsigned long elementBytes);

/// Reads rows of images as pixels side by side, whatever their strides. For one thread.
class ORLIXIMAGE_API RowReader
{
public:
    /// Pixels [first, first + count) of row y of plan (z, c, t): the image's own where they lie side by side, else a
    /// copy, which holds until the next call. No bounds are checked.
    const std::byte* read(const BaseImage& image, unsigned long first, unsigned long count, unsigned long y,
                          unsigned long z, unsigned long c, unsigned long t)
    {
        const std::byte* const row = image.accessRow(y, z, c, t);
        const unsigned long elementBytes = elementSize(image.getBufferType(t));
        const long stride = image.getPixelStride(t);
        if (stride == 1) {
            return row + first * elementBytes;
        }
        return gather(row + static_cast<long>(first * elementBytes) * stride, stride, count, elementBytes);
    }
    /// The whole row.
    const std::byte* read(const BaseImage& image, unsigned long y, unsigned long z, unsigned long c, unsigned long t)
    {
        return read(image, 0, image.getSizeX(), y, z, c, t);
    }

private:
    const std::byte* gather(const std::byte* from, long stride, unsigned long count, unsigned long elementBytes);

    std::vector<std::byte> m_row;
};

} // namespace orlix::image
