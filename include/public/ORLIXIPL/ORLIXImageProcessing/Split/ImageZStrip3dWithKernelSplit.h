// Cuts a volume into strips with margins.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageZStrip3dWithKernel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

template <class TImage, class TStrip>
class BaseImageZStrip3dWithKernelSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    /// Margins are in pixels, before and behind a pixel: those of the axes of a plan, then those of z. They overlap:
    /// strips are for reading.
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, unsigned long startXY, unsigned long endXY,
                                    unsigned long startZ, unsigned long endZ, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&)
    {
        m_marginXY = {startXY, endXY};
        m_marginZ = {startZ, endZ};
        return this->initVolume(image);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eZStrip3dWithKernel; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of plans [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size, m_marginXY, m_marginZ);
    }

private:
    image::Margin m_marginXY;
    image::Margin m_marginZ;
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TImage, class TAttribute>
using ImageZStrip3dWithKernelSplit =
    FeedingStripSplit<BaseImageZStrip3dWithKernelSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
