// How a level gives its images to the class that works on the device where they lie.
#pragma once

#include "ORLIX/ORLIXCore/GpuSupport.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/RowDispatch.h"

namespace orlix::imaproc {

/// Does every image that `level` holds lie on a device? True where it holds none. Attributes that aren't set, or set to
/// a null pointer, say nothing.
ORLIXIMAGEPROCESSING_API bool areImagesOnDevice(const processor::BaseProcessor& level);

/// A row of a level: the image as it is, on its device.
template <class TAttribute, class TLowerAttribute = TAttribute>
struct OnDevice
{
    using Attribute = TAttribute;
    using LowerAttribute = TLowerAttribute;
    template <class TLower>
    using Split = CudaSubImageSplit<TLower, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return wholeOnDevice(processor::own<TAttribute>(attributes)->getStorage());
    }
};

/// Of a level: its way to `TGpuLevel`, a GpuLevel, which does the whole work of the level in one element. `TRows` are
/// `OnDevice` for each image, `SameForPlans` for each value, in the order of the level's attributes.
template <class TGpuLevel, class... TRows>
class GpuProcess
{
public:
    /// None, silently, where GPU support is off or an image of the level lies on the host: the level goes on by itself.
    /// Ready where the device is to do the work. A failure, with its text, is one of the run: nobody else tries.
    template <class TAttributes>
    processor::ProviderResult tryToLaunch(const processor::BaseProcessor& level, const TAttributes& attributes,
                                          const core::BasePriority& priority,
                                          boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        if (!core::isGpuSupportActivated() || !areImagesOnDevice(level)) {
            return processor::ProviderResult::none();
        }
        const processor::ProcessorDispatchPolicy policy; // there is one element
        return m_dispatch.dispatch(attributes, policy, priority, provider);
    }

private:
    RowDispatch<StaticDispatch, TGpuLevel, TRows...> m_dispatch;
};

} // namespace orlix::imaproc
