// Cuts a volume into strips: ranges of plans that a dynamic dispatcher decides.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

template <class TImage, class TStrip>
class BaseImageZStrip3dSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&, const image::eStripParsingDirection&)
    {
        return this->initVolume(image);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eZStrip3d; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of plans [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size);
    }
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`, an input for a const image, else an output.
template <class TProcessor, class TImage, class TAttribute>
using ImageZStrip3dSplit =
    FeedingStripSplit<BaseImageZStrip3dSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
