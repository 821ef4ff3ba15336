#include "ORLIXIPL/ORLIXIPLUtility/Rule/SequenceRuleUtils.h"

#include "ORLIXIPL/ORLIXImageProcessing/HeldImage.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

FullAppendSeqImageSize::~FullAppendSeqImageSize() = default;

image::TemporalGeometry FullAppendSeqImageSize::getTemporalGeometry() const
{
    const ImageConstPtr first = getInputImage();
    const ImageConstPtr second = imageHeldBy(m_second);
    image::TemporalGeometry temporal;
    temporal.initSequence(requireImage(first).getSizeT() + requireImage(second).getSizeT());
    return temporal;
}

boost::shared_ptr<BaseCustomCheckedImageProperty>
matchAppendSeq(const boost::weak_ptr<const BaseImageAttribute>& first,
               const boost::weak_ptr<const BaseImageAttribute>& second)
{
    auto property = boost::make_shared<FullAppendSeqImageSize>(second);
    property->initBase(first);
    property->enableCheck(eCheckableImageProperty::eTemporalGeometry);
    return property;
}

} // namespace orlix::imaproc::util
