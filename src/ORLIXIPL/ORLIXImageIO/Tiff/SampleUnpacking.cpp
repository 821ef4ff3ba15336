// Copying, spreading, inverting and mapping samples.
#include "ORLIXIPL/ORLIXImageIO/Tiff/SampleUnpacking.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace orlix::image::io {

namespace {

// Each value from 0 to 255 as eight bytes of 0 or 1, the high bit first in memory.
consteval std::array<std::array<std::byte, 8>, 256> makeBitTable()
{
    std::array<std::array<std::byte, 8>, 256> table{};
    for (unsigned value = 0; value < 256; ++value) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            table[value][bit] = static_cast<std::byte>(value >> (7 - bit) & 1);
        }
    }
    return table;
}

constexpr auto g_bitTable = makeBitTable();

template <class T, unsigned step>
void takeEach(const std::byte* from, unsigned long count, std::byte* target)
{
    for (unsigned long i = 0; i < count; ++i) {
        std::memcpy(target + i * sizeof(T), from + i * step * sizeof(T), sizeof(T));
    }
}

template <class T>
void takeEach(const std::byte* from, unsigned step, unsigned long count, std::byte* target)
{
    if (step == 3) {
        takeEach<T, 3>(from, count, target);
    } else if (step == 4) {
        takeEach<T, 4>(from, count, target);
    } else {
        for (unsigned long i = 0; i < count; ++i) {
            std::memcpy(target + i * sizeof(T), from + i * step * sizeof(T), sizeof(T));
        }
    }
}

template <class T>
void copySamples(const SampleRow& row, unsigned sample, bool bInverted, std::byte* target)
{
    const std::byte* const from = row.first + row.skipped * row.step * sizeof(T);
    if (row.step == 1) {
        std::memcpy(target, from, row.count * sizeof(T));
    } else {
        takeEach<T>(from + sample * sizeof(T), row.step, row.count, target);
    }
    if (bInverted) { // max - v for unsigned, -1 - v for signed integers
        for (unsigned long i = 0; i < row.count * sizeof(T); ++i) {
            target[i] = ~target[i];
        }
    }
}

unsigned packedSample(const SampleRow& row, unsigned long pixel, unsigned sample)
{
    const unsigned long bit = ((row.skipped + pixel) * row.step + sample) * row.bits;
    const unsigned shift = static_cast<unsigned>(8 - row.bits - bit % 8);
    return (std::to_integer<unsigned>(row.first[bit / 8]) >> shift) & ((1u << row.bits) - 1);
}

// What is skipped ends with a byte.
void spreadBits(const SampleRow& row, bool bInverted, std::byte* target)
{
    const std::byte* const from = row.first + row.skipped / 8;
    const unsigned flip = bInverted ? 255 : 0;
    for (unsigned long i = 0; i < row.count; i += 8) {
        const auto& bits = g_bitTable[std::to_integer<unsigned>(from[i / 8]) ^ flip];
        std::memcpy(target + i, bits.data(), std::min(row.count - i, 8ul));
    }
}

void spreadSamples(const SampleRow& row, unsigned sample, bool bBinary, bool bInverted, std::byte* target)
{
    const unsigned largest = (1u << row.bits) - 1;
    const unsigned factor = bBinary ? 1 : 255 / largest;
    for (unsigned long i = 0; i < row.count; ++i) {
        const unsigned value = packedSample(row, i, sample);
        target[i] = static_cast<std::byte>((bInverted ? largest - value : value) * factor);
    }
}

void mapSamples(const SampleRow& row, const std::vector<unsigned char>& map, std::byte* target)
{
    for (unsigned long i = 0; i < row.count; ++i) {
        unsigned long index = 0;
        if (row.bits < 8) {
            index = packedSample(row, i, 0);
        } else if (row.bits == 8) {
            index = std::to_integer<unsigned>(row.first[row.skipped + i]);
        } else {
            std::uint16_t wide = 0;
            std::memcpy(&wide, row.first + 2 * (row.skipped + i), sizeof wide);
            index = wide;
        }
        target[i] = static_cast<std::byte>(map[index]);
    }
}

} // namespace

Palette paletteOf(TIFF* tiff, unsigned bits)
{
    Palette palette;
    std::uint16_t* maps[3] = {};
    if (TIFFGetField(tiff, TIFFTAG_COLORMAP, &maps[0], &maps[1], &maps[2]) != 1) {
        return palette;
    }
    const std::size_t size = std::size_t(1) << bits;
    const auto isByte = [](std::uint16_t value) { return value < 256; };
    const bool bBytes =
        std::ranges::all_of(maps, [&](const std::uint16_t* map) { return std::all_of(map, map + size, isByte); });
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t entry = 0; entry < size; ++entry) {
            palette[i].push_back(static_cast<unsigned char>(bBytes ? maps[i][entry] : maps[i][entry] >> 8));
        }
    }
    return palette;
}

void unpackRow(const SampleRow& row, unsigned sample, unsigned long channel, const PixelForm& form,
               const Palette& palette, std::byte* target)
{
    const bool bInverted = channel < form.inverted;
    if (form.conversion == eSampleConversion::ePalette) {
        mapSamples(row, palette[channel], target);
    } else if (form.conversion == eSampleConversion::eSpread && row.bits == 1 && row.step == 1 &&
               row.skipped % 8 == 0) {
        spreadBits(row, bInverted, target);
    } else if (form.conversion == eSampleConversion::eSpread) {
        spreadSamples(row, sample, form.type == eImageBufferType::eBufferBinary, bInverted, target);
    } else if (row.bits == 8) {
        copySamples<std::uint8_t>(row, sample, bInverted, target);
    } else if (row.bits == 16) {
        copySamples<std::uint16_t>(row, sample, bInverted, target);
    } else {
        copySamples<std::uint32_t>(row, sample, bInverted, target);
    }
}

} // namespace orlix::image::io
