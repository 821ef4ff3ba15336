// The attributes of the operators that tell an element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InConvertImageBufferType final
    : public processor::NamedAttribute<InConvertImageBufferType, processor::IPEnumAttribute<image::eImageBufferType>>
{
public:
    static constexpr const char* g_name = "InConvertImageBufferType";
    static constexpr const char* g_toolTip = "Element type of the output image";
};

} // namespace orlix::imaproc::attr
