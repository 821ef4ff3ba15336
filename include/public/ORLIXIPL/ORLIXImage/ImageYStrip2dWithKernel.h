// A strip of a plan together with what lies around it.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImage/Margin.h"

#include <algorithm>

namespace orlix::image {

/// Whole lines, and margins that reach beyond them and, at its borders, beyond the image.
class BaseImageYStrip2dWithKernel : public BaseImageYStrip2d
{
public:
    /// Lines [startOffsetY, startOffsetY + stripSizeY) of `image`, which has one plan. No bounds are checked.
    BaseImageYStrip2dWithKernel(const BaseImage& image, unsigned long startOffsetY, unsigned long stripSizeY,
                                const Margin& marginX, const Margin& marginY)
        : BaseImageYStrip2d(image, startOffsetY, stripSizeY), m_marginX(marginX), m_marginY(marginY)
    {}

    unsigned long getSizeY() const { return getImageSizeY(); } ///< lines of the whole plan

    unsigned long getStartingKernelSizeX() const { return m_marginX.start; }
    unsigned long getEndingKernelSizeX() const { return m_marginX.end; }
    unsigned long getStartingKernelSizeY() const { return m_marginY.start; }
    unsigned long getEndingKernelSizeY() const { return m_marginY.end; }

    /// Lines of the margin above the strip that the image has; the rest of the margin is outside.
    unsigned long getNbLinesAbove() const { return std::min(m_marginY.start, getStripStartOffsetY()); }
    /// Lines of the margin below the strip that the image has.
    unsigned long getNbLinesBelow() const
    {
        return std::min(m_marginY.end, getImageSizeY() - getStripStartOffsetY() - getStripSizeY());
    }

private:
    Margin m_marginX;
    Margin m_marginY;
};

class InputImageYStrip2dWithKernel : public BaseImageYStrip2dWithKernel
{
public:
    using BaseImageYStrip2dWithKernel::BaseImageYStrip2dWithKernel;
    const void* accessBuffer() const { return getFirst(); } ///< first element of the strip, margins left out
    /// First element of line `y` of the plan, in the strip or not.
    const void* accessImageLine(unsigned long y) const { return getBaseImage().accessRow(y, 0, 0, 0); }
};

} // namespace orlix::image
