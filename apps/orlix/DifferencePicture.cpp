// Two plans and their difference side by side, to be looked at.
#include "DifferencePicture.h"

#include "Canvas.h"
#include "DifferenceStatistics.h"
#include "PlainText.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace orlix::cli {

namespace {

constexpr unsigned long g_gap = 8;
constexpr unsigned long g_scaleWidth = 16;
constexpr unsigned long g_smallSide = 256; ///< plans are enlarged as long as they stay within
constexpr Colour g_white = {255, 255, 255};
constexpr Colour g_black = {0, 0, 0};

/// One plan of an image.
struct Plan
{
    const image::BaseImage& image;
    unsigned long z, c, t;

    double at(unsigned long x, unsigned long y) const
    {
        return elementAt(image.accessRow(y, z, c, t), x, image.getBufferType(t));
    }
};

/// Smallest and largest of the finite numbers that were shown to it.
struct Range
{
    double smallest = std::numeric_limits<double>::max();
    double largest = std::numeric_limits<double>::lowest();

    void show(double value)
    {
        if (std::isfinite(value)) {
            smallest = std::min(smallest, value);
            largest = std::max(largest, value);
        }
    }
    /// 0 for the smallest, 1 for the largest; the nearer of them for what is infinite.
    double shareOf(double value) const
    {
        if (std::isinf(value)) {
            return value > 0 ? 1 : 0;
        }
        return largest > smallest ? std::clamp((value - smallest) / (largest - smallest), 0.0, 1.0) : 0;
    }
};

double differenceAt(const Plan& first, const Plan& second, unsigned long x, unsigned long y)
{
    const double a = first.at(x, y);
    const double b = second.at(x, y);
    return a == b ? 0 : std::fabs(a - b);
}

Colour greyOf(double share)
{
    const auto level = static_cast<unsigned char>(std::lround(255 * share));
    return {level, level, level};
}

void drawPanel(Canvas& canvas, unsigned long left, unsigned long top, unsigned long factor,
               const image::BaseImage& image, const std::function<Colour(unsigned long x, unsigned long y)>& colourAt)
{
    for (unsigned long y = 0; y < image.getSizeY(); ++y) {
        for (unsigned long x = 0; x < image.getSizeX(); ++x) {
            canvas.fill(left + x * factor, top + y * factor, factor, factor, colourAt(x, y));
        }
    }
}

void drawScale(Canvas& canvas, unsigned long left, unsigned long top, unsigned long height)
{
    for (unsigned long y = 0; y < height; ++y) {
        const double share = height > 1 ? 1 - static_cast<double>(y) / static_cast<double>(height - 1) : 1;
        canvas.fill(left, top + y, g_scaleWidth, 1, colourOf(share));
    }
}

} // namespace

ImagePtr drawDifference(const image::BaseImage& first, const image::BaseImage& second, unsigned long z, unsigned long c,
                        unsigned long t)
{
    const Plan one{first, z, c, t};
    const Plan other{second, z, c, t};
    Range values;
    Range differences;
    differences.show(0);
    for (unsigned long y = 0; y < first.getSizeY(); ++y) {
        for (unsigned long x = 0; x < first.getSizeX(); ++x) {
            values.show(one.at(x, y));
            values.show(other.at(x, y));
            differences.show(differenceAt(one, other, x, y));
        }
    }

    const unsigned long factor = std::max(1UL, g_smallSide / std::max({1UL, first.getSizeX(), first.getSizeY()}));
    const unsigned long sizeX = first.getSizeX() * factor;
    const unsigned long sizeY = std::max(first.getSizeY() * factor, 3 * Canvas::s_charHeight);
    const std::string largest = shortest(static_cast<float>(differences.largest));
    const unsigned long labelWidth = std::max<unsigned long>(g_scaleWidth, largest.size() * Canvas::s_charWidth);
    const unsigned long top = 2 * g_gap + Canvas::s_charHeight;
    Canvas canvas(3 * sizeX + 5 * g_gap + labelWidth, top + sizeY + Canvas::s_charHeight + 2 * g_gap, g_white);

    const auto greyAt = [&values](const Plan& plan, unsigned long x, unsigned long y) {
        const double value = plan.at(x, y);
        return std::isnan(value) ? g_noNumberColour : greyOf(values.shareOf(value));
    };
    drawPanel(canvas, g_gap, top, factor, first, [&](unsigned long x, unsigned long y) { return greyAt(one, x, y); });
    drawPanel(canvas, 2 * g_gap + sizeX, top, factor, first,
              [&](unsigned long x, unsigned long y) { return greyAt(other, x, y); });
    drawPanel(canvas, 3 * g_gap + 2 * sizeX, top, factor, first, [&](unsigned long x, unsigned long y) {
        const double difference = differenceAt(one, other, x, y);
        return std::isnan(difference) ? g_noNumberColour : colourOf(differences.shareOf(difference));
    });

    const unsigned long scaleLeft = 4 * g_gap + 3 * sizeX;
    canvas.write(scaleLeft, g_gap, largest, g_black);
    drawScale(canvas, scaleLeft, top, sizeY);
    canvas.write(scaleLeft, top + sizeY + g_gap, "0", g_black);
    return canvas.getImage();
}

} // namespace orlix::cli
