// Where a pixel lies in an image of five axes.
#pragma once

#include "ORLIX/ORLIXUtil/NumericLimits.h"

namespace orlix::imaproc::attr {

/// In pixels from 0 on each axis. A new one is nowhere: every axis holds the largest number.
struct PixelPosition
{
    static constexpr unsigned long s_nowhere = NumericLimits<unsigned long>::s_max;

    unsigned long x = s_nowhere;
    unsigned long y = s_nowhere;
    unsigned long z = s_nowhere;
    unsigned long c = s_nowhere;
    unsigned long t = s_nowhere;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("x", &PixelPosition::x);
        visitor("y", &PixelPosition::y);
        visitor("z", &PixelPosition::z);
        visitor("c", &PixelPosition::c);
        visitor("t", &PixelPosition::t);
    }

    friend constexpr bool operator==(const PixelPosition&, const PixelPosition&) = default;
};

} // namespace orlix::imaproc::attr
