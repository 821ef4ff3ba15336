// A small PNG writer of the tests' own: stored blocks, filter 0, any kind of pixel, right or wrong.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>

namespace orlix::image::io::test {

struct TinyPng
{
    std::uint32_t width = 1, height = 1;
    unsigned bits = 8;
    unsigned colorType = 0; ///< 0 grey, 2 RGB, 3 palette, 4 grey and alpha, 6 RGB and alpha
    bool bInterlaced = false;
    std::string palette = {};       ///< content of PLTE; empty for none
    std::string transparency = {};  ///< content of tRNS; empty for none
    std::string furtherChunks = {}; ///< whole chunks to stand before the pixels
};

inline std::string bigEndian(unsigned bytes, std::uint64_t value)
{
    std::string text;
    while (bytes-- > 0) {
        text += static_cast<char>(value >> (8 * bytes));
    }
    return text;
}

inline std::uint32_t crcOf(const std::string& data)
{
    std::uint32_t crc = 0xffffffffu;
    for (const char c : data) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) {
            crc = crc & 1 ? crc >> 1 ^ 0xedb88320u : crc >> 1;
        }
    }
    return ~crc;
}

inline std::string pngChunk(const std::string& type, const std::string& content)
{
    return bigEndian(4, content.size()) + type + content + bigEndian(4, crcOf(type + content));
}

/// A zlib stream of stored blocks.
inline std::string stored(const std::string& data)
{
    std::string stream = "\x78\x01";
    std::uint32_t a = 1, b = 0;
    for (const char c : data) {
        a = (a + static_cast<unsigned char>(c)) % 65521;
        b = (b + a) % 65521;
    }
    std::size_t at = 0;
    do {
        const std::size_t size = std::min<std::size_t>(data.size() - at, 0xffff);
        stream += at + size == data.size() ? '\1' : '\0';
        for (const std::size_t value : {size, ~size}) {
            stream += static_cast<char>(value);
            stream += static_cast<char>(value >> 8);
        }
        stream += data.substr(at, size);
        at += size;
    } while (at < data.size());
    return stream + bigEndian(4, b << 16 | a);
}

/// `sampleAt(x, y, sample)` gives each sample.
inline std::string pngOf(const TinyPng& png,
                         const std::function<unsigned(std::uint32_t, std::uint32_t, unsigned)>& sampleAt)
{
    const unsigned samples = png.colorType == 2 ? 3 : png.colorType == 4 ? 2 : png.colorType == 6 ? 4 : 1;
    std::string raw;
    const auto addPass = [&](std::uint32_t x0, std::uint32_t y0, std::uint32_t dx, std::uint32_t dy) {
        for (std::uint32_t y = y0; y < png.height && x0 < png.width; y += dy) {
            raw += '\0'; // no filter
            unsigned filled = 8;
            for (std::uint32_t x = x0; x < png.width; x += dx) {
                for (unsigned s = 0; s < samples; ++s) {
                    const unsigned value = sampleAt(x, y, s);
                    if (png.bits >= 8) {
                        raw += bigEndian(png.bits / 8, value);
                        continue;
                    }
                    if (filled == 8) {
                        raw += '\0';
                        filled = 0;
                    }
                    filled += png.bits;
                    raw.back() = static_cast<char>(raw.back() | value << (8 - filled));
                }
            }
        }
    };
    if (png.bInterlaced) {
        addPass(0, 0, 8, 8);
        addPass(4, 0, 8, 8);
        addPass(0, 4, 4, 8);
        addPass(2, 0, 4, 4);
        addPass(0, 2, 2, 4);
        addPass(1, 0, 2, 2);
        addPass(0, 1, 1, 2);
    } else {
        addPass(0, 0, 1, 1);
    }
    std::string file = "\x89PNG\r\n\x1a\n";
    file += pngChunk("IHDR", bigEndian(4, png.width) + bigEndian(4, png.height) + bigEndian(1, png.bits) +
                                 bigEndian(1, png.colorType) + std::string(2, '\0') + bigEndian(1, png.bInterlaced));
    if (!png.palette.empty()) {
        file += pngChunk("PLTE", png.palette);
    }
    if (!png.transparency.empty()) {
        file += pngChunk("tRNS", png.transparency);
    }
    return file + png.furtherChunks + pngChunk("IDAT", stored(raw)) + pngChunk("IEND", "");
}

} // namespace orlix::image::io::test
