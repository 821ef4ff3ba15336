// The strip attributes of the operators.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InYStrip2d final : public processor::NamedAttribute<InYStrip2d, BaseInputYStrip2dAttribute>
{
public:
    static constexpr const char* g_name = "InYStrip2d";
    static constexpr const char* g_toolTip = "Input strip: a range of lines of a plan";
};

class ORLIXIPLATTRIBUTES_API OutYStrip2d final
    : public processor::NamedAttribute<OutYStrip2d, BaseOutputYStrip2dAttribute>
{
public:
    static constexpr const char* g_name = "OutYStrip2d";
    static constexpr const char* g_toolTip = "Output strip: a range of lines of a plan";
};

class ORLIXIPLATTRIBUTES_API OutBinYStrip2d final
    : public processor::NamedAttribute<OutBinYStrip2d, BaseOutputYStrip2dAttribute>
{
public:
    static constexpr const char* g_name = "OutBinYStrip2d";
    static constexpr const char* g_toolTip = "Binary output strip: a range of lines of a plan";

    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

} // namespace orlix::imaproc::attr
