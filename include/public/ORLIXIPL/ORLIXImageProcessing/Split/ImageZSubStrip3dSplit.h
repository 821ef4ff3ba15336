// Cuts a region of a volume into strips.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageStripSplit.h"

namespace orlix::imaproc {

/// The region is whole in x and y. Strips know their plans in the volume.
template <class TImage, class TStrip>
class BaseImageZSubStrip3dSplit : public BaseTImageStripSplit<TImage, TStrip>
{
public:
    /// Gives out plans [start, start + size) of the volume, of each of which kernels touch `planBytes`; more than a
    /// plan has: all. Fails where the volume has fewer plans.
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, const image::eStripAllocationType&,
                                    unsigned long start, unsigned long size, unsigned long planBytes = ~0UL)
    {
        return this->initSubVolume(image, start, size, planBytes);
    }

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eZSubStrip3d; }

    using BaseTImageStripSplit<TImage, TStrip>::processAttribute;
    /// Makes the strip of the region's plans [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        return this->handOn(lower, start, size);
    }
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TImage, class TAttribute>
using ImageZSubStrip3dSplit =
    FeedingStripSplit<BaseImageZSubStrip3dSplit<TImage, typename TAttribute::StripType>, TProcessor, TAttribute>;

} // namespace orlix::imaproc
