// Cuts a plan into strips: ranges of lines that a dynamic dispatcher decides.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SplitTypes.h"

#include <boost/make_shared.hpp>

#include <type_traits>

namespace orlix::imaproc {

struct eImageStripSplitType
{
    enum domain { eYStrip2d = 0 };
    ORLIX_ENUMERATION(eImageStripSplitType, eYStrip2d);
};

/// `TImage` is image::BaseImage or const image::BaseImage.
template <class TImage>
class ORLIXIMAGEPROCESSING_API BaseImageStripSplit : public processor::BaseDynamicSplit
{
public:
    processor::eSplitDynamicType getSplitDynamicType() const override
    {
        return processor::eSplitDynamicType::eImageStripSplit;
    }
    virtual eImageStripSplitType getImageStripSplitType() const = 0;

    processor::RangeDemand getRangeDemand() const override;
    void clear() override { m_image = nullptr; }

protected:
    /// Fails for a null image and for one of several plans.
    ProcessingResult<bool> initImage(const boost::shared_ptr<TImage>& image);
    TImage& accessImage() const { return *m_image; }

private:
    TImage* m_image = nullptr; ///< kept alive by the attribute that it was taken from
};

extern template class BaseImageStripSplit<image::BaseImage>;
extern template class BaseImageStripSplit<const image::BaseImage>;

/// Neither the split nor its strips keep the image alive: the attribute that holds it does, for as long as the run.
template <class TImage, class TStrip>
class BaseImageYStrip2dSplit : public BaseImageStripSplit<TImage>
{
public:
    ProcessingResult<bool> initBase(const boost::shared_ptr<TImage>& image, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&, const image::eStripParsingDirection&)
    {
        return this->initImage(image);
    }
    ProcessingResult<bool> initBase(boost::shared_ptr<TImage>&&, const image::eStripAllocationType&,
                                    const image::eStripParsingDirection&, const image::eStripParsingDirection&) = delete;

    eImageStripSplitType getImageStripSplitType() const override { return eImageStripSplitType::eYStrip2d; }

    /// Makes the strip of lines [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        if (m_strip && m_strip.use_count() == 1) {
            *m_strip = TStrip(this->accessImage(), start, size);
        } else {
            m_strip = boost::make_shared<TStrip>(this->accessImage(), start, size);
        }
        return processAttribute(lower, m_strip);
    }
    virtual ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                                    const boost::shared_ptr<TStrip>& strip) = 0;

private:
    boost::shared_ptr<TStrip> m_strip; ///< the last one made, for use again once its processor has let it go
};

/// The strip that goes with an image: input for a const image, output for another.
template <class TImage>
using YStrip2dOf = std::conditional_t<std::is_const_v<TImage>, image::InputImageYStrip2d, image::OutputImageYStrip2d>;

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TProcessor, class TImage, class TAttribute>
class ImageYStrip2dSplit final
    : public processor::FeedingSplit<BaseImageYStrip2dSplit<TImage, YStrip2dOf<TImage>>, TProcessor, TAttribute>
{
public:
    using BaseImageYStrip2dSplit<TImage, YStrip2dOf<TImage>>::processAttribute;
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                            const boost::shared_ptr<YStrip2dOf<TImage>>& strip) override
    {
        this->feed(lower, strip);
        return true;
    }
};

} // namespace orlix::imaproc
