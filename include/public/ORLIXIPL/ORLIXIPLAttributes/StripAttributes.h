// The strip attributes of the operators.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"

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

class ORLIXIPLATTRIBUTES_API InZStrip3d final : public processor::NamedAttribute<InZStrip3d, BaseInputZStrip3dAttribute>
{
public:
    static constexpr const char* g_name = "InZStrip3d";
    static constexpr const char* g_toolTip = "Input strip: a range of plans of a volume";
};

class ORLIXIPLATTRIBUTES_API OutZStrip3d final
    : public processor::NamedAttribute<OutZStrip3d, BaseOutputZStrip3dAttribute>
{
public:
    static constexpr const char* g_name = "OutZStrip3d";
    static constexpr const char* g_toolTip = "Output strip: a range of plans of a volume";
};

class ORLIXIPLATTRIBUTES_API InOutZStrip3d final
    : public processor::NamedAttribute<InOutZStrip3d, BaseInOutZStrip3dAttribute>
{
public:
    static constexpr const char* g_name = "InOutZStrip3d";
    static constexpr const char* g_toolTip = "Strip that is written in part: a range of plans of a volume";
};

class ORLIXIPLATTRIBUTES_API OutBinZStrip3d final
    : public processor::NamedAttribute<OutBinZStrip3d, BaseOutputZStrip3dAttribute>
{
public:
    static constexpr const char* g_name = "OutBinZStrip3d";
    static constexpr const char* g_toolTip = "Binary output strip: a range of plans of a volume";

    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

class ORLIXIPLATTRIBUTES_API InKnlYStrip2d final
    : public processor::NamedAttribute<InKnlYStrip2d, BaseInputYStrip2dWithKernelAttribute>
{
public:
    static constexpr const char* g_name = "InKnlYStrip2d";
    static constexpr const char* g_toolTip = "Input strip with what lies around it: a range of lines of a plan";
};

class ORLIXIPLATTRIBUTES_API InKnlZStrip3d final
    : public processor::NamedAttribute<InKnlZStrip3d, BaseInputZStrip3dWithKernelAttribute>
{
public:
    static constexpr const char* g_name = "InKnlZStrip3d";
    static constexpr const char* g_toolTip = "Input strip with what lies around it: a range of plans of a volume";
};

} // namespace orlix::imaproc::attr
