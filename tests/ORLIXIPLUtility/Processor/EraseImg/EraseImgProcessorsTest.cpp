// The processors of the erasing tower as objects: names, creation by name, levels by themselves, misuse, async forms.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using testing::makeInitialised;
using testing::messageOf;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;
const std::string g_null = "EraseImgLvl1: attribute OutImg holds a null pointer: give it an object that exists";

template <class TProcessor>
class EraseImgProcessorsTest : public ::testing::Test
{};

using Processors = ::testing::Types<EraseImgLvl1, EraseImgLvl2, EraseImgLvl3>;
TYPED_TEST_SUITE(EraseImgProcessorsTest, Processors);

TYPED_TEST(EraseImgProcessorsTest, namesAndVersion)
{
    testing::expectNames<TypeParam>("Image erasing algorithm level #");
}

TYPED_TEST(EraseImgProcessorsTest, createdByName)
{
    testing::expectCreatedByName<TypeParam>("EraseImg");
}

TYPED_TEST(EraseImgProcessorsTest, noCopy)
{
    testing::expectNoCopy<TypeParam>();
}

TEST(EraseImgLvl1Test, byNameThroughTheFactory)
{
    const auto created =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::EraseImgLvl1");
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    EXPECT_EQ(created->getAttributeNameColl(), (std::vector<std::string>{"InOptEraseValue", "OutImg"}));
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

TEST(EraseImgLvl1Test, theImageHasToBeGiven)
{
    EXPECT_EQ(messageOf([] { eraseImg(ImagePtr()); }), g_null);
    EXPECT_EQ(messageOf([] { eraseImg(ImagePtr(), 3.0); }), g_null);
    const auto level = makeInitialised<EraseImgLvl1>();
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "EraseImgLvl1: attribute OutImg has not been set: set OutImg before the run");
}

TEST(EraseImgLvl2Test, erasesAPlan)
{
    const auto level = makeInitialised<EraseImgLvl2>();
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InOptEraseValue", "OutSubImg2d"}));
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
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InOptEraseValue", "OutYStrip2d"}));
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

TEST(EraseImgAsyncTest, failureIsToldByWait)
{
    const boost::shared_ptr<EraseImgLvl1> running = eraseImg_async(ImagePtr());
    EXPECT_EQ(running->wait().getMessage(), g_null);
    EXPECT_EQ(getAsyncProcessorOutput(running), nullptr);
}

} // namespace
} // namespace orlix::imaproc::util::test
