// Interleaving channels and packing bits.
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/PixelBlock.h"
#include "ORLIXIPL/ORLIXImage/PixelRun.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace orlix::image::io {

namespace {

void packBits(const std::byte* from, unsigned long count, std::byte* to)
{
    for (unsigned long x = 0; x < count; x += 8) {
        unsigned bits = 0;
        for (unsigned long i = 0; i < std::min(count - x, 8ul); ++i) {
            bits |= from[x + i] != std::byte(0) ? 0x80u >> i : 0u;
        }
        to[x / 8] = static_cast<std::byte>(bits);
    }
}

void packMask(const std::byte* from, unsigned long count, std::byte* to)
{
    std::transform(from, from + count, to, [](std::byte b) { return std::byte(b != std::byte(0) ? 255 : 0); });
}

/// Of Binary.
void packBinary(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes,
                const eSamplePacking& packing)
{
    RowReader reader;
    for (unsigned long line = 0; line < block.height; ++line) {
        const std::byte* const from =
            reader.read(image, block.x, block.width, block.y + line, block.z, block.c, block.t);
        const auto pack = packing == eSamplePacking::eAsTheyAre ? packBits : packMask;
        pack(from, block.width, target + line * rowBytes);
    }
}

/// Elements as they are, the samples of a pixel side by side.
void packElements(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes)
{
    const unsigned long elementBytes = elementSize(image.getBufferType());
    const auto size = static_cast<long>(elementBytes);
    const long stride = image.getPixelStride(block.t);
    const auto rowAt = [&](unsigned long line, unsigned long sample) {
        return image.accessRow(block.y + line, block.z, block.c + sample, block.t) +
               static_cast<long>(block.x) * size * stride;
    };
    if (stride != 1) { // line by line it would read every cache line of an image across its rows again for each line
        const std::byte* const first = rowAt(0, 0);
        const ByteSteps to = {size, size * static_cast<long>(block.samples), static_cast<long>(rowBytes)};
        const ByteSteps from = {block.samples > 1 ? rowAt(0, 1) - first : 0, size * stride,
                                block.height > 1 ? rowAt(1, 0) - first : 0};
        copyBlock(target, to, first, from, {block.samples, block.width, block.height}, elementBytes);
        return;
    }
    for (unsigned long line = 0; line < block.height; ++line) {
        for (unsigned long sample = 0; sample < block.samples; ++sample) {
            copyRun(target + line * rowBytes + sample * elementBytes, static_cast<long>(block.samples),
                    rowAt(line, sample), 1, block.width, elementBytes);
        }
    }
}

} // namespace

bool hasDensePlans(const BaseImage& image, unsigned long t)
{
    const ElementStrides strides = elementStrides(image, t);
    return strides.x == 1 && (image.getSizeY() == 1 || strides.y == static_cast<long>(image.getSizeX()));
}

bool isCopied(const eImageBufferType& type, const eSamplePacking& packing)
{
    return type != eImageBufferType::eBufferBinary &&
           (type != eImageBufferType::Int16 || packing == eSamplePacking::eAsTheyAre);
}

unsigned long packedRowBytes(const eImageBufferType& type, unsigned long width, unsigned long samples,
                             const eSamplePacking& packing)
{
    return type == eImageBufferType::eBufferBinary && packing == eSamplePacking::eAsTheyAre
               ? (width + 7) / 8
               : width * samples * elementSize(type);
}

void packBlock(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes,
               const eSamplePacking& packing)
{
    const eImageBufferType& type = image.getBufferType();
    if (type == eImageBufferType::eBufferBinary) {
        packBinary(image, block, target, rowBytes, packing);
        return;
    }
    packElements(image, block, target, rowBytes);
    if (type == eImageBufferType::Int16 && packing == eSamplePacking::eForImageJ) {
        for (unsigned long line = 0; line < block.height; ++line) {
            shiftSign16(target + line * rowBytes, block.width * block.samples * elementSize(type));
        }
    }
}

void shiftSign16(std::byte* first, unsigned long bytes)
{
    for (unsigned long i = 0; i < bytes; i += sizeof(std::uint16_t)) {
        std::uint16_t value = 0;
        std::memcpy(&value, first + i, sizeof value);
        value ^= 0x8000;
        std::memcpy(first + i, &value, sizeof value);
    }
}

} // namespace orlix::image::io
