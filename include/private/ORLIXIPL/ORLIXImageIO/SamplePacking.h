// Turning rows of elements into the bytes of a strip or tile before compression.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <cstddef>

namespace orlix::image::io {

/// A rectangle of a page; its channels are [c, c + samples) of plan z at time step t.
struct PageBlock
{
    unsigned long x, y, width, height;
    unsigned long z, c, t;
    unsigned long samples;
};

/// Bytes of a row of `width` pixels: packed bits for Binary, whole samples otherwise.
unsigned long packedRowBytes(const eImageBufferType& type, unsigned long width, unsigned long samples);

/// Writes the block's rows `rowBytes` apart. Bytes behind a row's pixels are left as they are.
void packBlock(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes);

} // namespace orlix::image::io
