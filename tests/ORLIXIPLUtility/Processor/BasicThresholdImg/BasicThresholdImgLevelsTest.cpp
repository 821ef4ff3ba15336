// The levels of the threshold tower by themselves.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIXIPLUtility/Processor/BasicThresholdImg/ThresholdOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr auto g_sync = core::eSynchroType::eSynchroSync;
const std::string g_levelOne = "orlix::imaproc::util::BasicThresholdImgLvl1";

void runByName(const boost::shared_ptr<processor::BaseProcessor>& created)
{
    ASSERT_NE(created, nullptr);
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt16, 40, 30));
    dynamic_cast<attr::InImg&>(created->getAttribute("InImg")).init(in);
    dynamic_cast<attr::InThresholdMin&>(created->getAttribute("InThresholdMin")).init(20000);
    dynamic_cast<attr::InThresholdMax&>(created->getAttribute("InThresholdMax")).init(40000);
    processor::executeSyncRun(created);
    const attr::OutBinImg& out = dynamic_cast<attr::OutBinImg&>(created->getAttribute("OutBinImg"));
    EXPECT_TRUE(isThreshold(*in, 20000, 40000, out.getImage()));
}

TEST(BasicThresholdImgLvl1Test, runsAsMadeByEitherFactory)
{
    runByName(processor::ProcessorFactory::getInstance().createProcessor(g_levelOne));
    runByName(boost::dynamic_pointer_cast<processor::BaseProcessor>(
        DynamicObjectFactory::getInstance().createShared(g_levelOne)));
}

TEST(BasicThresholdImgLvl1Test, runsAgain)
{
    const auto level = makeThreshold(makeRandom(*geometry2d(eImageBufferType::UInt8, 70, 30)), 3, 9);
    ASSERT_TRUE(level->run(g_sync));
    const ImagePtr first = level->getStorage<attr::OutBinImg>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 70, 30), 2);
    level->set<attr::InImg>(in);
    level->set<attr::InThresholdMax>(200);
    ASSERT_TRUE(level->run(g_sync));
    EXPECT_EQ(level->getStorage<attr::OutBinImg>(), first) << "the output of the first run is given from then on";
    EXPECT_TRUE(isThreshold(*in, 3, 200, *first));
}

TEST(BasicThresholdImgLvl1Test, startedAndLeftRunning)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Real32, 300, 200));
    const auto level = makeThreshold(in, -1e10, 2.5);
    ASSERT_TRUE(level->run(core::eSynchroType::eSynchroAsync));
    EXPECT_TRUE(level->wait());
    EXPECT_TRUE(isThreshold(*in, -1e10, 2.5, *level->getStorage<attr::OutBinImg>()));
}

TEST(BasicThresholdImgLvl1Test, boundsHaveToBeGiven)
{
    const auto level = testing::makeInitialised<BasicThresholdImgLvl1>();
    level->set<attr::InImg>(makeRandom(*geometry2d(eImageBufferType::UInt8, 3, 3)));
    level->set<attr::InThresholdMax>(3);
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "BasicThresholdImgLvl1: attribute InThresholdMin has not been set: set InThresholdMin before the run");
}

TEST(BasicThresholdImgLvl2Test, thresholdsAPlan)
{
    BasicThresholdImgLvl2 level;
    ASSERT_TRUE(level.init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int16, 100, 90));
    const ImagePtr out = createImage(*geometry2d(g_binary, 100, 90));
    level.set<attr::InSubImg2d>(in);
    level.set<attr::InThresholdMin>(-5);
    level.set<attr::InThresholdMax>(7000);
    EXPECT_EQ(level.run(g_sync).getMessage(),
              "BasicThresholdImgLvl2: attribute OutBinImg has not been set: set OutBinImg before the run");
    level.set<attr::OutBinImg>(out);
    EXPECT_TRUE(level.run(g_sync));
    EXPECT_TRUE(isThreshold(*in, -5, 7000, *out));
    level.set<attr::InThresholdMax>(32768);
    EXPECT_EQ(level.run(g_sync).getMessage(), "InThresholdMax is 32768, but has to lie within the range of Int16, the "
                                              "element type of InSubImg2d: -32768 to 32767");
    level.set<attr::OutBinImg>(createImage(*geometry2d(g_binary, 100, 91)));
    EXPECT_EQ(level.run(g_sync).getMessage(),
              "OutBinImg is 100x91x1x1x1 Binary, InSubImg2d is 100x90x1x1x1 Int16: sizes have to be the same");
    level.set<attr::InThresholdMax>(7000);
    for (const eImageBufferType type : image::g_allBufferTypes) {
        if (type != g_binary) { // also those that have the width of a binary element
            const ImagePtr other = makeRandom(*geometry2d(type, 100, 90));
            const std::vector<std::byte> before = testing::bytesOf(*other);
            level.set<attr::OutBinImg>(other);
            EXPECT_EQ(level.run(g_sync).getMessage(),
                      "OutBinImg is " + other->getGeometry().toString() + ", but has to be of element type Binary");
            EXPECT_EQ(testing::bytesOf(*other), before) << "no pixel is written";
        }
    }
}

TEST(BasicThresholdImgLvl3Test, thresholdsAStrip)
{
    BasicThresholdImgLvl3 level;
    ASSERT_TRUE(level.init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 64, 20));
    const testing::WatchedImage out(*geometry2d(g_binary, 64, 20), {});
    const auto stripOf = [](const ImagePtr& image, unsigned long start, unsigned long size) {
        return boost::make_shared<image::OutputImageYStrip2d>(*image, start, size);
    };
    level.set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 3, 5));
    level.set<attr::InThresholdMin>(60);
    level.set<attr::InThresholdMax>(200);
    level.set<attr::OutBinYStrip2d>(stripOf(out.get(), 10, 5));
    EXPECT_TRUE(level.run(g_sync));
    std::vector<std::byte> expected(64 * 20);
    const std::vector<std::byte> whole = expectedBytes(*in, 60, 200);
    std::copy_n(whole.begin() + 3 * 64, 5 * 64, expected.begin() + 10 * 64);
    EXPECT_EQ(testing::bytesOf(*out.get()), expected);
    EXPECT_TRUE(out.isOutsideIntact());

    level.set<attr::OutBinYStrip2d>(stripOf(out.get(), 10, 6));
    EXPECT_EQ(level.run(g_sync).getMessage(),
              "The strip of OutBinYStrip2d is 64x6, that of InYStrip2d is 64x5: sizes have to be the same");
    const ImagePtr grey = createImage(*geometry2d(eImageBufferType::UInt8, 64, 20));
    level.set<attr::OutBinYStrip2d>(stripOf(grey, 10, 5));
    EXPECT_EQ(level.run(g_sync).getMessage(), "OutBinYStrip2d is 64x5 UInt8, but has to be of element type Binary");
    level.set<attr::OutBinYStrip2d>(stripOf(out.get(), 10, 5));
    level.set<attr::InThresholdMin>(201);
    EXPECT_EQ(level.run(g_sync).getMessage(),
              "InThresholdMin is 201, but has to be at most equal to InThresholdMax, which is 200");
    level.set<attr::InThresholdMax>(256);
    EXPECT_EQ(level.run(g_sync).getMessage(), "InThresholdMax is 256, but has to lie within the range of UInt8, the "
                                              "element type of InYStrip2d: 0 to 255");
}

} // namespace
} // namespace orlix::imaproc::util::test
