// Colours for numbers that a colour-blind reader tells apart too.
#pragma once

#include <array>

namespace orlix::cli {

using Colour = std::array<unsigned char, 3>; ///< red, green, blue

/// From dark blue at 0 over grey to yellow at 1: lightness grows all the way, and blue and yellow are told apart with
/// every common colour blindness. `share` outside of 0 to 1 counts as the nearer end.
Colour colourOf(double share);

/// For what is no number.
inline constexpr Colour g_noNumberColour = {255, 0, 255};

} // namespace orlix::cli
