#include "ORLIXIPL/ORLIXImageProcessing/ImageAttributes.h"

namespace orlix::imaproc {

bool isInSitu(const BaseImageAttribute& input, const BaseImageAttribute& output)
{
    const bool bBoth = input.isSet() && output.isSet() && !input.isNull() && !output.isNull();
    return bBoth && input.getImage().sharesPixelsWith(output.getImage());
}

} // namespace orlix::imaproc
