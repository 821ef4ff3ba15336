// How far around a pixel an operator looks along an axis.
#pragma once

namespace orlix::image {

/// In pixels.
struct Margin
{
    unsigned long start = 0; ///< before the pixel
    unsigned long end = 0;   ///< behind it

    friend constexpr bool operator==(const Margin&, const Margin&) = default;
};

} // namespace orlix::image
