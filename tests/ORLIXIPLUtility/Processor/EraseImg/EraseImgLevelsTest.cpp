// The levels of the erasing tower by themselves, and the asynchronous forms.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using testing::makeInitialised;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(EraseImgLvl1Test, byNameThroughTheFactory)
{
    const auto created =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::EraseImgLvl1");
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, 40, 30));
    dynamic_cast<attr::OutImg&>(created->getAttribute("OutImg")).init(image);
    for (const double value : {12.0, 13.0}) {
        dynamic_cast<attr::InOptEraseValue&>(created->getAttribute("InOptEraseValue")).init(value);
        processor::executeSyncRun(created);
        EXPECT_TRUE(isErased(*image, value));
    }
    created->getAttribute("InOptEraseValue").clear();
    processor::executeSyncRun(created);
    EXPECT_TRUE(isErased(*image, 0.0));
}

TEST(EraseImgLvl2Test, erasesAPlan)
{
    const auto level = makeInitialised<EraseImgLvl2>();
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int16, 100, 90));
    level->set<attr::OutSubImg2d>(image);
    EXPECT_TRUE(level->run(g_sync));
    EXPECT_TRUE(isErased(*image, 0.0));
    level->set<attr::InOptEraseValue>(-4.5);
    EXPECT_TRUE(level->run(g_sync));
    EXPECT_TRUE(isErased(*image, -4.5));
    level->set<attr::OutSubImg2d>(createImage(*image::geometry3d(eImageBufferType::Int16, 4, 4, 2)));
    EXPECT_FALSE(level->run(g_sync)) << "several plans are level 1's affair";
}

TEST(EraseImgLvl3Test, erasesAStrip)
{
    const auto level = makeInitialised<EraseImgLvl3>();
    const testing::WatchedImage out(*geometry2d(eImageBufferType::UInt8, 64, 20), {});
    level->set<attr::InOptEraseValue>(3.0);
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 5));
    EXPECT_TRUE(level->run(g_sync));
    std::vector<std::byte> expected(64 * 20);
    std::fill_n(expected.begin() + 10 * 64, 5 * 64, std::byte{3});
    EXPECT_EQ(testing::bytesOf(*out.get()), expected);
    EXPECT_TRUE(out.isOutsideIntact());
}

TEST(EraseImgAsyncTest, bothForms)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int32, 300, 200));
    const boost::shared_ptr<EraseImgLvl1> withValue = eraseImg_async(image, -70000.0);
    EXPECT_TRUE(withValue->wait());
    EXPECT_EQ(getAsyncProcessorOutput(withValue), image);
    EXPECT_TRUE(isErased(*image, -70000.0));
    const boost::shared_ptr<EraseImgLvl1> without = eraseImg_async(image);
    EXPECT_TRUE(without->wait());
    EXPECT_EQ(getAsyncProcessorOutput(without), image);
    EXPECT_TRUE(isErased(*image, 0.0));
}

} // namespace
} // namespace orlix::imaproc::util::test
