// Texts and pixel sizes of PNG files.
#include "ORLIXIPL/ORLIXImageIO/Png/PngText.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <string_view>

namespace orlix::image::io {

namespace {

constexpr char g_keyword[] = "OME-XML";

bool toPerMetre(double pixelSize, double metres, png_uint_32& perMetre)
{
    const double value = std::round(1 / (pixelSize * metres));
    if (!(value >= 1 && value <= 0x7fffffff)) {
        return false;
    }
    perMetre = static_cast<png_uint_32>(value);
    return true;
}

bool isOfType(const PngChunk& chunk, const char* type)
{
    return std::memcmp(chunk.type, type, sizeof chunk.type) == 0;
}

[[noreturn]] void raiseDamaged(const ByteSource& source, const std::string& what)
{
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eDamagedPng, source.getName(),
                                "its OME-XML text " + what);
}

/// Content and type have a check sum behind them.
std::string contentOf(ByteSource& source, const PngChunk& chunk)
{
    std::string content(chunk.bytes, '\0');
    png_byte told[4] = {};
    if (source.read(chunk.start, content.data(), chunk.bytes) != chunk.bytes ||
        source.read(chunk.start + chunk.bytes, told, sizeof told) != sizeof told) {
        raiseDamaged(source, "ends early");
    }
    unsigned long found = crc32_z(crc32(0, nullptr, 0), chunk.type, sizeof chunk.type);
    found = crc32_z(found, reinterpret_cast<const Bytef*>(content.data()), content.size());
    if (found != png_get_uint_32(told)) {
        raiseDamaged(source, "has a wrong check sum");
    }
    return content;
}

std::string unfolded(ByteSource& source, std::string_view content)
{
    // Descriptions of one plan have some kilobytes.
    constexpr unsigned long g_mostBytes = 1ul << 20;
    std::string text(g_mostBytes, '\0');
    uLongf bytes = text.size();
    const int result = uncompress(reinterpret_cast<Bytef*>(text.data()), &bytes,
                                  reinterpret_cast<const Bytef*>(content.data()), content.size());
    if (result == Z_MEM_ERROR) {
        throw std::bad_alloc();
    }
    if (result != Z_OK) {
        raiseDamaged(source,
                     result == Z_BUF_ERROR ? "ends early or unfolds to more than a mebibyte" : "can't be unfolded");
    }
    text.resize(bytes);
    return text;
}

/// What stands behind the next null character.
std::string_view behindNull(ByteSource& source, std::string_view content)
{
    const std::size_t end = content.find('\0');
    if (end == content.npos) {
        raiseDamaged(source, "ends early");
    }
    return content.substr(end + 1);
}

} // namespace

bool holdsOme(ByteSource& source, const PngChunk& chunk) noexcept
{
    char keyword[sizeof g_keyword];
    return (isOfType(chunk, "tEXt") || isOfType(chunk, "zTXt") || isOfType(chunk, "iTXt")) &&
           chunk.bytes >= sizeof keyword && source.read(chunk.start, keyword, sizeof keyword) == sizeof keyword &&
           std::memcmp(keyword, g_keyword, sizeof keyword) == 0;
}

std::string omeTextOf(ByteSource& source, const PngChunk& chunk)
{
    if (chunk.bytes == 0) {
        return {};
    }
    const std::string content = contentOf(source, chunk);
    std::string_view rest = behindNull(source, content);
    bool bFolded = isOfType(chunk, "zTXt");
    if (bFolded) {
        rest.remove_prefix(std::min<std::size_t>(rest.size(), 1)); // method
    } else if (isOfType(chunk, "iTXt")) {
        bFolded = rest.starts_with('\1');
        rest.remove_prefix(std::min<std::size_t>(rest.size(), 2)); // whether, and the method
        rest = behindNull(source, behindNull(source, rest));       // language, translated keyword
    }
    return bFolded ? unfolded(source, rest) : std::string(rest);
}

Resolution resolutionOf(png_structp png, png_infop info)
{
    png_uint_32 x = 0, y = 0;
    int unit = PNG_RESOLUTION_UNKNOWN;
    if (png_get_pHYs(png, info, &x, &y, &unit) == 0 || unit != PNG_RESOLUTION_METER) {
        return {};
    }
    return {static_cast<double>(x), static_cast<double>(y), "m"};
}

void setOmeText(png_structp png, png_infop info, const char* text, std::size_t length)
{
    char keyword[sizeof g_keyword];
    std::memcpy(keyword, g_keyword, sizeof g_keyword);
    png_text entry = {};
    entry.compression = PNG_ITXT_COMPRESSION_NONE;
    entry.key = keyword;
    entry.text = const_cast<char*>(text); // libpng copies it
    entry.itxt_length = length;
    png_set_text(png, info, &entry, 1);
}

void setResolution(png_structp png, png_infop info, png_uint_32 perMetreX, png_uint_32 perMetreY)
{
    png_set_pHYs(png, info, perMetreX, perMetreY, PNG_RESOLUTION_METER);
}

bool perMetreOf(const CalibrationPtr& calibration, png_uint_32& x, png_uint_32& y)
{
    const auto metres = calibration ? metresIn(calibration->getUnit()) : std::nullopt;
    return metres && toPerMetre(calibration->getPixelSizeX(), *metres, x) &&
           toPerMetre(calibration->getPixelSizeY(), *metres, y);
}

} // namespace orlix::image::io
