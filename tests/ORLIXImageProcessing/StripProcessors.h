// The levels below a split under test: processors that write down the plans and strips that they get.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace orlix::imaproc::test {

/// Lines of a strip, and where they begin in memory.
struct StripSeen
{
    unsigned long start;
    unsigned long size;
    const void* in;
    const void* out;
};

/// Writes down the strips of all its processors.
class StripRecorder final
    : public processor::Scaffold<StripRecorder, processor::BaseSyncProcessor, PictureLibrary, InStrip, OutStrip>
{
public:
    static constexpr processor::ProcessorText g_text{"StripRecorder", 0, "StripRecorder.h"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    /// What was seen since the last call, in order of lines.
    static std::vector<StripSeen> takeSeen()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        std::vector<StripSeen> taken = std::exchange(seen(), {});
        std::sort(taken.begin(), taken.end(), [](const StripSeen& a, const StripSeen& b) { return a.start < b.start; });
        return taken;
    }

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const image::BaseImageYStrip2d& in = accessAttribute<InStrip>()->getBaseImageYStrip2d();
        const image::BaseImageYStrip2d& out = accessAttribute<OutStrip>()->getBaseImageYStrip2d();
        const bool bSameLines =
            in.getStripStartOffsetY() == out.getStripStartOffsetY() && in.getStripSizeY() == out.getStripSizeY();
        const std::lock_guard<std::mutex> lock(mutex());
        seen().push_back({in.getStripStartOffsetY(), in.getStripSizeY(),
                          accessAttribute<InStrip>()->getStorage()->accessBuffer(),
                          accessAttribute<OutStrip>()->getStorage()->accessBuffer()});
        return bSameLines ? ProcessingResult<bool>(true) : ProcessingResult<bool>::failure("different lines");
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
    static std::vector<StripSeen>& seen()
    {
        static std::vector<StripSeen> g_seen;
        return g_seen;
    }
};

using InStripSplit = ImageYStrip2dSplit<StripRecorder, const image::BaseImage, InStrip>;
using OutStripSplit = ImageYStrip2dSplit<StripRecorder, image::BaseImage, OutStrip>;

/// One plan, cut into strips.
class PlanLevel final
    : public processor::Scaffold<PlanLevel, processor::BaseAsync1Processor, PictureLibrary, InPicture, OutPicture>
{
public:
    static constexpr processor::ProcessorText g_text{"PlanLevel", 0, "PlanLevel.h"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    processor::ProcessorDispatchPolicy m_policy;

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        m_lower.accessDispatcher().setDispatchPolicy(m_policy);
        return m_lower.dispatch(priority, provider, stripByStrip(accessAttribute<InPicture>()->getStorage()),
                                stripByStrip(accessAttribute<OutPicture>()->getStorage()));
    }

private:
    DynamicDispatch<StripRecorder, InStripSplit, OutStripSplit> m_lower;
};

/// A whole image, cut into plans.
class ImageLevel final
    : public processor::Scaffold<ImageLevel, processor::BaseAsync1Processor, PictureLibrary, InPicture, OutPicture>
{
public:
    static constexpr processor::ProcessorText g_text{"ImageLevel", 0, "ImageLevel.h"};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        return m_lower.dispatch(priority, provider, planByPlan(accessAttribute<InPicture>()->getStorage()),
                                planByPlan(accessAttribute<OutPicture>()->getStorage()));
    }

private:
    StaticDispatch<PlanLevel, SubImageSplit<PlanLevel, InPicture>, SubImageSplit<PlanLevel, OutPicture>> m_lower;
};

template <class TProcessor>
boost::shared_ptr<TProcessor> makeInitialised()
{
    auto made = boost::make_shared<TProcessor>();
    static_cast<void>(made->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    return made;
}

} // namespace orlix::imaproc::test
