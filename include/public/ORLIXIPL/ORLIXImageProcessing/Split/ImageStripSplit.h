// What all splits of images into strips have in common.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SplitTypes.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

struct eImageStripSplitType
{
    enum domain {
        eYStrip2d = 0,
        eZStrip3d = 1,
        eYSubStrip2d = 2,
        eZSubStrip3d = 3,
        eYStrip2dWithKernel = 4,
        eZStrip3dWithKernel = 5
    };
    ORLIX_ENUMERATION(eImageStripSplitType, eYStrip2d);
};

/// `TImage` is image::BaseImage or const image::BaseImage. Strips live no longer than the run, since they don't keep
/// the image alive, and the split does until `clear`. A strip of a plan is a range of its lines; one of a volume is a
/// range of its plans, and plans are the dispatcher's lines then.
template <class TImage>
class BaseImageStripSplit : public processor::BaseDynamicSplit
{
public:
    processor::eSplitDynamicType getSplitDynamicType() const override
    {
        return processor::eSplitDynamicType::eImageStripSplit;
    }
    virtual eImageStripSplitType getImageStripSplitType() const = 0;

    /// An image without pixels has its lines, but nothing in them.
    processor::RangeDemand getRangeDemand() const override { return m_demand; }
    void clear() override { m_image.reset(); }

protected:
    // All fail for a null image and for one on a device; those for plans also for an image of several plans, those for
    // volumes for one of several channels or time steps.

    /// All lines of a plan. Every strip but the last holds whole blocks of the widest kernel, whatever memory the plan
    /// lies in.
    ProcessingResult<bool> initPlan(const boost::shared_ptr<TImage>& image);
    /// Lines [start, start + size) of a plan, for kernels that write no further than their count: strips may have any
    /// number of lines. `lineBytes` are those that the kernel touches of each line, if it doesn't touch all. Fails
    /// where the plan has fewer lines.
    ProcessingResult<bool> initSubPlan(const boost::shared_ptr<TImage>& image, unsigned long start, unsigned long size,
                                       unsigned long lineBytes = ~0UL);
    ProcessingResult<bool> initVolume(const boost::shared_ptr<TImage>& image);
    /// Plans [start, start + size) of a volume, of each of which `planBytes` are touched. Fails where the volume has
    /// fewer.
    ProcessingResult<bool> initSubVolume(const boost::shared_ptr<TImage>& image, unsigned long start,
                                         unsigned long size, unsigned long planBytes = ~0UL);
    /// Fails for a range that is not within the lines that are given out.
    ProcessingResult<bool> checkRange(unsigned long start, unsigned long size) const
    {
        return start <= m_demand.nbLines && size <= m_demand.nbLines - start ? true : failRange(start, size);
    }

    TImage& accessImage() const { return *m_image; }
    /// Of the image's lines or plans, the first that is given out.
    unsigned long getFirst() const { return m_first; }

private:
    ProcessingResult<bool> failRange(unsigned long start, unsigned long size) const;

    boost::shared_ptr<TImage> m_image;
    unsigned long m_first = 0;
    processor::RangeDemand m_demand{true, 0, 0, 1};
};

extern template class ORLIXIMAGEPROCESSING_API BaseImageStripSplit<image::BaseImage>;
extern template class ORLIXIMAGEPROCESSING_API BaseImageStripSplit<const image::BaseImage>;

/// Makes strips of class `TStrip`, and hands them on.
template <class TImage, class TStrip>
class BaseTImageStripSplit : public BaseImageStripSplit<TImage>
{
public:
    using StripType = TStrip;

    virtual ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                                    const boost::shared_ptr<TStrip>& strip) = 0;
    using BaseImageStripSplit<TImage>::processAttribute;

protected:
    /// The strip of range [start, start + size) of what is given out; `args` are what its constructor takes besides.
    template <class... TArgs>
    ProcessingResult<bool> handOn(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                  const TArgs&... args)
    {
        if (ProcessingResult<bool> result = this->checkRange(start, size); !result) {
            return result;
        }
        if (m_strip && m_strip.use_count() == 1) {
            *m_strip = TStrip(this->accessImage(), this->getFirst() + start, size, args...);
        } else {
            m_strip = boost::make_shared<TStrip>(this->accessImage(), this->getFirst() + start, size, args...);
        }
        return processAttribute(lower, m_strip);
    }

private:
    boost::shared_ptr<TStrip> m_strip; ///< the last one made, for use again once its processor has let it go
};

/// Feeds attribute `TAttribute` of processors of class `TProcessor` with the strips that `TBase` makes.
template <class TBase, class TProcessor, class TAttribute>
class FeedingStripSplit final : public processor::FeedingSplit<TBase, TProcessor, TAttribute>
{
public:
    using TBase::processAttribute;
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                            const boost::shared_ptr<typename TBase::StripType>& strip) override
    {
        this->feed(lower, strip);
        return true;
    }
};

} // namespace orlix::imaproc
