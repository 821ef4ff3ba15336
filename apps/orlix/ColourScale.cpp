// Colours for numbers that a colour-blind reader tells apart too.
#include "ColourScale.h"

#include <algorithm>
#include <cmath>

namespace orlix::cli {

Colour colourOf(double share)
{
    static constexpr std::array<Colour, 5> g_steps = {
        {{0, 24, 72}, {56, 72, 112}, {120, 120, 120}, {184, 172, 96}, {255, 232, 64}}};
    const double place = std::clamp(share, 0.0, 1.0) * (g_steps.size() - 1);
    const auto step = std::min(static_cast<std::size_t>(place), g_steps.size() - 2);
    const double part = place - static_cast<double>(step);
    Colour colour{};
    for (std::size_t channel = 0; channel < colour.size(); ++channel) {
        colour[channel] = static_cast<unsigned char>(
            std::lround((1 - part) * g_steps[step][channel] + part * g_steps[step + 1][channel]));
    }
    return colour;
}

} // namespace orlix::cli
