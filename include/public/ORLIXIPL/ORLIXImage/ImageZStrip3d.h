// A strip of a volume: a range of whole plans.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// A range of whole plans of a volume. Lives no longer than the image that it was made from, which it does not keep.
class BaseImageZStrip3d
{
public:
    /// Plans [startOffsetZ, startOffsetZ + stripSizeZ) of `image`, which has one channel and one time step. No bounds
    /// are checked.
    BaseImageZStrip3d(const BaseImage& image, unsigned long startOffsetZ, unsigned long stripSizeZ)
        : m_image(&image), m_startOffsetZ(startOffsetZ), m_stripSizeZ(stripSizeZ)
    {}

    unsigned long getSizeX() const { return m_image->getSizeX(); }
    unsigned long getSizeY() const { return m_image->getSizeY(); }
    unsigned long getStripSizeZ() const { return m_stripSizeZ; }
    unsigned long getStripStartOffsetZ() const { return m_startOffsetZ; }
    unsigned long getImageSizeZ() const { return m_image->getSizeZ(); }
    eImageBufferType getImageBufferType() const { return m_image->getBufferType(); }
    const BaseImage& getBaseImage() const { return *m_image; }
    /// First element of plan `plan` of the strip.
    const void* accessBuffer(unsigned long plan) const { return getPlan(plan); }

    long getLineBytes() const { return m_image->getPixelLayout().rowBytes; } ///< from a line to the next
    /// In elements, from a pixel of a line to the next; anything but 1 says that they don't lie side by side.
    long getPixelStride() const { return m_image->getPixelLayout().pixelStride; }
    bool isDense() const { return m_image->getPixelLayout().bDense; } ///< do lines of a plan touch?
    /// May up to 64 elements behind each plan be read and, by a writer, overwritten with anything?
    bool hasRoomBehind() const { return m_image->getPixelLayout().bRoomBehindPlans; }
    /// Where the image that is written lies.
    simd::eMemoryPlace getMemoryPlace() const { return m_image->getPixelLayout().place; }

protected:
    std::byte* getPlan(unsigned long plan) const { return m_image->accessRow(0, m_startOffsetZ + plan, 0, 0); }

private:
    const BaseImage* m_image;
    unsigned long m_startOffsetZ;
    unsigned long m_stripSizeZ;
};

class InputImageZStrip3d : public BaseImageZStrip3d
{
public:
    using BaseImageZStrip3d::BaseImageZStrip3d;
};

class OutputImageZStrip3d : public BaseImageZStrip3d
{
public:
    using BaseImageZStrip3d::accessBuffer;
    using BaseImageZStrip3d::BaseImageZStrip3d;
    /// First element of plan `plan` of the strip.
    void* accessBuffer(unsigned long plan) { return getPlan(plan); }
};

/// For writers that leave part of their plans as it is.
class InOutImageZStrip3d : public OutputImageZStrip3d
{
public:
    using OutputImageZStrip3d::OutputImageZStrip3d;
};

} // namespace orlix::image
