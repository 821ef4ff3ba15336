// A level below that keeps what its attributes were given, and attributes for strips and tiles of all kinds.
#pragma once

#include "ORLIXCore/TestActions.h"
#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"
#include "ORLIXIPL/ORLIXImageProcessing/TileCollAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"
#include "ORLIXImageProcessing/StripProcessors.h"

#include <gtest/gtest.h>

#include <mutex>
#include <tuple>
#include <utility>

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
struct InTiles final : processor::NamedAttribute<InTiles, BaseInputTile2dCollAttribute>
{
    static constexpr const char* g_name = "InTiles";
    static constexpr const char* g_toolTip = "Tiles of a plan";
};
struct InBoxes final : processor::NamedAttribute<InBoxes, BaseInputTile3dCollAttribute>
{
    static constexpr const char* g_name = "InBoxes";
    static constexpr const char* g_toolTip = "Tiles of a volume";
};

template <class... TAttributes>
class StorageRecorder final : public processor::Scaffold<StorageRecorder<TAttributes...>, processor::BaseSyncProcessor,
                                                         PictureLibrary, TAttributes...>
{
public:
    static constexpr processor::ProcessorText g_text{"StorageRecorder", 0, "StorageRecorder.h"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    using Seen = std::tuple<typename TAttributes::StorageType...>;

    /// What elements were given since the last call, in the order in which they ended.
    static std::vector<Seen> takeSeen()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        return std::exchange(seen(), {});
    }

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const std::lock_guard<std::mutex> lock(mutex());
        seen().push_back(Seen(this->template accessAttribute<TAttributes>()->getStorage()...));
        return true;
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
    static std::vector<Seen>& seen()
    {
        static std::vector<Seen> g_seen;
        return g_seen;
    }
};

/// Where a strip begins in its image, and its size.
using Extent = std::pair<unsigned long, unsigned long>;
inline Extent extentOf(const image::BaseImageYStrip2d& strip)
{
    return {strip.getStripStartOffsetY(), strip.getStripSizeY()};
}
inline Extent extentOf(const image::BaseImageZStrip3d& strip)
{
    return {strip.getStripStartOffsetZ(), strip.getStripSizeZ()};
}

/// What the elements of a way down were given, sorted by the place of their first strip.
template <class TLower, class TWay, class... TSources>
std::vector<typename TLower::Seen> seenBy(core::BaseExecutor& executor, TWay& way, const TSources&... sources)
{
    boost::shared_ptr<core::BaseActionProvider> provider;
    const processor::ProviderResult result = way.dispatch(core::BasePriority(), provider, sources...);
    EXPECT_EQ(result.status, processor::eProviderStatus::eProviderReady) << std::string(result.message);
    if (provider) {
        EXPECT_EQ(failureOf(core::runOn(executor, *provider)), "no failure");
    }
    auto seen = TLower::takeSeen();
    std::sort(seen.begin(), seen.end(), [](const auto& left, const auto& right) {
        return extentOf(*std::get<0>(left)) < extentOf(*std::get<0>(right));
    });
    return seen;
}

/// A policy whose ranges hold so many bytes, rounded up to what splits ask.
inline processor::ProcessorDispatchPolicy policyOf(unsigned long stripBytes)
{
    processor::ProcessorDispatchPolicy policy;
    policy.initStripBytes(stripBytes);
    return policy;
}

} // namespace orlix::imaproc::test
