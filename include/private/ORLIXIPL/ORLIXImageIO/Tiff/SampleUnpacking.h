// Turning a row of decoded samples into a row of elements.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Tiff/PixelForm.h"

#include <array>
#include <cstddef>
#include <vector>

namespace orlix::image::io {

/// The colour map of a page as 8-bit red, green and blue; empty for a page without one.
using Palette = std::array<std::vector<unsigned char>, 3>;

/// Of the current page of `tiff`. Maps of 16 bits keep their high byte; where no entry is above 255, the values are
/// meant as bytes.
Palette paletteOf(TIFF* tiff, unsigned bits);

/// One row of a strip or tile in memory.
struct SampleRow
{
    const std::byte* first;
    unsigned step;             ///< samples from a pixel to the next
    unsigned bits;             ///< of a sample; below 8 they are packed, the first in the high bits
    unsigned long count;       ///< pixels that are wanted
    unsigned long skipped = 0; ///< pixels before the first of them
};

/// Writes `row.count` elements of one channel to `target`. `sample` is the channel's sample in the row; `channel` is
/// the channel in the page.
void unpackRow(const SampleRow& row, unsigned sample, unsigned long channel, const PixelForm& form,
               const Palette& palette, std::byte* target);

} // namespace orlix::image::io
