// What line images have to be, pixel by pixel, in plain single precision: every step is one operation, in the order in
// which images have always been made.
#pragma once

#include "support/Images.h"

#include <cmath>
#include <functional>

namespace orlix::imaproc::util::test {

/// Signed distance to the nearest multiple of `period`.
inline float reducedBy(float period, float distance)
{
    const float quotient = distance / period;
    const float whole = std::signbit(quotient) ? -8388608.0F : 8388608.0F;
    float rounded = quotient + whole;
    rounded = rounded - whole;
    float floor = rounded;
    if (quotient < rounded) {
        floor = rounded - 1.0F;
    }
    const float product = floor * period;
    float rest = distance - product;
    if (rest < 0.0F) {
        rest = 0.0F;
    }
    if (rest >= period) {
        rest = period;
    }
    if (rest >= period * 0.5F) {
        rest = rest - period;
    }
    if (-period * 0.5F > rest) {
        rest = rest + period;
    }
    return rest;
}

inline bool isOnLine(float distance)
{
    return distance > -0.5F && distance <= 0.5F;
}

/// Lines of a plan: what its pixels have to be.
class Lines2d
{
public:
    Lines2d(unsigned long sizeX, unsigned long sizeY, float theta, float offset)
        : m_sine(std::sin(theta)), m_cosine(std::cos(theta)), m_offset(offset)
    {
        const float down = static_cast<float>(sizeY) * 0.5F * m_cosine;
        const float along = static_cast<float>(sizeX) * 0.5F * m_sine;
        m_centre = down - along;
    }

    unsigned char at(unsigned long x, unsigned long y) const
    {
        if (!(m_offset > 0.0F) || std::isinf(m_offset) || !std::isfinite(m_sine)) {
            return 0;
        }
        if (m_offset < 1e-30F) {
            return 1; // where quotients leave the range of a float
        }
        const float down = static_cast<float>(y) * m_cosine;
        const float base = down - m_centre;
        const float along = m_sine * static_cast<float>(x);
        return isOnLine(reducedBy(m_offset, base - along)) ? 1 : 0;
    }

private:
    float m_sine;
    float m_cosine;
    float m_offset;
    float m_centre = 0.0F;
};

/// The angles of lines of a volume.
struct LineAngles
{
    float theta;
    float phi;
    float alpha;
};

/// Lines of a volume.
class Lines3d
{
public:
    Lines3d(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, const LineAngles& angles, float offset)
        : m_centreX(static_cast<float>(sizeX / 2)), m_centreY(static_cast<float>(sizeY / 2)),
          m_centreZ(static_cast<float>(sizeZ / 2)), m_angles(angles), m_offset(offset)
    {}

    unsigned char at(unsigned long x, unsigned long y, unsigned long z) const
    {
        const float st = std::sin(m_angles.theta), ct = std::cos(m_angles.theta);
        const float sp = std::sin(m_angles.phi), cp = std::cos(m_angles.phi);
        const float sa = std::sin(m_angles.alpha), ca = std::cos(m_angles.alpha);
        if (!(m_offset > 0.0F) || std::isinf(m_offset) || !std::isfinite(st + sp + sa)) {
            return 0;
        }
        if (m_offset < 1e-30F) {
            return 1;
        }
        const float xc = static_cast<float>(x) - m_centreX;
        const float yc = static_cast<float>(y) - m_centreY;
        const float zc = static_cast<float>(z) - m_centreZ;
        const float u = (xc * cp + sp * yc) * ct - zc * st;
        const float v = cp * yc - sp * xc;
        const float a = v * ca - u * sa;
        const float b = 0.0F - u * ca - v * sa;
        const float wa = reducedBy(m_offset, a);
        const float wb = reducedBy(m_offset, b);
        const float e = wb * ca - wa * sa;
        const float f = wb * sa + wa * ca;
        return isOnLine(e) && isOnLine(f) ? 1 : 0;
    }

private:
    float m_centreX;
    float m_centreY;
    float m_centreZ;
    LineAngles m_angles;
    float m_offset;
};

using ExpectedPixel = std::function<unsigned char(unsigned long x, unsigned long y, unsigned long z)>;

/// Is every pixel of every channel and time step the expected one?
inline ::testing::AssertionResult isDrawn(const image::BaseImage& image, const ExpectedPixel& expected)
{
    unsigned long row = 0;
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    testing::forEachRow(image, [&](unsigned long, const std::byte* first) {
        const unsigned long y = row % image.getSizeY();
        const unsigned long z = row / image.getSizeY() % image.getSizeZ();
        for (unsigned long x = 0; x < image.getSizeX() && result; ++x) {
            if (static_cast<unsigned char>(first[x]) != expected(x, y, z)) {
                result = ::testing::AssertionFailure() << image.getGeometry().toString() << " at (" << x << ", " << y
                                                       << ", " << z << "): " << static_cast<int>(first[x])
                                                       << " instead of " << static_cast<int>(expected(x, y, z));
            }
        }
        ++row;
    });
    return result;
}

inline ::testing::AssertionResult hasLines(const image::BaseImage& image, float theta, float offset)
{
    const Lines2d lines(image.getSizeX(), image.getSizeY(), theta, offset);
    return isDrawn(image, [&](unsigned long x, unsigned long y, unsigned long) { return lines.at(x, y); })
           << ", theta " << theta << ", offset " << offset;
}

inline ::testing::AssertionResult hasLines(const image::BaseImage& image, const LineAngles& angles, float offset)
{
    const Lines3d lines(image.getSizeX(), image.getSizeY(), image.getSizeZ(), angles, offset);
    return isDrawn(image, [&](unsigned long x, unsigned long y, unsigned long z) { return lines.at(x, y, z); })
           << ", theta " << angles.theta << ", phi " << angles.phi << ", alpha " << angles.alpha << ", offset "
           << offset;
}

} // namespace orlix::imaproc::util::test
