// Hands an image on a device over as it is: one element of a static dispatcher.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SplitTypes.h"

namespace orlix::imaproc {

/// `TImagePtr` is ImagePtr or ImageConstPtr.
template <class TImagePtr>
class BaseCudaSubImageSplit : public processor::BaseStaticSplit
{
public:
    /// Takes the image. Fails for a null one, and for a type other than `eSubImageOnDevice`. There is one element, none
    /// of an image without pixels.
    ProcessingResult<bool> initBase(const eSubImageSplitType& subImageType, const TImagePtr& image);
    const TImagePtr& getImage() const { return m_image; }

    processor::eSplitStaticType getSplitStaticType() const override
    {
        return processor::eSplitStaticType::eSubImageSplit;
    }
    processor::ElementDemand getElementDemand() const override { return {true, m_nbElements, m_cost}; }
    void clear() override { m_image.reset(); }

private:
    TImagePtr m_image;
    unsigned long m_nbElements = 0;
    unsigned long m_cost = 0;
};

extern template class ORLIXIMAGEPROCESSING_API BaseCudaSubImageSplit<ImagePtr>;
extern template class ORLIXIMAGEPROCESSING_API BaseCudaSubImageSplit<ImageConstPtr>;

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TAttribute>
class CudaSubImageSplit final
    : public processor::FeedingSplit<BaseCudaSubImageSplit<typename TAttribute::StorageType>, TProcessor, TAttribute>
{
public:
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned int,
                                            const core::BaseRequestOrigin&) override
    {
        this->feed(lower, this->getImage());
        return true;
    }
};

} // namespace orlix::imaproc
