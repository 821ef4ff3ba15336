// A strip: a range of whole lines of one plan.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// A range of whole lines of a 2d image. Lives no longer than the image that it was made from, which it does not keep.
class BaseImageYStrip2d
{
public:
    /// Lines [startOffsetY, startOffsetY + stripSizeY) of `image`, which has one plan. No bounds are checked.
    BaseImageYStrip2d(const BaseImage& image, unsigned long startOffsetY, unsigned long stripSizeY)
        : m_image(&image), m_startOffsetY(startOffsetY), m_stripSizeY(stripSizeY),
          m_first(image.accessRow(startOffsetY, 0, 0, 0))
    {}

    unsigned long getSizeX() const { return m_image->getSizeX(); }
    unsigned long getStripSizeY() const { return m_stripSizeY; }
    unsigned long getStripStartOffsetY() const { return m_startOffsetY; }
    unsigned long getImageSizeY() const { return m_image->getSizeY(); }
    eImageBufferType getImageBufferType() const { return m_image->getBufferType(); }
    const BaseImage& getBaseImage() const { return *m_image; }
    const void* accessBuffer() const { return m_first; } ///< first element of the strip

    long getLineBytes() const { return m_image->getPixelLayout().rowBytes; } ///< from a line to the next
    /// In elements, from a pixel of a line to the next; anything but 1 says that they don't lie side by side.
    long getPixelStride() const { return m_image->getPixelLayout().pixelStride; }
    bool isDense() const { return m_image->getPixelLayout().bDense; }
    /// May up to 64 elements behind the strip's last be read and, by a writer, overwritten with anything? True where
    /// they are padding of the plan or lines of a later strip of it that the cutter keeps out of reach.
    bool hasRoomBehind() const { return m_image->getPixelLayout().bRoomBehindPlans; }
    /// Where the image that is written lies.
    simd::eMemoryPlace getMemoryPlace() const { return m_image->getPixelLayout().place; }

protected:
    std::byte* getFirst() const { return m_first; }

private:
    const BaseImage* m_image;
    unsigned long m_startOffsetY;
    unsigned long m_stripSizeY;
    std::byte* m_first;
};

class InputImageYStrip2d : public BaseImageYStrip2d
{
public:
    using BaseImageYStrip2d::BaseImageYStrip2d;
};

class OutputImageYStrip2d : public BaseImageYStrip2d
{
public:
    using BaseImageYStrip2d::accessBuffer;
    using BaseImageYStrip2d::BaseImageYStrip2d;
    void* accessBuffer() { return getFirst(); } ///< first element of the strip
};

} // namespace orlix::image
