// Writing ImageJ's lines of "key=value".
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJWriter.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIXIPL/ORLIXImage/PixelRun.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_mostCompositeChannels = 7; // that ImageJ overlays

void appendCode(std::string& text, unsigned code)
{
    constexpr char digits[] = "0123456789ABCDEF";
    text += "\\u";
    for (const int shift : {12, 8, 4, 0}) {
        text += digits[code >> shift & 15];
    }
}

// All but printable ASCII as \u00B5 and so on, in UTF-16. Bytes that are no UTF-8 are taken for Latin-1.
std::string escaped(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(at < text.size() ? text[at] : 0); };
        unsigned code = byteAt(i);
        if (code >= ' ' && code <= '~' && code != '\\') {
            result += text[i];
            continue;
        }
        const std::size_t further = code >= 0xf0 ? 3 : code >= 0xe0 ? 2 : code >= 0xc0 ? 1 : 0;
        unsigned whole = code & (0x3fu >> further);
        std::size_t found = 0;
        for (; found < further && (byteAt(i + found + 1) & 0xc0) == 0x80; ++found) {
            whole = whole << 6 | (byteAt(i + found + 1) & 0x3fu);
        }
        if (further > 0 && found == further) {
            code = whole;
            i += further;
        }
        if (code >= 0x10000) {
            appendCode(result, 0xd800 + ((code - 0x10000) >> 10 & 0x3ff));
            code = 0xdc00 + ((code - 0x10000) & 0x3ff);
        }
        appendCode(result, code);
    }
    return result;
}

struct Range
{
    float low = 0, high = 0;
};

// Of finite values. 16-bit values are floats without loss.
template <class T>
void widen(Range& range, bool& bAny, const std::byte* row, unsigned long count)
{
    for (unsigned long x = 0; x < count; ++x) {
        T element;
        std::memcpy(&element, row + x * sizeof(T), sizeof(T));
        const auto value = static_cast<float>(element);
        if (std::isfinite(value)) {
            range = bAny ? Range{std::min(range.low, value), std::max(range.high, value)} : Range{value, value};
            bAny = true;
        }
    }
}

Range rangeOf(const BaseImage& image)
{
    Range range;
    bool bAny = false;
    RowReader reader;
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < image.getSizeY(); ++y) {
                    visitStorageType(image.getBufferType(), [&]<class T>() {
                        widen<T>(range, bAny, reader.read(image, y, z, c, t), image.getSizeX());
                    });
                }
            }
        }
    }
    return range;
}

} // namespace

std::optional<Resolution> imageJResolutionOf(const CalibrationPtr& calibration)
{
    if (!calibration || !isPixelSize(calibration->getPixelSizeX()) || !isPixelSize(calibration->getPixelSizeY())) {
        return std::nullopt;
    }
    const std::string unit = omeUnitOf(calibration->getUnit());
    return Resolution{1. / calibration->getPixelSizeX(), 1. / calibration->getPixelSizeY(),
                      unit == "in"   ? "inch"
                      : unit == "cm" ? "cm"
                                     : ""};
}

std::string imageJDescriptionOf(const BaseImage& image, unsigned long samples)
{
    std::string text = "ImageJ=1.53t\n"; // which knows all lines below
    const auto add = [&](const char* key, const std::string& value) {
        text.append(key).append("=").append(value).append("\n");
    };
    const auto addCount = [&](const char* key, unsigned long count) {
        if (count > 1) {
            add(key, std::to_string(count));
        }
    };
    const unsigned long channels = image.getSizeC() / samples;
    const unsigned long images = channels * image.getSizeZ() * image.getSizeT();
    addCount("images", images);
    addCount("channels", channels);
    addCount("slices", image.getSizeZ());
    addCount("frames", image.getSizeT());
    if (channels > 1 || image.getSizeT() > 1) {
        add("hyperstack", "true");
    }
    if (channels > 1) {
        add("mode", channels <= g_mostCompositeChannels ? "composite" : "grayscale");
    }
    const CalibrationPtr calibration = image.getGeometricCalibration();
    if (imageJResolutionOf(calibration) && !calibration->getUnit().empty()) {
        const std::string& unit = calibration->getUnit();
        add("unit", omeUnitOf(unit) == "pixel" ? "pixel" : escaped(unit));
    }
    const bool bSigned = image.getBufferType() == eImageBufferType::Int16;
    if (bSigned) {
        text += "cf=0\nc0=-32768.0\nc1=1.0\nvunit=Gray Value\n";
    }
    if (images > 1) {
        if (calibration && calibration->is3d() && isPixelSize(calibration->getPixelSizeZ())) {
            add("spacing", numberText(calibration->getPixelSizeZ()));
        }
        add("loop", "false");
    }
    if (elementSize(image.getBufferType()) > 1) {
        const Range range = rangeOf(image);
        const float offset = bSigned ? 32768.f : 0.f;
        if (range.low < range.high) {
            add("min", numberText(range.low + offset));
            add("max", numberText(range.high + offset));
        }
    }
    return text;
}

} // namespace orlix::image::io
