// Levels that are described by rows: what reaches the kernels, and which runs go straight to them.
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/Level/LevelProcessors.h"
#include "ORLIXImageProcessing/StripProcessors.h"
#include "support/Executors.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using orlix::testing::GuardEdge;
using orlix::testing::WatchedImage;
using processor::with;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr unsigned long g_strip = processor::ProcessorDispatchPolicy::g_defaultStripBytes;

ImagePtr randomImage(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ = 1, unsigned long sizeT = 1)
{
    const ImagePtr image = createImage(*geometry5d(g_uint8, sizeX, sizeY, sizeZ, 1, sizeT));
    orlix::testing::fillRandom(*image, sizeX + sizeY);
    return image;
}

/// How kernels were called since the last look: "1 straight", "3 strips", "not at all".
std::string takeCalls()
{
    const unsigned nbParsed = kernelCalls().nbParsed.exchange(0);
    const unsigned nbCalls = kernelCalls().nbCalls.exchange(0);
    if (nbCalls == 0) {
        return "not at all";
    }
    return std::to_string(nbCalls) + (nbParsed == 0 ? " straight" : " strips");
}

void expectSum(const image::BaseImage& in, const image::BaseImage& out, int sum)
{
    std::vector<std::byte> expected = orlix::testing::bytesOf(in);
    for (std::byte& each : expected) {
        each = std::byte(static_cast<unsigned char>(static_cast<unsigned char>(each) + sum));
    }
    EXPECT_EQ(orlix::testing::bytesOf(out), expected);
}

/// Runs the call, and looks at the output and at the count.
void expectAdds(const ImageConstPtr& in, const ImagePtr& out, double number, const std::string& calls)
{
    auto count = boost::make_shared<Count>();
    processor::run<AddLvl1>(with<InPicture>(in), with<InKind>(g_uint8), with<InNumber>(number), with<OutPicture>(out),
                            with<OutCount>(count));
    EXPECT_EQ(takeCalls(), calls);
    expectSum(*in, *out, 2 * static_cast<int>(number)); // the step is 2 where nobody says
    EXPECT_EQ(count->nbPixels, in->getGeometry().getNbPixels());
}

TEST(DispatchLevel, PlansAndStripsReachTheKernelWithTheirValues)
{
    AddLvl3::enterKernel();
    for (const orlix::testing::NamedExecutor& each : orlix::testing::makeAllExecutors()) {
        const orlix::testing::ScopedExecutor scope(each.executor);
        const ImagePtr in = randomImage(100, 30, 3, 2);
        expectAdds(in, createImage(in->getGeometry()), 5, "6 straight"); // each plan of its own level 2
        const ImagePtr high = randomImage(512, 1200);
        expectAdds(high, createImage(high->getGeometry()), 7, "3 strips");
    }
}

TEST(DispatchLevel, AnImageThatIsOneStripGoesStraightToTheKernel)
{
    AddLvl3::enterKernel();
    for (const unsigned long sizeX : {1UL, 63UL, 64UL, 65UL, 512UL}) {
        for (const unsigned long sizeY : {1UL, 3UL, 512UL}) {
            const ImagePtr in = randomImage(sizeX, sizeY);
            expectAdds(in, createImage(in->getGeometry()), 3, "1 straight");
        }
    }
}

TEST(DispatchLevel, WhatIsNoStripAsItLiesIsDispatched)
{
    AddLvl3::enterKernel();
    const ImagePtr in = randomImage(100, 10);
    const ImagePtr out = createImage(in->getGeometry());
    const WatchedImage gaps(in->getGeometry(), {GuardEdge::eEnd, 3, 0, 0, true});
    expectAdds(in, gaps.get(), 3, "1 strips");
    expectAdds(gaps.get(), out, 3, "1 strips");
    const WatchedImage noRoom(in->getGeometry(), {GuardEdge::eEnd, 0, 0, 0, true});
    expectAdds(in, noRoom.get(), 3, "1 strips");
    expectAdds(noRoom.get(), out, 3, "1 strips");
    const ImagePtr inBlocks = randomImage(64, 10);
    const WatchedImage blocks(inBlocks->getGeometry(), {GuardEdge::eEnd, 0, 0, 0, true});
    expectAdds(inBlocks, blocks.get(), 3, "1 straight"); // nothing behind is touched where all blocks are whole
    const WatchedImage apart(inBlocks->getGeometry(), {GuardEdge::eEnd, 3, 0, 0, true});
    expectAdds(inBlocks, apart.get(), 3, "1 strips"); // whole blocks, but the lines don't touch
    expectAdds(apart.get(), createImage(inBlocks->getGeometry()), 3, "1 strips");
    const ImagePtr tooHigh = randomImage(512, g_strip / 512 + 1);
    expectAdds(tooHigh, createImage(tooHigh->getGeometry()), 3, "2 strips");
    const ImagePtr tooLong = randomImage(g_strip + 64, 1);
    expectAdds(tooLong, createImage(tooLong->getGeometry()), 3, "1 strips");
    for (const auto& [sizeX, sizeY] : {std::pair{0UL, 5UL}, {5UL, 0UL}}) {
        const ImagePtr empty = createImage(*geometry5d(g_uint8, sizeX, sizeY, 1, 1, 1));
        expectAdds(empty, createImage(empty->getGeometry()), 3, "not at all");
    }
    EXPECT_TRUE(gaps.isOutsideIntact() && noRoom.isOutsideIntact() && blocks.isOutsideIntact());
    EXPECT_TRUE(apart.isOutsideIntact());
}

TEST(DispatchLevel, ResultsAreMergedInTheOrderOfStripsAndPlans)
{
    AddLvl3::enterKernel();
    const auto zeroAt = [](unsigned long sizeY, unsigned long plan, unsigned long line) {
        const ImagePtr image = createImage(*geometry5d(g_uint8, 512, sizeY, 2, 1, 2));
        for (unsigned long i = 0; i < 4; ++i) {
            std::memset(image->accessRow(0, i % 2, 0, i / 2), 1, 512 * sizeY);
        }
        *image->accessRow(line, plan % 2, 0, plan / 2) = std::byte{0};
        return image;
    };
    for (const orlix::testing::NamedExecutor& each : orlix::testing::makeAllExecutors()) {
        const orlix::testing::ScopedExecutor scope(each.executor);
        const ImagePtr in = zeroAt(1100, 3, 600);
        const auto count =
            processor::runForOutput<AddLvl1, OutCount>(with<InPicture>(in), with<InKind>(g_uint8), with<InNumber>(1),
                                                       with<OutPicture>(createImage(in->getGeometry())));
        EXPECT_EQ(count->nbPixels, 512u * 1100 * 4);
        EXPECT_EQ(count->firstLine, 600u);
        EXPECT_EQ(count->firstPlan, 101u);
        takeCalls();
    }
    const ImagePtr one = createImage(*geometry5d(g_uint8, 64, 9, 1, 1, 1));
    std::memset(one->accessRow(0, 0, 0, 0), 1, 64 * 9);
    *one->accessRow(4, 0, 0, 0) = std::byte{0};
    const auto count =
        processor::runForOutput<AddLvl1, OutCount>(with<InPicture>(one), with<InKind>(g_uint8), with<InNumber>(1),
                                                   with<OutPicture>(createImage(one->getGeometry())));
    EXPECT_EQ(takeCalls(), "1 straight");
    EXPECT_EQ(count->firstLine, 4u);
    EXPECT_EQ(count->firstPlan, 0u);
}

TEST(DispatchLevel, NothingOfAStraightRunIsKept)
{
    AddLvl3::enterKernel();
    const ImagePtr in = randomImage(20, 10);
    expectAdds(in, createImage(in->getGeometry()), 3, "1 straight");
    EXPECT_EQ(in.use_count(), 1);
    const boost::shared_ptr<AddLvl3> kept = processor::takeOrMake<AddLvl3>();
    for (const boost::shared_ptr<processor::BaseAttribute>& attribute : kept->getAttributeColl()) {
        EXPECT_FALSE(attribute->isSet()) << attribute->getObjectName();
    }
}

TEST(DispatchLevel, WhatTheRuleRefusesIsToldByTheRule)
{
    AddLvl3::enterKernel();
    const ImagePtr in = randomImage(20, 10);
    const auto run = [&](const ImageConstPtr& input, double number, const ImagePtr& output) -> std::string {
        try {
            processor::run<AddLvl1>(with<InPicture>(input), with<InKind>(g_uint8), with<InNumber>(number),
                                    with<OutPicture>(output), with<OutCount>(boost::make_shared<Count>()));
        } catch (const std::exception& error) {
            return error.what();
        }
        return "no failure";
    };
    EXPECT_EQ(run(in, 1, randomImage(20, 10)), "no failure");
    EXPECT_EQ(takeCalls(), "1 straight");
    EXPECT_NE(run(in, 1, randomImage(20, 11)).find("20x11x1x1x1 UInt8"), std::string::npos);
    EXPECT_NE(run(in, 256, randomImage(20, 10)).find("InNumber"), std::string::npos);
    EXPECT_NE(run(in, std::nan(""), randomImage(20, 10)).find("InNumber"), std::string::npos);
    EXPECT_NE(run(nullptr, 1, randomImage(20, 10)).find("InPicture"), std::string::npos);
    EXPECT_NE(run(in, 1, nullptr).find("OutPicture"), std::string::npos);
    EXPECT_EQ(takeCalls(), "not at all");
}

TEST(DispatchLevel, ACallThatLacksAValueIsRefusedByName)
{
    AddLvl3::enterKernel();
    const ImagePtr in = randomImage(20, 10);
    try {
        processor::run<AddLvl1>(with<InPicture>(in), with<InKind>(g_uint8), with<OutPicture>(randomImage(20, 10)),
                                with<OutCount>(boost::make_shared<Count>()));
        ADD_FAILURE() << "no number, no run";
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find("InNumber"), std::string::npos) << error.what();
    }
    EXPECT_EQ(takeCalls(), "not at all");
}

class OwnRun : public ::testing::Test
{
protected:
    OwnRun()
    {
        AddLvl3::enterKernel();
        use(processor::eProcessorRulePolicy::eRulePolicyCheck);
    }
    void use(const processor::eProcessorRulePolicy& policy)
    {
        m_level = boost::make_shared<AddLvl1>();
        static_cast<void>(m_level->init(policy));
        m_level->set<InPicture>(m_in);
        m_level->set<InKind>(g_uint8);
        m_level->set<InNumber>(4);
    }
    void expectRuns(const std::string& calls)
    {
        EXPECT_EQ(failureOf(m_level->run(core::eSynchroType::eSynchroSync)), "no failure");
        EXPECT_EQ(takeCalls(), calls);
        expectSum(*m_in, *m_level->getStorage<OutPicture>(), 8);
        EXPECT_EQ(m_level->getStorage<OutCount>()->nbPixels, 200u);
    }

    ImagePtr m_in = randomImage(20, 10);
    boost::shared_ptr<AddLvl1> m_level;
};

TEST_F(OwnRun, GoesStraightToo)
{
    expectRuns("1 straight");
    expectRuns("1 straight");
    EXPECT_EQ(m_level->getAttribute("InOptStep").isSet(), true) << "a default that the run sets stays set";
}

TEST_F(OwnRun, IsDispatchedWhereSomebodyWatches)
{
    core::Progress last{};
    m_level->setProgressObserver([&](const core::Progress& progress) { last = progress; });
    expectRuns("1 strips");
    EXPECT_EQ(last.done, 2u) << "the plan and its strip";
}

TEST_F(OwnRun, LeavesARuleThatItDoesNotCheckToTheLevelsBelow)
{
    use(processor::eProcessorRulePolicy::eRulePolicySkip);
    expectRuns("1 straight");
    use(processor::eProcessorRulePolicy::eRulePolicySkip);
    m_level->set<OutPicture>(randomImage(20, 11));
    EXPECT_NE(failureOf(m_level->run(core::eSynchroType::eSynchroSync)).find("20x11"), std::string::npos);
    EXPECT_EQ(takeCalls(), "not at all");
}

TEST_F(OwnRun, OfALevelBelowGoesStraight)
{
    const auto level = makeInitialised<AddLvl2>();
    const ImagePtr out = createImage(m_in->getGeometry());
    const auto count = boost::make_shared<Count>();
    count->nbPixels = 77; // of a run before
    level->set<InPicture>(m_in);
    level->set<InNumber>(1);
    level->set<InOptStep>(makeDoubleStep());
    level->set<OutPicture>(out);
    level->set<OutCount>(count);
    EXPECT_EQ(failureOf(level->run(core::eSynchroType::eSynchroSync)), "no failure");
    EXPECT_EQ(takeCalls(), "1 straight");
    expectSum(*m_in, *out, 2);
    EXPECT_EQ(count->nbPixels, 200u);
}

} // namespace
} // namespace orlix::imaproc::test
