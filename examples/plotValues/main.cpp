// Draws the last column of a table, row by row, as a curve: plotValues profile.csv profile.png
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr unsigned long g_sizeX = 480;
constexpr unsigned long g_sizeY = 240;
constexpr unsigned long g_margin = 12;
constexpr unsigned char g_paper = 255;
constexpr unsigned char g_grid = 200;
constexpr unsigned char g_ink = 0;

std::vector<double> readLastColumn(const std::string& file)
{
    std::ifstream stream(file);
    if (!stream) {
        throw std::runtime_error("can't read " + file);
    }
    std::vector<double> values;
    std::string line;
    for (std::getline(stream, line); std::getline(stream, line);) { // the first line names the columns
        values.push_back(std::stod(line.substr(line.find_last_of(",;\t") + 1)));
    }
    if (values.size() < 2) {
        throw std::runtime_error(file + " has no two rows to draw a curve through");
    }
    return values;
}

/// Five lines across, from the largest value to the smallest, and the curve, each of its columns joined to the last.
orlix::ImagePtr draw(const std::vector<double>& values)
{
    using namespace orlix;
    const ImagePtr plot = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, g_sizeX, g_sizeY));
    auto* const pixels = image::planData<unsigned char>(*plot, 0, 0, 0);
    std::fill_n(pixels, g_sizeX * g_sizeY, g_paper);
    constexpr unsigned long width = g_sizeX - 2 * g_margin;
    constexpr unsigned long height = g_sizeY - 2 * g_margin;
    for (unsigned long part = 0; part <= 4; ++part) {
        std::fill_n(pixels + (g_margin + part * (height - 1) / 4) * g_sizeX + g_margin, width, g_grid);
    }
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const double range = *high > *low ? *high - *low : 1;
    unsigned long last = 0;
    for (unsigned long x = 0; x < width; ++x) {
        const double place = static_cast<double>(x * (values.size() - 1)) / static_cast<double>(width - 1);
        const unsigned long before = std::min(static_cast<unsigned long>(place), values.size() - 2);
        const double part = place - static_cast<double>(before);
        const double value = values[before] * (1 - part) + values[before + 1] * part;
        const auto y = static_cast<unsigned long>(std::lround((*high - value) / range * (height - 1)));
        last = x == 0 ? y : last;
        for (unsigned long each = std::min(last, y); each <= std::max(last, y); ++each) {
            pixels[(g_margin + each) * g_sizeX + g_margin + x] = g_ink;
        }
        last = y;
    }
    return plot;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: plotValues <table> <file to write, .tif or .png>\n";
        return 2;
    }
    try {
        orlix::image::io::writeImage(argv[2], draw(readLastColumn(argv[1])));
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
    return 0;
}
