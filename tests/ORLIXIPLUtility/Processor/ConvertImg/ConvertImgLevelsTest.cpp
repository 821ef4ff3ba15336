// The levels of the conversion tower by themselves, and what each refuses.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::makeInitialised;
using testing::makeRandom;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(ConvertImgLvl1Test, byNameThroughTheFactory)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt16, 40, 30));
    const auto created =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::ConvertImgLvl1");
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    dynamic_cast<attr::InImg&>(created->getAttribute("InImg")).init(in);
    EXPECT_EQ(created->run(g_sync).getMessage(), "ConvertImgLvl1: attribute InConvertImageBufferType has not been set: "
                                                 "set InConvertImageBufferType before the run");
    dynamic_cast<attr::InConvertImageBufferType&>(created->getAttribute("InConvertImageBufferType"))
        .init(eImageBufferType::Real32);
    processor::executeSyncRun(created);
    const image::BaseImage& out = dynamic_cast<attr::OutImg&>(created->getAttribute("OutImg")).getImage();
    EXPECT_EQ(out.getBufferType(), eImageBufferType::Real32);
    EXPECT_TRUE(testing::isConverted(*in, out));
}

TEST(ConvertImgLvl1Test, refusesAnOutputOfAnotherType)
{
    const auto processor = makeInitialised<ConvertImgLvl1>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt16, 40, 30));
    const ImagePtr out = makeRandom(*geometry2d(eImageBufferType::UInt8, 40, 30));
    const std::vector<std::byte> before = testing::bytesOf(*out);
    processor->set<attr::InImg>(in);
    processor->set<attr::InConvertImageBufferType>(eImageBufferType::eBufferUInt8Like);
    processor->set<attr::OutImg>(out);
    EXPECT_EQ(processor->run(g_sync).getMessage(),
              "OutImg is 40x30x1x1x1 UInt8, but has to be of element type UInt8Like, "
              "as InConvertImageBufferType tells");
    EXPECT_EQ(testing::bytesOf(*out), before);
    processor->set<attr::OutImg>(createImage(*geometry2d(eImageBufferType::UInt8, 40, 31)));
    EXPECT_EQ(processor->run(g_sync).getMessage(),
              "OutImg is 40x31x1x1x1 UInt8, InImg is 40x30x1x1x1 UInt16: sizes have to be the same")
        << "sizes come first";
    processor->set<attr::OutImg>(out);
    processor->set<attr::InConvertImageBufferType>(eImageBufferType::UInt8);
    EXPECT_TRUE(processor->run(g_sync)) << "it can be run again";
    EXPECT_TRUE(testing::isConverted(*in, *out));
}

TEST(ConvertImgLvl1Test, ontoItselfNothingIsDispatched)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 10, 3, 2, 2));
    const auto processor = makeInitialised<ConvertImgLvl1>();
    processor->set<attr::InImg>(in);
    processor->set<attr::InConvertImageBufferType>(in->getBufferType());
    processor->set<attr::OutImg>(in);
    unsigned long nbCalls = 0;
    processor->setProgressObserver([&](const core::Progress&) { ++nbCalls; });
    EXPECT_TRUE(processor->run(g_sync));
    EXPECT_EQ(nbCalls, 0U);
}

TEST(ConvertImgLvl2Test, convertsAPlan)
{
    const auto level = makeInitialised<ConvertImgLvl2>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int16, 100, 90));
    const ImagePtr out = createImage(*geometry2d(eImageBufferType::UInt8, 100, 90));
    level->set<attr::InSubImg2d>(in);
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "ConvertImgLvl2: attribute OutImg has not been set: set OutImg before the run")
        << "no initializer at this level";
    level->set<attr::OutImg>(out);
    EXPECT_TRUE(level->run(g_sync));
    EXPECT_TRUE(testing::isConverted(*in, *out));
    level->set<attr::OutImg>(createImage(*geometry2d(eImageBufferType::UInt8, 100, 91)));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "OutImg is 100x91x1x1x1 UInt8, InSubImg2d is 100x90x1x1x1 Int16: sizes have to be the same");
}

TEST(ConvertImgLvl3Test, convertsAStrip)
{
    const auto level = makeInitialised<ConvertImgLvl3>();
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 64, 20));
    const testing::WatchedImage out(*geometry2d(eImageBufferType::UInt32, 64, 20), {});
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 3, 5));
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 5));
    EXPECT_TRUE(level->run(g_sync));
    const unsigned char* const source = image::planData<unsigned char>(*in, 0, 0, 0);
    const unsigned int* const found = image::planData<unsigned int>(*out.get(), 0, 0, 0);
    for (unsigned long i = 0; i < 64 * 20; ++i) {
        const bool bInStrip = i >= 10 * 64 && i < 15 * 64;
        ASSERT_EQ(found[i], bInStrip ? source[i - 7 * 64] : 0U) << i;
    }
    EXPECT_TRUE(out.isOutsideIntact());

    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 10, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of OutYStrip2d is 64x6, that of InYStrip2d is 64x5: sizes have to be the same");
}

} // namespace
} // namespace orlix::imaproc::util
