// Reading ImageJ's lines of "key=value".
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJMetadata.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"

#include <boost/algorithm/string/trim.hpp>

#include <cmath>
#include <map>

namespace orlix::image::io {

namespace {

using Lines = std::map<std::string, std::string, std::less<>>;

Lines linesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (const auto equals = line.find('='); equals != line.npos) {
            lines.emplace(line.substr(0, equals), boost::trim_copy(std::string(line.substr(equals + 1))));
        }
    }
    return lines;
}

std::string valueOf(const Lines& lines, std::string_view key)
{
    const auto found = lines.find(key);
    return found == lines.end() ? std::string() : found->second;
}

[[noreturn]] void refuse(const PageFacts& facts, const std::string& reason)
{
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eBadDescription, facts.file, "ImageJ", reason);
}

unsigned long countOf(const Lines& lines, std::string_view key, const PageFacts& facts)
{
    const std::string value = valueOf(lines, key);
    if (value.empty()) {
        return 1;
    }
    const auto count = numberFrom<unsigned long>(value);
    if (!count || *count == 0) {
        refuse(facts, std::string(key) + " must be a whole number above 0, but is \"" + value + "\"");
    }
    return *count;
}

// ImageJ spells characters outside ASCII as \u00B5 and so on; old versions wrote a bare Latin-1 micro sign.
std::string unescaped(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned code = static_cast<unsigned char>(text[i]);
        if (text.compare(i, 2, "\\u") == 0 && i + 6 <= text.size()) {
            const auto [end, error] = std::from_chars(text.data() + i + 2, text.data() + i + 6, code, 16);
            if (error == std::errc() && end == text.data() + i + 6) {
                i += 5;
            }
        } else if (code == 0xb5 && !result.empty() && result.back() == '\xc2') {
            result += '\xb5'; // UTF-8 already
            continue;
        } else if (code >= 0x80 && code != 0xb5) {
            result += text[i];
            continue;
        }
        if (code < 0x80) {
            result += static_cast<char>(code);
        } else if (code < 0x800) {
            result += static_cast<char>(0xc0 | (code >> 6));
            result += static_cast<char>(0x80 | (code & 0x3f));
        } else {
            result += static_cast<char>(0xe0 | (code >> 12));
            result += static_cast<char>(0x80 | ((code >> 6) & 0x3f));
            result += static_cast<char>(0x80 | (code & 0x3f));
        }
    }
    return result;
}

CalibrationPtr calibrationFrom(const Lines& lines, const Resolution& resolution, bool b3d, std::string& ignoredUnits)
{
    std::string unit = unescaped(valueOf(lines, "unit"));
    if (unit.empty() && !resolution.unit.empty()) {
        if (!calibrationOf(resolution)) {
            return nullptr;
        }
        unit = resolution.unit;
    }
    // ImageJ leaves out what is 1.
    const float sizeX = resolution.perUnitX > 0 ? static_cast<float>(1 / resolution.perUnitX) : 1.f;
    const float sizeY = resolution.perUnitY > 0 ? static_cast<float>(1 / resolution.perUnitY) : 1.f;
    const auto spacing = numberFrom<float>(valueOf(lines, "spacing"));
    const float sizeZ = spacing && *spacing != 0 ? std::abs(*spacing) : 1.f;
    unit = unit.empty() || unit == "pixel" || unit == "pixels" ? "px" : unit;
    const auto unitAlong = [&](std::string_view key) {
        const std::string own = unescaped(valueOf(lines, key));
        return own.empty() ? unit : own;
    };
    const UnitFactors factors = unitFactors(unit, unitAlong("yunit"), b3d ? unitAlong("zunit") : unit);
    ignoredUnits = factors.ignored;
    if (!factors.y || (unit == "px" && sizeX == 1 && sizeY == 1 && (!b3d || sizeZ == 1))) {
        return nullptr;
    }
    const auto converted = [](float size, double factor) { return static_cast<float>(size * factor); };
    return calibrationOf(unit, sizeX, converted(sizeY, *factors.y),
                         b3d && factors.z ? std::optional(converted(sizeZ, *factors.z)) : std::nullopt);
}

// A line through the values, c0 + c1 * v, is ImageJ's way to keep signed samples of 16 bits.
bool isSignShifted(const Lines& lines, const eImageBufferType& type)
{
    return type == eImageBufferType::UInt16 && valueOf(lines, "cf") == "0" &&
           numberFrom<double>(valueOf(lines, "c0")) == -32768. && numberFrom<double>(valueOf(lines, "c1")) == 1.;
}

// Page i of c, z, t with c fastest.
std::vector<PagePlace> placesOf(unsigned long sizeC, unsigned long sizeZ, unsigned long sizeT, unsigned long perPage)
{
    std::vector<PagePlace> places;
    for (unsigned long t = 0; t < sizeT; ++t) {
        for (unsigned long z = 0; z < sizeZ; ++z) {
            for (unsigned long c = 0; c < sizeC; ++c) {
                places.push_back({places.size(), z, c * perPage, t});
            }
        }
    }
    return places;
}

} // namespace

bool isImageJDescription(std::string_view text)
{
    return text.starts_with("ImageJ=");
}

ImageMetadata metadataOfImageJ(std::string_view text, const PageFacts& facts, const Resolution& resolution)
{
    const Lines lines = linesOf(text);
    const unsigned long images = countOf(lines, "images", facts);
    const unsigned long sizeC = countOf(lines, "channels", facts);
    const unsigned long sizeT = countOf(lines, "frames", facts);
    unsigned long sizeZ = countOf(lines, "slices", facts);
    if (sizeC == 1 && sizeZ == 1 && sizeT == 1) {
        sizeZ = images;
    }
    unsigned long plans = 0;
    if (__builtin_mul_overflow(sizeC, sizeZ, &plans) || __builtin_mul_overflow(plans, sizeT, &plans) ||
        plans != images) {
        refuse(facts, "channels, slices and frames (" + std::to_string(sizeC) + ", " + std::to_string(sizeZ) + ", " +
                          std::to_string(sizeT) + ") must multiply to images (" + std::to_string(images) + ")");
    }
    if (images != facts.pages && facts.pages != 1) {
        refuse(facts, "it tells of " + std::to_string(images) + " images, but the file has " +
                          std::to_string(facts.pages) + " pages");
    }

    ImageMetadata metadata;
    metadata.kind = "ImageJ";
    metadata.bSignShifted = isSignShifted(lines, facts.type);
    metadata.type = metadata.bSignShifted ? eImageBufferType(eImageBufferType::Int16) : facts.type;
    if (__builtin_mul_overflow(sizeC, facts.channels, &metadata.sizeC)) {
        refuse(facts, "it tells of too many channels (" + std::to_string(sizeC) + ")");
    }
    if (sizeZ > 1) {
        metadata.volume.init3d(sizeZ);
    }
    if (sizeT > 1) {
        metadata.temporal.initSequence(sizeT);
    }
    metadata.calibration = calibrationFrom(lines, resolution, sizeZ > 1, metadata.ignoredUnits);
    metadata.bRawStack = images != facts.pages;
    if (!metadata.bRawStack) {
        metadata.places = placesOf(sizeC, sizeZ, sizeT, facts.channels);
    }
    return metadata;
}

} // namespace orlix::image::io
