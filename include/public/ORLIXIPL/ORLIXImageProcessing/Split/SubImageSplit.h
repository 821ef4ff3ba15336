// Cuts an image into its plans or volumes: one element of a static dispatcher each.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SplitTypes.h"

namespace orlix::imaproc {

/// `TImagePtr` is ImagePtr or ImageConstPtr. Elements go z fastest, then c, then t.
template <class TImagePtr>
class BaseSubImageSplit : public processor::BaseStaticSplit
{
public:
    /// Fixes the list of sub-images. Fails for a null image, and for plans of a volume that is to stay whole.
    ProcessingResult<bool> initBase(const eSubImageSplitType& subImageType, const eVolumeParsingType& volumeParsing,
                                    const eColorParsingType& colorParsing, const eTemporalParsingType& temporalParsing,
                                    const TImagePtr& image);
    /// A view of element `index`; fails for an index outside the list.
    ProcessingResult<bool> getSubImage(unsigned long index, TImagePtr& subImage) const;

    processor::eSplitStaticType getSplitStaticType() const override
    {
        return processor::eSplitStaticType::eSubImageSplit;
    }
    processor::ElementDemand getElementDemand() const override { return {true, m_nbElements, m_cost}; }
    void clear() override { m_image.reset(); }

private:
    TImagePtr m_image;
    bool m_bWholeVolume = false;
    unsigned long m_nbElements = 0;
    unsigned long m_cost = 0;
};

extern template class ORLIXIMAGEPROCESSING_API BaseSubImageSplit<ImagePtr>;
extern template class ORLIXIMAGEPROCESSING_API BaseSubImageSplit<ImageConstPtr>;

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TAttribute>
class SubImageSplit final
    : public processor::FeedingSplit<BaseSubImageSplit<typename TAttribute::StorageType>, TProcessor, TAttribute>
{
public:
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned int index,
                                            const core::BaseRequestOrigin&) override
    {
        typename TAttribute::StorageType subImage;
        ProcessingResult<bool> result = this->getSubImage(index, subImage);
        if (result) {
            this->feed(lower, std::move(subImage));
        }
        return result;
    }
};

} // namespace orlix::imaproc
