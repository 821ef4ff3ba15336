// The table of length units.
#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace orlix::image::io {

namespace {

struct LengthUnit
{
    std::string_view name;
    std::string_view omeName;
    double metres;
};

// The micro sign U+00B5 and the Greek letter U+03BC look alike; files have both.
constexpr std::array g_units = {
    LengthUnit{"km", "km", 1e3},
    LengthUnit{"m", "m", 1},
    LengthUnit{"meter", "m", 1},
    LengthUnit{"metre", "m", 1},
    LengthUnit{"dm", "dm", 1e-1},
    LengthUnit{"cm", "cm", 1e-2},
    LengthUnit{"mm", "mm", 1e-3},
    LengthUnit{"millimeter", "mm", 1e-3},
    LengthUnit{"\u00b5m", "\u00b5m", 1e-6},
    LengthUnit{"\u03bcm", "\u00b5m", 1e-6},
    LengthUnit{"um", "\u00b5m", 1e-6},
    LengthUnit{"micron", "\u00b5m", 1e-6},
    LengthUnit{"microns", "\u00b5m", 1e-6},
    LengthUnit{"micrometer", "\u00b5m", 1e-6},
    LengthUnit{"nm", "nm", 1e-9},
    LengthUnit{"nanometer", "nm", 1e-9},
    LengthUnit{"\u00c5", "\u00c5", 1e-10},
    LengthUnit{"\u212b", "\u00c5", 1e-10},
    LengthUnit{"angstrom", "\u00c5", 1e-10},
    LengthUnit{"pm", "pm", 1e-12},
    LengthUnit{"inch", "in", 0.0254},
    LengthUnit{"in", "in", 0.0254},
    LengthUnit{"ft", "ft", 0.3048},
};

const LengthUnit* find(const std::string& name)
{
    const auto* const found = std::ranges::find(g_units, std::string_view(name), &LengthUnit::name);
    return found == g_units.end() ? nullptr : found;
}

bool isPixel(const std::string& unit)
{
    return unit == "px" || unit == "pixel" || unit == "pixels";
}

} // namespace

std::optional<double> metresIn(const std::string& unit)
{
    const LengthUnit* const found = find(unit);
    return found ? std::optional(found->metres) : std::nullopt;
}

std::optional<double> unitFactor(const std::string& from, const std::string& to)
{
    if (from == to || (isPixel(from) && isPixel(to))) {
        return 1;
    }
    const auto metresFrom = metresIn(from), metresTo = metresIn(to);
    return metresFrom && metresTo ? std::optional(*metresFrom / *metresTo) : std::nullopt;
}

std::string omeUnitOf(const std::string& unit)
{
    if (isPixel(unit)) {
        return "pixel";
    }
    const LengthUnit* const found = find(unit);
    return std::string(found ? found->omeName : "reference frame");
}

} // namespace orlix::image::io
