#include "ORLIXIPL/ORLIXImageProcessing/StripAttributes.h"

namespace orlix::imaproc {

std::string BaseStripAttribute::getValueKind() const
{
    return "strip";
}

} // namespace orlix::imaproc
