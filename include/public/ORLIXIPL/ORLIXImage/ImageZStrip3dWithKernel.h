// A strip of a volume together with what lies around it.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"
#include "ORLIXIPL/ORLIXImage/Margin.h"

#include <algorithm>

namespace orlix::image {

/// Whole plans, and margins that reach beyond them and, at its borders, beyond the image.
class BaseImageZStrip3dWithKernel : public BaseImageZStrip3d
{
public:
    /// Plans [startOffsetZ, startOffsetZ + stripSizeZ) of `image`, which has one channel and one time step. `marginXY`
    /// holds along both axes of a plan. No bounds are checked.
    BaseImageZStrip3dWithKernel(const BaseImage& image, unsigned long startOffsetZ, unsigned long stripSizeZ,
                                const Margin& marginXY, const Margin& marginZ)
        : BaseImageZStrip3d(image, startOffsetZ, stripSizeZ), m_marginXY(marginXY), m_marginZ(marginZ)
    {}

    unsigned long getStartingKernelSizeX() const { return m_marginXY.start; }
    unsigned long getEndingKernelSizeX() const { return m_marginXY.end; }
    unsigned long getStartingKernelSizeY() const { return m_marginXY.start; }
    unsigned long getEndingKernelSizeY() const { return m_marginXY.end; }
    unsigned long getStartingKernelSizeZ() const { return m_marginZ.start; }
    unsigned long getEndingKernelSizeZ() const { return m_marginZ.end; }

    /// Plans of the margin before the strip that the image has; the rest of the margin is outside.
    unsigned long getNbPlansBefore() const { return std::min(m_marginZ.start, getStripStartOffsetZ()); }
    /// Plans of the margin behind the strip that the image has.
    unsigned long getNbPlansBehind() const
    {
        return std::min(m_marginZ.end, getImageSizeZ() - getStripStartOffsetZ() - getStripSizeZ());
    }

private:
    Margin m_marginXY;
    Margin m_marginZ;
};

class InputImageZStrip3dWithKernel : public BaseImageZStrip3dWithKernel
{
public:
    using BaseImageZStrip3dWithKernel::BaseImageZStrip3dWithKernel;
    /// First element of plan `plan` of the strip, margins left out.
    const void* accessBuffer(unsigned long plan) const { return getPlan(plan); }
    /// First element of line `y` of plan `z` of the volume, in the strip or not.
    const void* accessImageLine(unsigned long y, unsigned long z) const { return getBaseImage().accessRow(y, z, 0, 0); }
};

} // namespace orlix::image
