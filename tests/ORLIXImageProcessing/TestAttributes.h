// Image and strip attributes of the tests' own, and a library for processors over them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"

namespace orlix::imaproc::test {

struct InPicture final : processor::NamedAttribute<InPicture, BaseInputImageAttribute>
{
    static constexpr const char* g_name = "InPicture";
    static constexpr const char* g_toolTip = "A picture that comes in";
};

struct OutPicture final : processor::NamedAttribute<OutPicture, BaseOutputImageAttribute>
{
    static constexpr const char* g_name = "OutPicture";
    static constexpr const char* g_toolTip = "A picture that comes out";
};

/// Binary images alone.
struct OutMask final : processor::NamedAttribute<OutMask, BaseOutputImageAttribute>
{
    static constexpr const char* g_name = "OutMask";
    static constexpr const char* g_toolTip = "A mask that comes out";
    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

struct InStrip final : processor::NamedAttribute<InStrip, BaseInputYStrip2dAttribute>
{
    static constexpr const char* g_name = "InStrip";
    static constexpr const char* g_toolTip = "A strip that comes in";
};

/// May be left out.
struct InOptStrip final : processor::NamedAttribute<InOptStrip, BaseInputYStrip2dAttribute>
{
    static constexpr const char* g_name = "InOptStrip";
    static constexpr const char* g_toolTip = "A strip that may come in";
    bool isOptional() const override { return true; }
};

struct OutStrip final : processor::NamedAttribute<OutStrip, BaseOutputYStrip2dAttribute>
{
    static constexpr const char* g_name = "OutStrip";
    static constexpr const char* g_toolTip = "A strip that comes out";
};

/// Binary strips alone.
struct OutMaskStrip final : processor::NamedAttribute<OutMaskStrip, BaseOutputYStrip2dAttribute>
{
    static constexpr const char* g_name = "OutMaskStrip";
    static constexpr const char* g_toolTip = "A strip of a mask that comes out";
    image::eImageBufferType getFixedBufferType() const override { return image::eImageBufferType::eBufferBinary; }
};

struct InKind final : processor::NamedAttribute<InKind, BufferTypeAttribute>
{
    static constexpr const char* g_name = "InKind";
    static constexpr const char* g_toolTip = "An element type";
};

struct PictureLibrary
{
    static constexpr const char* g_name = "PictureLibrary";
    static constexpr const char* g_namespace = "orlix::imaproc::test";
    static std::string toolTip(int) { return "A processor of the tests"; }
};

inline std::string failureOf(const ProcessingResult<bool>& result)
{
    return result ? "no failure" : result.getMessage();
}

/// A geometry of one type per time step.
inline image::BaseImageGeometry mixedGeometry(const std::vector<image::eImageBufferType>& types, unsigned long sizeX,
                                              unsigned long sizeY, unsigned long sizeZ)
{
    image::VolumeGeometry volume;
    volume.init3d(sizeZ);
    image::TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {types, sizeX, sizeY, volume, image::ColorGeometry(), temporal};
}

} // namespace orlix::imaproc::test
