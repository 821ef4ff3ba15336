#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

namespace orlix::imaproc {

std::string BaseImageAttribute::getValueKind() const
{
    return "image";
}

bool isInSitu(const BaseImageAttribute& input, const BaseImageAttribute& output)
{
    return input.isHeld() && output.isHeld() && input.getImage().sharesPixelsWith(output.getImage());
}

} // namespace orlix::imaproc
