// A level's way down: what is set up from run to run, what is left alone on failure, and nothing kept afterwards.
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using Plans = StaticDispatch<PlanLevel, SubImageSplit<PlanLevel, InPicture>, SubImageSplit<PlanLevel, OutPicture>>;

ImagePtr makeImage(unsigned long sizeZ)
{
    return createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, sizeZ, 2, 2));
}

TEST(LevelDispatch, EveryPlanReachesALevelOfItsOwnAndEveryLineAStrip)
{
    const ImagePtr in = makeImage(3);
    const ImagePtr out = makeImage(3);
    for (const orlix::testing::NamedExecutor& each : orlix::testing::makeAllExecutors()) {
        const orlix::testing::ScopedExecutor scope(each.executor);
        const auto level = makeInitialised<ImageLevel>();
        level->set<InPicture>(in);
        level->set<OutPicture>(out);
        EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
        std::vector<StripSeen> strips = StripRecorder::takeSeen();
        EXPECT_EQ(strips.size(), 12u) << each.name;
        std::sort(strips.begin(), strips.end(), [](const auto& a, const auto& b) { return a.in < b.in; });
        for (unsigned long plan = 0; plan < strips.size(); ++plan) {
            const unsigned long z = plan % 3;
            const unsigned long c = plan / 3 % 2;
            const unsigned long t = plan / 6;
            EXPECT_EQ(strips[plan].in, in->accessRow(0, z, c, t));
            EXPECT_EQ(strips[plan].out, out->accessRow(0, z, c, t)) << "element i of each split belongs together";
            EXPECT_EQ(strips[plan].size, 4u);
        }
    }
}

TEST(LevelDispatch, CanBeUsedAgainWithOtherImages)
{
    const auto level = makeInitialised<ImageLevel>();
    for (const unsigned long sizeZ : {3UL, 1UL, 0UL, 5UL}) {
        const ImagePtr in = makeImage(sizeZ);
        const ImagePtr out = makeImage(sizeZ);
        level->set<InPicture>(in);
        level->set<OutPicture>(out);
        EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
        EXPECT_EQ(StripRecorder::takeSeen().size(), 4 * sizeZ);
        level->clearInputData();
        level->clearOutputData();
        EXPECT_EQ(in.use_count(), 1) << "nothing of a run is kept";
        EXPECT_EQ(out.use_count(), 1);
    }
}

TEST(LevelDispatch, AFailedSetUpLeavesTheProviderAloneAndKeepsNoImage)
{
    Plans plans;
    boost::shared_ptr<core::BaseActionProvider> provider;
    const ImageConstPtr in = makeImage(2);
    const ImagePtr out = makeImage(3);
    const ImagePtr nothing;
    for (const ImagePtr& second : {out, nothing}) {
        const processor::ProviderResult result =
            plans.dispatch(core::BasePriority(), provider, planByPlan(in), planByPlan(second));
        EXPECT_EQ(result.status, processor::eProviderStatus::eProviderFailed);
        EXPECT_EQ(std::string(result.message),
                  second ? "PlanLevel: all splits must have the same number of elements, but InPicture has 8 and "
                           "OutPicture has 12"
                         : "There is no image to cut: set the attribute that holds it");
        EXPECT_FALSE(provider);
        EXPECT_EQ(in.use_count(), 1);
    }
    const ImagePtr same = makeImage(2);
    const processor::ProviderResult result =
        plans.dispatch(core::BasePriority(), provider, planByPlan(in), planByPlan(same));
    EXPECT_EQ(result.status, processor::eProviderStatus::eProviderReady);
    EXPECT_EQ(std::string(result.message), "");
    EXPECT_EQ(provider.get(), &plans.accessDispatcher());
    EXPECT_EQ(provider->getNbElements(), 8u);
}

/// A level that wants strips of one line of 128 bytes.
class LowStrips final
    : public processor::Scaffold<LowStrips, processor::BaseAsync1Processor, PictureLibrary, InPicture, OutPicture>
{
public:
    static constexpr processor::ProcessorText g_text{"LowStrips", 0};

    static const processor::ProcessorDispatchPolicy& getDefaultDispatchPolicy()
    {
        static const processor::ProcessorDispatchPolicy g_policy = policyOf(128);
        return g_policy;
    }
    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        return m_lower.dispatch(getDispatchPolicy(), priority, provider,
                                stripByStrip(accessAttribute<InPicture>()->getStorage()),
                                stripByStrip(accessAttribute<OutPicture>()->getStorage()));
    }

private:
    DynamicDispatch<StripRecorder, InStripSplit, OutStripSplit> m_lower;
};

TEST(LevelDispatch, ThePolicyOfTheLevelReachesItsDispatcher)
{
    const auto geometry = image::geometry2d(eImageBufferType::UInt8, 128, 5);
    const auto level = makeInitialised<LowStrips>();
    for (int repetition = 0; repetition < 2; ++repetition) {
        level->set<InPicture>(createImage(*geometry));
        level->set<OutPicture>(createImage(*geometry));
        EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
        const std::vector<StripSeen> strips = StripRecorder::takeSeen();
        ASSERT_EQ(strips.size(), 5u) << "a strip for each line";
        for (unsigned long line = 0; line < 5; ++line) {
            EXPECT_EQ(strips[line].start, line);
            EXPECT_EQ(strips[line].size, 1u);
        }
    }
}

TEST(LevelDispatch, AFailureInSplitsEndsTheRunWithTheirMessage)
{
    const auto level = makeInitialised<ImageLevel>();
    level->set<InPicture>(makeImage(2));
    level->set<OutPicture>(makeImage(3));
    EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)),
              "PlanLevel: all splits must have the same number of elements, but InPicture has 8 and OutPicture has 12");
    EXPECT_TRUE(StripRecorder::takeSeen().empty()) << "no lower processor starts";
}

TEST(LevelDispatch, SourcesSayWhetherASplitIsLocalized)
{
    const ImagePtr volume = makeImage(3);
    const ImagePtr plan = createImage(*image::geometry2d(eImageBufferType::UInt8, 5, 4));
    SubImageSplit<PlanLevel, OutPicture> planSplit;
    SubImageSplit<PlanLevel, OutPicture> volumeSplit;
    OutStripSplit stripSplit;
    for (const bool bLocalized : {false, true, false}) {
        EXPECT_EQ(failureOf(planByPlan(volume, bLocalized).init(planSplit)), "no failure");
        EXPECT_EQ(planSplit.isDataLocalized(), bLocalized);
        EXPECT_EQ(failureOf(volumeByVolume(volume, bLocalized).init(volumeSplit)), "no failure");
        EXPECT_EQ(volumeSplit.isDataLocalized(), bLocalized);
        EXPECT_EQ(volumeSplit.getElementDemand().nbElements, 4u);
        EXPECT_EQ(failureOf(stripByStrip(plan, bLocalized).init(stripSplit)), "no failure");
        EXPECT_EQ(stripSplit.isDataLocalized(), bLocalized);
    }
}

} // namespace
} // namespace orlix::imaproc::test
