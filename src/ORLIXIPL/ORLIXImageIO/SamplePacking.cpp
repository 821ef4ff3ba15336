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

void packMask(const std::byte* from, unsigned long count, std::byte* to)
{
    std::transform(from, from + count, to, [](std::byte b) { return std::byte(b != std::byte(0) ? 255 : 0); });
}

} // namespace

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
    const unsigned long elementBytes = elementSize(type);
    for (unsigned long line = 0; line < block.height; ++line) {
        for (unsigned long sample = 0; sample < block.samples; ++sample) {
            const std::byte* const from =
                image.accessRow(block.y + line, block.z, block.c + sample, block.t) + block.x * elementBytes;
            std::byte* const to = target + line * rowBytes + sample * elementBytes;
            if (type != eImageBufferType::eBufferBinary) {
                packRow(from, block.width, elementBytes, block.samples, to);
            } else if (packing == eSamplePacking::eAsTheyAre) {
                packBits(from, block.width, to);
            } else {
                packMask(from, block.width, to);
            }
        }
        if (type == eImageBufferType::Int16 && packing == eSamplePacking::eForImageJ) {
            shiftSign16(target + line * rowBytes, block.width * block.samples * elementBytes);
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
