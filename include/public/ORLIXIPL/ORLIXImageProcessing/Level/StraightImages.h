// Which images need no cutting.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ScratchBlock.h"

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

/// A plan of a host image that a dispatcher with strips of `stripBytes` would hand out as one strip, and of which
/// kernels without a tail may be given the memory itself.
inline bool isOneStrip(const image::BaseImage& plan, unsigned long stripBytes)
{
    const image::PixelLayout& layout = plan.getPixelLayout();
    const unsigned long nbLines = plan.getSizeY();
    return layout.bDense && layout.rowBytes - 1 < stripBytes && nbLines - 1 < stripBytes / layout.rowBytes &&
           (layout.bRoomBehindPlans || plan.getSizeX() * nbLines % g_kernelOverrun == 0);
}

} // namespace orlix::imaproc
