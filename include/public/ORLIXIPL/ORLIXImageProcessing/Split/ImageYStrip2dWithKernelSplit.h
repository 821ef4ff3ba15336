// Cuts a plan into strips with margins.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2dWithKernel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

template <class TImage, class TStrip>
class BaseImageYStrip2dWithKernelSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    /// Margins are in pixels, before and behind a pixel along each axis. They overlap: strips are for reading.
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, unsigned long startX, unsigned long endX,
                                    unsigned long startY, unsigned long endY, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&)
    {
        m_marginX = {startX, endX};
        m_marginY = {startY, endY};
        return this->initSubPlan(image, 0, image ? image->getSizeY() : 0);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eYStrip2dWithKernel; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of lines [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size, m_marginX, m_marginY);
    }

private:
    image::Margin m_marginX;
    image::Margin m_marginY;
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TImage, class TAttribute>
using ImageYStrip2dWithKernelSplit =
    FeedingStripSplit<BaseImageYStrip2dWithKernelSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
