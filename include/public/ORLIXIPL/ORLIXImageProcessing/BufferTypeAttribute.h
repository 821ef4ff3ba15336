// What initializers and rules take for an attribute that tells an element type.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

namespace orlix::imaproc {

using BufferTypeAttribute = processor::BaseValueAttribute<image::eImageBufferType>;

} // namespace orlix::imaproc
