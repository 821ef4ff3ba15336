// A picture that verbs draw: red, green and blue, 8 bits each.
#pragma once

#include "ColourScale.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <string_view>

namespace orlix::cli {

/// Places are (x, y) from the upper left corner; what lies outside is not drawn.
class Canvas
{
public:
    /// All of one colour.
    Canvas(unsigned long sizeX, unsigned long sizeY, const Colour& background);

    void fill(unsigned long x, unsigned long y, unsigned long sizeX, unsigned long sizeY, const Colour& colour);
    /// Digits, "+", "-", "." and "e", in characters of `s_charWidth` by `s_charHeight` pixels; others leave a space.
    void write(unsigned long x, unsigned long y, std::string_view text, const Colour& colour);

    static constexpr unsigned long s_charWidth = 8; ///< its gap to the next one included
    static constexpr unsigned long s_charHeight = 10;

    /// One plan of three channels of UInt8.
    const ImagePtr& getImage() const { return m_image; }

private:
    ImagePtr m_image;
};

} // namespace orlix::cli
