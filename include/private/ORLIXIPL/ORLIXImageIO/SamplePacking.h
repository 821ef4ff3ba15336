// Turning rows of elements into the bytes of a strip or tile before compression.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
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

struct eSamplePacking
{
    enum domain {
        eAsTheyAre = 0, ///< but Binary as bits
        eForImageJ = 1  ///< Binary as bytes of 0 and 255; Int16 plus 32768, without a sign
    };
    ORLIX_ENUMERATION(eSamplePacking, eAsTheyAre);
};

/// Do rows of time step t touch, and their pixels?
bool hasDensePlans(const BaseImage& image, unsigned long t);

/// Are samples the very bytes of the elements?
bool isCopied(const eImageBufferType& type, const eSamplePacking& packing);

/// Bytes of a row of `width` pixels: packed bits for Binary, whole samples otherwise.
unsigned long packedRowBytes(const eImageBufferType& type, unsigned long width, unsigned long samples,
                             const eSamplePacking& packing = {});

/// Writes the block's rows `rowBytes` apart. Bytes behind a row's pixels are left as they are.
void packBlock(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes,
               const eSamplePacking& packing = {});

/// Turns signed elements of 16 bits into unsigned ones that are higher by 32768, and back.
void shiftSign16(std::byte* first, unsigned long bytes);

} // namespace orlix::image::io
