// A picture that verbs draw: red, green and blue, 8 bits each.
#include "Canvas.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <algorithm>

namespace orlix::cli {

namespace {

/// Five rows of three dots, the upper left one first.
struct Glyph
{
    char character;
    const char* dots;
};
constexpr Glyph g_glyphs[] = {{'0', "####.##.##.####"}, {'1', ".#.##..#..#.###"}, {'2', "###..#####..###"},
                              {'3', "###..#.##..####"}, {'4', "#.##.####..#..#"}, {'5', "####..###..####"},
                              {'6', "####..####.####"}, {'7', "###..#.#..#..#."}, {'8', "####.#####.####"},
                              {'9', "####.####..####"}, {'.', ".............#."}, {'-', "......###......"},
                              {'+', "....#.###.#...."}, {'e', "...####.##..###"}};
constexpr unsigned long g_dotsX = 3;
constexpr unsigned long g_dotsY = 5;
constexpr unsigned long g_dotSize = 2;

} // namespace

Canvas::Canvas(unsigned long sizeX, unsigned long sizeY, const Colour& background)
    : m_image(image::createImage(*image::geometry5d(image::eImageBufferType::UInt8, sizeX, sizeY, 1, 3, 1)))
{
    fill(0, 0, sizeX, sizeY, background);
}

void Canvas::fill(unsigned long x, unsigned long y, unsigned long sizeX, unsigned long sizeY, const Colour& colour)
{
    const unsigned long endX = std::min(x + sizeX, m_image->getSizeX());
    const unsigned long endY = std::min(y + sizeY, m_image->getSizeY());
    for (unsigned long channel = 0; x < endX && channel < colour.size(); ++channel) {
        for (unsigned long row = y; row < endY; ++row) {
            std::byte* const first = m_image->accessRow(row, 0, channel, 0);
            std::fill(first + x, first + endX, std::byte{colour[channel]});
        }
    }
}

void Canvas::write(unsigned long x, unsigned long y, std::string_view text, const Colour& colour)
{
    for (const char character : text) {
        const Glyph* const glyph = std::find_if(std::begin(g_glyphs), std::end(g_glyphs),
                                                [=](const Glyph& each) { return each.character == character; });
        for (unsigned long dot = 0; glyph != std::end(g_glyphs) && dot < g_dotsX * g_dotsY; ++dot) {
            if (glyph->dots[dot] == '#') {
                fill(x + dot % g_dotsX * g_dotSize, y + dot / g_dotsX * g_dotSize, g_dotSize, g_dotSize, colour);
            }
        }
        x += s_charWidth;
    }
}

} // namespace orlix::cli
