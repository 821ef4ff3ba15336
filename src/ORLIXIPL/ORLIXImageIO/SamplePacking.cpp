// Interleaving channels and packing bits.
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"

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

template <class T>
void interleave(const std::byte* from, unsigned long count, unsigned long step, std::byte* to)
{
    for (unsigned long x = 0; x < count; ++x) {
        std::memcpy(to + x * step * sizeof(T), from + x * sizeof(T), sizeof(T));
    }
}

void packRow(const std::byte* from, unsigned long count, unsigned long elementBytes, unsigned long step, std::byte* to)
{
    if (step == 1) {
        std::memcpy(to, from, count * elementBytes);
    } else if (elementBytes == 1) {
        interleave<std::uint8_t>(from, count, step, to);
    } else if (elementBytes == 2) {
        interleave<std::uint16_t>(from, count, step, to);
    } else {
        interleave<std::uint32_t>(from, count, step, to);
    }
}

} // namespace

unsigned long packedRowBytes(const eImageBufferType& type, unsigned long width, unsigned long samples)
{
    return type == eImageBufferType::eBufferBinary ? (width + 7) / 8 : width * samples * elementSize(type);
}

void packBlock(const BaseImage& image, const PageBlock& block, std::byte* target, unsigned long rowBytes)
{
    const unsigned long elementBytes = elementSize(image.getBufferType());
    for (unsigned long line = 0; line < block.height; ++line) {
        for (unsigned long sample = 0; sample < block.samples; ++sample) {
            const std::byte* const from =
                image.accessRow(block.y + line, block.z, block.c + sample, block.t) + block.x * elementBytes;
            std::byte* const to = target + line * rowBytes + sample * elementBytes;
            if (image.getBufferType() == eImageBufferType::eBufferBinary) {
                packBits(from, block.width, to);
            } else {
                packRow(from, block.width, elementBytes, block.samples, to);
            }
        }
    }
}

} // namespace orlix::image::io
