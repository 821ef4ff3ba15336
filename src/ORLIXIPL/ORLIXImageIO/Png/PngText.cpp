// Texts and pixel sizes of PNG files.
#include "ORLIXIPL/ORLIXImageIO/Png/PngText.h"

#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"

#include <cmath>
#include <cstring>

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

} // namespace

std::string omeTextOf(png_structp png, png_infop info)
{
    png_textp texts = nullptr;
    int count = 0;
    png_get_text(png, info, &texts, &count);
    for (int i = 0; i < count; ++i) {
        if (texts[i].key && texts[i].text && std::strcmp(texts[i].key, g_keyword) == 0) {
            return texts[i].text;
        }
    }
    return {};
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
