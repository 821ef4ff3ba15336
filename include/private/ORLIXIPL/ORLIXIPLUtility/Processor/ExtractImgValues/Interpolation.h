// The value between pixels, by each policy. Both methods of reading take it from here, so they agree to the last bit.
#pragma once

#include <array>

namespace orlix::imaproc::util {

/// 1 from a half on, and for what is no number 0: floor(fraction + 0.5) of a fraction.
inline unsigned long roundFraction(double fraction)
{
    return fraction + 0.5 >= 1.0 ? 1 : 0;
}

/// Catmull-Rom between `p1` and `p2`.
inline double interpolateCubic(double p0, double p1, double p2, double p3, double t)
{
    return p1 + 0.5 * t * ((p2 - p0) + t * ((2 * p0 - 5 * p1 + 4 * p2 - p3) + t * (3 * (p1 - p2) + p3 - p0)));
}

// Each policy has `s_start` and `s_end`, the pixels that it reads before and behind the whole position on every axis,
// and `of<T>(row, fraction)`, where `row(line, plan)` is the address of the first of `s_start + s_end + 1` pixels.
// `forEachRow(fraction, action)` calls `action(column, line, plan)` for the first pixel that `of` reads of each row.

/// Of a policy that reads all of `side` pixels on each axis.
template <unsigned long side, unsigned long nbAxes, class TAction>
void forEachRowOf(const std::array<double, nbAxes>&, const TAction& action)
{
    for (unsigned long plan = 0; plan < (nbAxes == 3 ? side : 1); ++plan) {
        for (unsigned long line = 0; line < side; ++line) {
            action(0, line, plan);
        }
    }
}

struct NearestNeighbour
{
    static constexpr unsigned long s_start = 0;
    static constexpr unsigned long s_end = 1;

    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 2>& fraction)
    {
        const double any = fraction[0] + fraction[1];
        return any == any ? pixelOf<T>(row, fraction, 0) : any;
    }
    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 3>& fraction)
    {
        const double any = fraction[0] + fraction[1] + fraction[2];
        return any == any ? pixelOf<T>(row, fraction, roundFraction(fraction[2])) : any;
    }
    template <unsigned long nbAxes, class TAction>
    static void forEachRow(const std::array<double, nbAxes>& fraction, const TAction& action)
    {
        unsigned long plan = 0;
        if constexpr (nbAxes == 3) {
            plan = roundFraction(fraction[2]);
        }
        action(roundFraction(fraction[0]), roundFraction(fraction[1]), plan);
    }

private:
    template <class T, class TRow, class TFraction>
    static double pixelOf(const TRow& row, const TFraction& fraction, unsigned long plan)
    {
        const T* const line = row(roundFraction(fraction[1]), plan);
        return static_cast<double>(line[roundFraction(fraction[0])]);
    }
};

struct Linear
{
    static constexpr unsigned long s_start = 0;
    static constexpr unsigned long s_end = 1;

    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 2>& fraction)
    {
        return inPlan<T>(row, 0, fraction[0], fraction[1]);
    }
    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 3>& fraction)
    {
        return inPlan<T>(row, 0, fraction[0], fraction[1]) * (1 - fraction[2]) +
               inPlan<T>(row, 1, fraction[0], fraction[1]) * fraction[2];
    }
    template <unsigned long nbAxes, class TAction>
    static void forEachRow(const std::array<double, nbAxes>& fraction, const TAction& action)
    {
        forEachRowOf<s_start + 1 + s_end>(fraction, action);
    }

private:
    template <class T, class TRow>
    static double inPlan(const TRow& row, unsigned long plan, double tx, double ty)
    {
        const T* const a = row(0, plan);
        const T* const b = row(1, plan);
        return (static_cast<double>(a[0]) * (1 - tx) + static_cast<double>(a[1]) * tx) * (1 - ty) +
               (static_cast<double>(b[0]) * (1 - tx) + static_cast<double>(b[1]) * tx) * ty;
    }
};

struct Cubic
{
    static constexpr unsigned long s_start = 1;
    static constexpr unsigned long s_end = 2;

    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 2>& fraction)
    {
        return inPlan<T>(row, 0, fraction[0], fraction[1]);
    }
    template <class T, class TRow>
    static double of(const TRow& row, const std::array<double, 3>& fraction)
    {
        const double tx = fraction[0];
        const double ty = fraction[1];
        return interpolateCubic(inPlan<T>(row, 0, tx, ty), inPlan<T>(row, 1, tx, ty), inPlan<T>(row, 2, tx, ty),
                                inPlan<T>(row, 3, tx, ty), fraction[2]);
    }
    template <unsigned long nbAxes, class TAction>
    static void forEachRow(const std::array<double, nbAxes>& fraction, const TAction& action)
    {
        forEachRowOf<s_start + 1 + s_end>(fraction, action);
    }

private:
    template <class T, class TRow>
    static double inPlan(const TRow& row, unsigned long plan, double tx, double ty)
    {
        double lines[4];
        for (unsigned long line = 0; line < 4; ++line) {
            const T* const p = row(line, plan);
            lines[line] = interpolateCubic(static_cast<double>(p[0]), static_cast<double>(p[1]),
                                           static_cast<double>(p[2]), static_cast<double>(p[3]), tx);
        }
        return interpolateCubic(lines[0], lines[1], lines[2], lines[3], ty);
    }
};

/// Calls `action` with an object of the policy's type; what is no policy acts as the nearest neighbour.
template <class TAction>
void withInterpolation(unsigned int policy, const TAction& action)
{
    switch (policy) {
    case 1: action(Linear()); break;
    case 2: action(Cubic()); break;
    default: action(NearestNeighbour()); break;
    }
}

} // namespace orlix::imaproc::util
