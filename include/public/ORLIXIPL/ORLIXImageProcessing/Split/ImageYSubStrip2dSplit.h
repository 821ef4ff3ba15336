// Cuts a region of a plan into strips.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

/// The region is whole in x. Strips know their lines in the plan, and may start and end at any of them, so their
/// kernels must not write past their count.
template <class TImage, class TStrip>
class BaseImageYSubStrip2dSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    /// Gives out lines [start, start + size) of the plan, of each of which kernels touch `lineBytes`; more than a line
    /// has: all. Fails where the plan has fewer lines.
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, const image::eStripAllocationType&,
                                    unsigned long start, unsigned long size, unsigned long lineBytes = ~0UL)
    {
        return this->initSubPlan(image, start, size, lineBytes);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eYSubStrip2d; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of the region's lines [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size);
    }
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TImage, class TAttribute>
using ImageYSubStrip2dSplit =
    FeedingStripSplit<BaseImageYSubStrip2dSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
