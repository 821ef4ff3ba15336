// Cuts a plan into strips: ranges of lines that a dynamic dispatcher decides.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

template <class TImage, class TStrip>
class BaseImageYStrip2dSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&, const image::eStripParsingDirection&)
    {
        return this->initPlan(image);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eYStrip2d; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of lines [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size);
    }
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`, an input for a const image, an output for another.
template <class TProcessor, class TImage, class TAttribute>
using ImageYStrip2dSplit =
    FeedingStripSplit<BaseImageYStrip2dSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
