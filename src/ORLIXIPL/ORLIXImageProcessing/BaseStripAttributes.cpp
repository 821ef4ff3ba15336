#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc {

std::string BaseStripAttribute::getValueKind() const
{
    return "strip";
}

image::eImageBufferType BaseStripAttribute::getFixedBufferType() const
{
    return image::eImageBufferType::eNoBuffer;
}

} // namespace orlix::imaproc
