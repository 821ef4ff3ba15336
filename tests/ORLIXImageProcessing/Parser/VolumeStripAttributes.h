// Strips of volumes and strips with margins, as attributes of the tests' own.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::test {

struct InVolumeStrip final : processor::NamedAttribute<InVolumeStrip, BaseInputZStrip3dAttribute>
{
    static constexpr const char* g_name = "InVolumeStrip";
    static constexpr const char* g_toolTip = "A strip of a volume that comes in";
};
struct OutVolumeStrip final : processor::NamedAttribute<OutVolumeStrip, BaseOutputZStrip3dAttribute>
{
    static constexpr const char* g_name = "OutVolumeStrip";
    static constexpr const char* g_toolTip = "A strip of a volume that comes out";
};
struct InOutVolumeStrip final : processor::NamedAttribute<InOutVolumeStrip, BaseInOutZStrip3dAttribute>
{
    static constexpr const char* g_name = "InOutVolumeStrip";
    static constexpr const char* g_toolTip = "A strip of a volume that is changed";
};
struct InMarginStrip final : processor::NamedAttribute<InMarginStrip, BaseInputYStrip2dWithKernelAttribute>
{
    static constexpr const char* g_name = "InMarginStrip";
    static constexpr const char* g_toolTip = "A strip with margins";
};
struct InMarginVolumeStrip final : processor::NamedAttribute<InMarginVolumeStrip, BaseInputZStrip3dWithKernelAttribute>
{
    static constexpr const char* g_name = "InMarginVolumeStrip";
    static constexpr const char* g_toolTip = "A strip of a volume with margins";
};

/// An attribute that holds a strip of `image`; `args` are the strip's place and margins.
template <class TAttribute, class... TArgs>
boost::shared_ptr<TAttribute> stripAttribute(const ImagePtr& image, const TArgs&... args)
{
    auto attribute = boost::make_shared<TAttribute>();
    attribute->init(boost::make_shared<typename TAttribute::StripType>(*image, args...));
    return attribute;
}

} // namespace orlix::imaproc::test
