// The levels of the copy tower by themselves: access to attributes, and what each does and refuses.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using testing::makeInitialised;
using testing::makeRandom;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(CopyImgLvl1Test, attributesBeforeInit)
{
    CopyImgLvl1 processor;
    try {
        processor.set<attr::InImg>(ImageConstPtr());
        FAIL() << "no exception";
    } catch (const processor::ORLIXBaseProcessingException& error) {
        EXPECT_STREQ(error.what(),
                     "Processor CopyImgLvl1 has not been initialised: call init before its attributes are used");
    }
    EXPECT_THROW(static_cast<void>(processor.getStorage<attr::OutImg>()), processor::ORLIXBaseProcessingException);
}

template <class TAttribute>
concept CanBeRead = requires(const CopyImgLvl1& processor)
{
    processor.getStorage<TAttribute>();
};

TEST(CopyImgLvl1Test, onlyOutputsCanBeRead)
{
    EXPECT_TRUE(CanBeRead<attr::OutImg>);
    EXPECT_FALSE(CanBeRead<attr::InImg>);
}

TEST(CopyImgLvl1Test, byNameThroughTheFactory)
{
    const ImagePtr in = image::createImage(*image::geometry2d(image::eImageBufferType::UInt16, 40, 30));
    testing::fillRandom(*in, 5);
    const auto created =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::CopyImgLvl1");
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    dynamic_cast<attr::InImg&>(created->getAttribute("InImg")).init(in);
    processor::executeSyncRun(created);
    EXPECT_TRUE(testing::sameImages(*in, dynamic_cast<attr::OutImg&>(created->getAttribute("OutImg")).getImage()));
}

TEST(CopyImgLvl2Test, copiesAPlan)
{
    const auto level = makeInitialised<CopyImgLvl2>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int16, 100, 90));
    const ImagePtr out = createImage(in->getGeometry());
    level->set<attr::InSubImg2d>(in);
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "CopyImgLvl2: attribute OutImg has not been set: set OutImg before the run")
        << "no initializer at this level";
    level->set<attr::OutImg>(out);
    EXPECT_TRUE(level->run(g_sync));
    EXPECT_TRUE(testing::sameImages(*in, *out));
    level->set<attr::OutImg>(createImage(*geometry2d(eImageBufferType::Int16, 100, 91)));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "OutImg is 100x91x1x1x1 Int16, InSubImg2d is 100x90x1x1x1 Int16: sizes and "
              "element types have to be the same");
}

TEST(CopyImgLvl3Test, copiesAStrip)
{
    const auto level = makeInitialised<CopyImgLvl3>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 64, 20));
    const testing::WatchedImage out(in->getGeometry(), {});
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 3, 5));
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 5));
    EXPECT_TRUE(level->run(g_sync));
    std::vector<std::byte> expected(64 * 20);
    const std::vector<std::byte> source = testing::bytesOf(*in);
    std::copy_n(source.begin() + 3 * 64, 5 * 64, expected.begin() + 10 * 64);
    EXPECT_EQ(testing::bytesOf(*out.get()), expected);
    EXPECT_TRUE(out.isOutsideIntact());

    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of OutYStrip2d is 64x6 UInt8, that of InYStrip2d is 64x5 UInt8: "
              "sizes and element types have to be the same");
}

} // namespace
} // namespace orlix::imaproc::util
