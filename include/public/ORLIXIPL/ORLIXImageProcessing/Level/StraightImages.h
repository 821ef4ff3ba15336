// Which images need no cutting.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

#include <algorithm>

namespace orlix::imaproc {

/// An image of the host with one plan. False for a null pointer and for an image without pixels.
inline bool isOneHostPlan(const image::BaseImage* image)
{
    return image != nullptr && image->getPixelLayout().first != nullptr && image->getSizeZ() == 1 &&
           image->getSizeC() == 1 && image->getSizeT() == 1; // which needs no table of its steps
}

/// The same of an image with one volume, or a plan, which is one too.
inline bool isOneHostVolume(const image::BaseImage* image)
{
    return image != nullptr && image->getPixelLayout().first != nullptr && image->getSizeC() == 1 &&
           image->getSizeT() == 1;
}

/// Bytes of the pixels of a line, however they lie.
inline unsigned long lineBytesOf(const image::BaseImage& image)
{
    return image.getSizeX() * image::elementSize(image.getBufferType());
}
/// The same of a plan.
inline unsigned long planBytesOf(const image::BaseImage& image)
{
    return lineBytesOf(image) * image.getSizeY();
}

/// Lines of a plan, or plans of a volume: [start, start + size).
struct StripRange
{
    unsigned long start;
    unsigned long size;
    unsigned long lineBytes = ~0UL; ///< that are touched of each line or plan; more than it has: all
};

/// Such a range of an image, or all of it.
template <class TImage>
struct StripPart
{
    TImage* image;
    unsigned long start;
    unsigned long size;
};

/// Would a dispatcher with strips of `stripBytes` hand out the range as one strip? There are `nbLines` lines, or plans,
/// of `lineBytes` each. False for a range that is not within them, and for one with nothing in it.
inline bool isOneStrip(const StripRange& range, unsigned long nbLines, unsigned long lineBytes,
                       unsigned long stripBytes)
{
    const unsigned long touched = std::min(range.lineBytes, lineBytes);
    return range.start <= nbLines && range.size <= nbLines - range.start && touched - 1 < stripBytes &&
           range.size - 1 < stripBytes / touched;
}

/// A plan of a host image that a dispatcher with strips of `stripBytes` would hand out as one strip, and of which
/// kernels without a tail may be given the memory itself.
inline bool isOneStrip(const image::BaseImage& plan, unsigned long stripBytes)
{
    const image::PixelLayout& layout = plan.getPixelLayout();
    const unsigned long nbLines = plan.getSizeY();
    const auto rowBytes = static_cast<unsigned long>(layout.rowBytes); // of its pixels where rows touch
    return layout.bDense && rowBytes - 1 < stripBytes && nbLines - 1 < stripBytes / rowBytes &&
           (layout.bRoomBehindPlans || plan.getSizeX() * nbLines % g_kernelOverrun == 0);
}

} // namespace orlix::imaproc
