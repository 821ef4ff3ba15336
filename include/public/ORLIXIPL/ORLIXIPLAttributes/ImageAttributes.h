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

class ORLIXIPLATTRIBUTES_API InImg3d final : public processor::NamedAttribute<InImg3d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InImg3d";
    static constexpr const char* g_toolTip = "Input volume";
};

class ORLIXIPLATTRIBUTES_API InImg2d final : public processor::NamedAttribute<InImg2d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InImg2d";
    static constexpr const char* g_toolTip = "Input slice";
};

class ORLIXIPLATTRIBUTES_API InSubImg3d final : public processor::NamedAttribute<InSubImg3d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubImg3d";
    static constexpr const char* g_toolTip = "Input volume of one channel and time step";
};

class ORLIXIPLATTRIBUTES_API InSubGpuImg final : public processor::NamedAttribute<InSubGpuImg, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubGpuImg";
    static constexpr const char* g_toolTip = "Input image on a CUDA device";
};

class ORLIXIPLATTRIBUTES_API InROIImg final : public processor::NamedAttribute<InROIImg, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InROIImg";
    static constexpr const char* g_toolTip = "Image that is put into the region";
};

class ORLIXIPLATTRIBUTES_API InROIImg3d final : public processor::NamedAttribute<InROIImg3d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InROIImg3d";
    static constexpr const char* g_toolTip = "Image that is put into the region of a volume";
};

class ORLIXIPLATTRIBUTES_API InSubROIImg2d final
    : public processor::NamedAttribute<InSubROIImg2d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubROIImg2d";
    static constexpr const char* g_toolTip = "Plan that is put into the region";
};

class ORLIXIPLATTRIBUTES_API InSubROIImg3d final
    : public processor::NamedAttribute<InSubROIImg3d, BaseInputImageAttribute>
{
public:
    static constexpr const char* g_name = "InSubROIImg3d";
    static constexpr const char* g_toolTip = "Volume that is put into the region";
};

class ORLIXIPLATTRIBUTES_API OutImg2d final : public processor::NamedAttribute<OutImg2d, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutImg2d";
    static constexpr const char* g_toolTip = "Output slice";
};

class ORLIXIPLATTRIBUTES_API OutBinImg3d final : public processor::NamedAttribute<OutBinImg3d, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutBinImg3d";
    static constexpr const char* g_toolTip = "Binary output volume";

    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

class ORLIXIPLATTRIBUTES_API OutSubBinImg3d final
    : public processor::NamedAttribute<OutSubBinImg3d, BaseOutputImageAttribute>
{
public:
    static constexpr const char* g_name = "OutSubBinImg3d";
    static constexpr const char* g_toolTip = "Binary output volume of one channel and time step";

    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

} // namespace orlix::imaproc::attr
