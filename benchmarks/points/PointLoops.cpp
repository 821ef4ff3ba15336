#include "points/PointLoops.h"

#include <array>

namespace orlix::bench {

namespace {

double cubic(double p0, double p1, double p2, double p3, double t)
{
    return p1 + 0.5 * t * ((p2 - p0) + t * ((2 * p0 - 5 * p1 + 4 * p2 - p3) + t * (3 * (p1 - p2) + p3 - p0)));
}

struct Plan
{
    const float* first;
    unsigned long pitch;

    double nearest(double x, double y) const
    {
        return first[static_cast<unsigned long>(y + 0.5) * pitch + static_cast<unsigned long>(x + 0.5)];
    }
    double linear(double x, double y) const
    {
        const auto ix = static_cast<unsigned long>(x);
        const auto iy = static_cast<unsigned long>(y);
        const double tx = x - static_cast<double>(ix);
        const double ty = y - static_cast<double>(iy);
        const float* const a = first + iy * pitch + ix;
        const float* const b = a + pitch;
        return (static_cast<double>(a[0]) * (1 - tx) + static_cast<double>(a[1]) * tx) * (1 - ty) +
               (static_cast<double>(b[0]) * (1 - tx) + static_cast<double>(b[1]) * tx) * ty;
    }
    double cubicAt(double x, double y) const
    {
        const auto ix = static_cast<unsigned long>(x);
        const auto iy = static_cast<unsigned long>(y);
        const double tx = x - static_cast<double>(ix);
        double lines[4];
        for (unsigned long line = 0; line < 4; ++line) {
            const float* const p = first + (iy - 1 + line) * pitch + ix - 1;
            lines[line] = cubic(p[0], p[1], p[2], p[3], tx);
        }
        return cubic(lines[0], lines[1], lines[2], lines[3], y - static_cast<double>(iy));
    }
    double at(double x, double y, unsigned policy) const
    {
        return policy == 0 ? nearest(x, y) : policy == 1 ? linear(x, y) : cubicAt(x, y);
    }
};

template <class TRead>
void readEach(std::span<double> values, const TRead& read)
{
    for (unsigned long i = 0; i < values.size(); ++i) {
        values[i] = read(i);
    }
}

/// The weights of the pixels around a fraction, up to 4.
std::array<double, 4> weightsOf(double t, unsigned policy)
{
    if (policy == 0) {
        return {1, 0, 0, 0};
    }
    if (policy == 1) {
        return {1 - t, t, 0, 0};
    }
    return {0.5 * t * (-1 + t * (2 - t)), 1 + 0.5 * t * t * (3 * t - 5), 0.5 * t * (1 + t * (4 - 3 * t)),
            0.5 * t * t * (t - 1)};
}

} // namespace

void readPlan(const image::BaseImage& image, std::span<const double> xy, unsigned policy, std::span<double> values)
{
    const Plan plan{reinterpret_cast<const float*>(image.accessRow(0, 0, 0, 0)),
                    image.getPixelLayout().rowBytes / sizeof(float)};
    switch (policy) {
    case 0: readEach(values, [&](unsigned long i) { return plan.nearest(xy[2 * i], xy[2 * i + 1]); }); break;
    case 1: readEach(values, [&](unsigned long i) { return plan.linear(xy[2 * i], xy[2 * i + 1]); }); break;
    default: readEach(values, [&](unsigned long i) { return plan.cubicAt(xy[2 * i], xy[2 * i + 1]); }); break;
    }
}

void readVolume(const image::BaseImage& image, std::span<const double> xyz, unsigned policy, std::span<double> values)
{
    const unsigned long pitch = image.getPixelLayout().rowBytes / sizeof(float);
    const auto planAt = [&](unsigned long z) {
        return Plan{reinterpret_cast<const float*>(image.accessRow(0, z, 0, 0)), pitch};
    };
    readEach(values, [&](unsigned long i) {
        const double x = xyz[3 * i];
        const double y = xyz[3 * i + 1];
        const double z = xyz[3 * i + 2];
        if (policy == 0) {
            return planAt(static_cast<unsigned long>(z + 0.5)).nearest(x, y);
        }
        const auto iz = static_cast<unsigned long>(z);
        const double tz = z - static_cast<double>(iz);
        if (policy == 1) {
            return planAt(iz).linear(x, y) * (1 - tz) + planAt(iz + 1).linear(x, y) * tz;
        }
        return cubic(planAt(iz - 1).cubicAt(x, y), planAt(iz).cubicAt(x, y), planAt(iz + 1).cubicAt(x, y),
                     planAt(iz + 2).cubicAt(x, y), tz);
    });
}

void readAnyAxes(const image::BaseImage& image, std::span<const double> places, unsigned long nbAxes, unsigned policy,
                 std::span<double> values)
{
    const unsigned long strides[] = {1, image.getPixelLayout().rowBytes / sizeof(float),
                                     image.getPixelLayout().planBytes / sizeof(float)};
    const auto* const first = reinterpret_cast<const float*>(image.accessRow(0, 0, 0, 0));
    const unsigned long side = policy == 0 ? 1 : policy == 1 ? 2 : 4;
    unsigned long nbSamples = 1;
    for (unsigned long axis = 0; axis < nbAxes; ++axis) {
        nbSamples *= side;
    }
    readEach(values, [&](unsigned long i) {
        std::array<std::array<double, 4>, 3> weights{};
        unsigned long start = 0;
        for (unsigned long axis = 0; axis < nbAxes; ++axis) {
            const double place = places[nbAxes * i + axis] + (policy == 0 ? 0.5 : 0);
            const auto whole = static_cast<unsigned long>(place);
            weights[axis] = weightsOf(place - static_cast<double>(whole), policy);
            start += (whole - (policy == 2 ? 1 : 0)) * strides[axis];
        }
        double value = 0;
        for (unsigned long sample = 0; sample < nbSamples; ++sample) {
            unsigned long offset = start;
            double weight = 1;
            for (unsigned long axis = 0, rest = sample; axis < nbAxes; ++axis, rest /= side) {
                offset += rest % side * strides[axis];
                weight *= weights[axis][rest % side];
            }
            value += weight * static_cast<double>(first[offset]);
        }
        return value;
    });
}

} // namespace orlix::bench
