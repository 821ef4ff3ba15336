// Levels that may have nothing to do, may leave the work to a GPU, or do it in two stages.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/TwoStageLevel.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;

using PlanRecorder = StorageRecorder<InPicture, OutPicture>;

/// What the next level that could launch a GPU says of it, and how often one was asked.
struct Gpu
{
    processor::ProviderResult answer = processor::ProviderResult::none();
    boost::shared_ptr<core::BaseActionProvider> provider;
    unsigned nbAsked = 0;
};
Gpu& gpu()
{
    static Gpu g_gpu;
    return g_gpu;
}

class GpuLevel final
    : public imaproc::PlanLevel<GpuLevel, PictureLibrary, PlanRecorder, ByPlan<InPicture>, ByPlan<OutPicture>>
{
public:
    static constexpr processor::ProcessorText g_text{"GpuLevel", 0};
    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;
    using NothingToDo = InSitu<InPicture, OutPicture>;

    processor::ProviderResult tryToLaunchGpuProcess(const core::BasePriority&,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        ++gpu().nbAsked;
        provider = gpu().provider;
        return gpu().answer;
    }
};

ImagePtr makeImage(unsigned long sizeZ = 3)
{
    return createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, sizeZ, 1, 1));
}

/// The failure of a run, and how many plans the level below got.
template <class TLevel>
std::pair<std::string, unsigned long> runLevel(const ImagePtr& in, const ImagePtr& out)
{
    const auto level = makeInitialised<TLevel>();
    level->template set<InPicture>(in);
    level->template set<OutPicture>(out);
    const std::string failure = failureOf(level->run(core::eSynchroType::eSynchroSync));
    return {failure, PlanRecorder::takeSeen().size()};
}
using Outcome = std::pair<std::string, unsigned long>;

TEST(GpuLevel, IsAskedFirstAndMayTakeTheWork)
{
    gpu() = {};
    EXPECT_EQ(runLevel<GpuLevel>(makeImage(), makeImage()), Outcome("no failure", 3));
    EXPECT_EQ(gpu().nbAsked, 1u);

    unsigned long nbElements = 0;
    gpu().answer = processor::ProviderResult::ready();
    gpu().provider = boost::make_shared<core::TestProvider>(1, [&](unsigned long, core::RunContext&) {
        ++nbElements;
        return ProcessingResult<bool>(true);
    });
    EXPECT_EQ(runLevel<GpuLevel>(makeImage(), makeImage()), Outcome("no failure", 0));
    EXPECT_EQ(nbElements, 1u);

    gpu().answer = processor::ProviderResult::failed("the device is gone");
    EXPECT_EQ(runLevel<GpuLevel>(makeImage(), makeImage()), Outcome("the device is gone", 0));
}

TEST(GpuLevel, IsNotAskedWhereThereIsNothingToDo)
{
    gpu() = {};
    const ImagePtr image = makeImage();
    EXPECT_EQ(runLevel<GpuLevel>(image, image), Outcome("no failure", 0));
    EXPECT_EQ(gpu().nbAsked, 0u);
}

/// Copies would be made in the first stage, insertions in the second.

class StagedLevel final
    : public TwoStageLevel<StagedLevel, PictureLibrary, AttributeList<InPicture, InKind, OutPicture>,
                           Stage<StaticDispatch, PlanRecorder, ByPlan<InPicture>, ByPlan<OutPicture>>,
                           Stage<StaticDispatch, GpuLevel, ByVolume<InPicture>, ByVolume<OutPicture>>>
{
public:
    static constexpr processor::ProcessorText g_text{"StagedLevel", 0};
    using Rule = MatchSize<InPicture, OutPicture>;
    using Initializers = processor::AllOutputsGiven;
    using OnlySecond = InSitu<InPicture, OutPicture>;
};

boost::shared_ptr<StagedLevel> makeStaged(const ImagePtr& in, const ImagePtr& out)
{
    auto level = makeInitialised<StagedLevel>();
    level->set<InPicture>(in);
    level->set<InKind>(eImageBufferType::UInt8);
    level->set<OutPicture>(out);
    return level;
}

TEST(TwoStageLevel, TheSecondStageFollowsTheFirst)
{
    for (const orlix::testing::NamedExecutor& each : orlix::testing::makeAllExecutors()) {
        const orlix::testing::ScopedExecutor scope(each.executor);
        gpu() = {};
        const auto level = makeStaged(makeImage(), makeImage());
        EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InPicture", "InKind", "OutPicture"}));
        EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
        EXPECT_EQ(PlanRecorder::takeSeen().size(), 6u) << "each plan in both stages, the second by way of the volume";
        EXPECT_EQ(gpu().nbAsked, 1u);
    }
}

TEST(TwoStageLevel, WhereOnlyTheSecondIsWantedItIsDoneOnce)
{
    gpu() = {};
    gpu().answer = processor::ProviderResult::failed("asked");
    const ImagePtr image = makeImage();
    const ImagePtr same =
        image::wrapImage(image->getGeometry(), image->accessRow(0, 0, 0, 0), image::elementStrides(*image), image);
    const auto level = makeStaged(image, same);
    EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
    EXPECT_EQ(PlanRecorder::takeSeen().size(), 0u)
        << "no first stage; the level of the second has nothing to do either";
    EXPECT_EQ(gpu().nbAsked, 0u);
}

TEST(TwoStageLevel, AFailedFirstStageIsTheEnd)
{
    gpu() = {};
    const auto level = makeStaged(makeImage(), makeImage(2));
    EXPECT_NE(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure") << "the rule";
    EXPECT_EQ(PlanRecorder::takeSeen().size(), 0u);
}

/// Lines 1 to 3 of the plan, or its plans 1 to 2.
struct MiddleLines
{
    template <class TValues>
    static StripRange of(const TValues&)
    {
        return {1, 3};
    }
};
using LineRecorder = StorageRecorder<InStrip>;
using DepthRecorder = StorageRecorder<InVolumeStrip>;

class LinesLevel final
    : public StripLevel<LinesLevel, PictureLibrary, LineRecorder, ByYSubStrip<InPicture, InStrip, MiddleLines>>
{
public:
    static constexpr processor::ProcessorText g_text{"LinesLevel", 0};
    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;
};
class DepthLevel final
    : public StripLevel<DepthLevel, PictureLibrary, DepthRecorder, ByZSubStrip<InPicture, InVolumeStrip, MiddleLines>>
{
public:
    static constexpr processor::ProcessorText g_text{"DepthLevel", 0};
    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;
};
class VolumeLevel final
    : public StripLevel<VolumeLevel, PictureLibrary, DepthRecorder, ByZStrip<InPicture, InVolumeStrip>>
{
public:
    static constexpr processor::ProcessorText g_text{"VolumeLevel", 0};
    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;
};

template <class TLevel>
boost::shared_ptr<TLevel> runOn(const ImagePtr& image)
{
    auto level = makeInitialised<TLevel>();
    level->template set<InPicture>(image);
    EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
    return level;
}

TEST(StripLevel, RowsOfPartsGiveTheseLinesOrPlans)
{
    const ImagePtr plan = makeImage(1);
    const auto lines = runOn<LinesLevel>(plan);
    const auto seenLines = LineRecorder::takeSeen();
    ASSERT_EQ(seenLines.size(), 1u);
    EXPECT_EQ(extentOf(*std::get<0>(seenLines[0])), Extent(1, 3));
    const ImagePtr volume = makeImage(5);
    const auto part = runOn<DepthLevel>(volume);
    const auto seenPart = DepthRecorder::takeSeen();
    ASSERT_EQ(seenPart.size(), 1u);
    EXPECT_EQ(extentOf(*std::get<0>(seenPart[0])), Extent(1, 3));
    const auto whole = runOn<VolumeLevel>(volume);
    const auto seenWhole = DepthRecorder::takeSeen();
    ASSERT_EQ(seenWhole.size(), 1u);
    EXPECT_EQ(extentOf(*std::get<0>(seenWhole[0])), Extent(0, 5));
}

} // namespace
} // namespace orlix::imaproc::test
