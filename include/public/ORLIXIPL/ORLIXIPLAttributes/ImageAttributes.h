// The image and sub-image attributes of the operators.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

namespace orlix::imaproc::attr {

class ORLIXIPLATTRIBUTES_API InImg final : public processor::NamedAttribute<InImg, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InImg";
    static constexpr const char* g_toolTip = "Input image";
};

class ORLIXIPLATTRIBUTES_API OutImg final : public processor::NamedAttribute<OutImg, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutImg";
    static constexpr const char* g_toolTip = "Output image";
};

class ORLIXIPLATTRIBUTES_API OutBinImg final : public processor::NamedAttribute<OutBinImg, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutBinImg";
    static constexpr const char* g_toolTip = "Binary output image";

    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

class ORLIXIPLATTRIBUTES_API InSubImg2d final : public processor::NamedAttribute<InSubImg2d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubImg2d";
    static constexpr const char* g_toolTip = "Input plan";
};

class ORLIXIPLATTRIBUTES_API OutSubImg2d final : public processor::NamedAttribute<OutSubImg2d, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutSubImg2d";
    static constexpr const char* g_toolTip = "Output plan";
};

} // namespace orlix::imaproc::attr
