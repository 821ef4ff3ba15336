// The processors of the conversion tower as objects: names, creation by name, archives, rules of each level, misuse.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
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

template <class TProcessor>
class ConvertImgProcessorsTest : public ::testing::Test
{};

using Processors = ::testing::Types<ConvertImgLvl1, ConvertImgLvl2, ConvertImgLvl3>;
TYPED_TEST_SUITE(ConvertImgProcessorsTest, Processors);

TYPED_TEST(ConvertImgProcessorsTest, namesAndVersion)
{
    testing::expectNames<TypeParam>("Image data type conversion algorithm level #");
}

TYPED_TEST(ConvertImgProcessorsTest, createdByName)
{
    testing::expectCreatedByName<TypeParam>("ConvertImg");
}

TYPED_TEST(ConvertImgProcessorsTest, noCopy)
{
    testing::expectNoCopy<TypeParam>();
}

TYPED_TEST(ConvertImgProcessorsTest, archives)
{
    TextOArchive archive;
    ASSERT_TRUE(TypeParam().write(archive));
    std::string once;
    ASSERT_TRUE(archive.saveToString(once));
    EXPECT_NE(once.find(TypeParam::getTypeName()), std::string::npos);
    ASSERT_TRUE(TypeParam().write(archive));
    std::string twice;
    ASSERT_TRUE(archive.saveToString(twice));
    EXPECT_EQ(twice, once) << "one version record an archive";

    TextIArchive reader;
    ASSERT_TRUE(reader.loadFromString(once));
    EXPECT_TRUE(TypeParam().read(reader));
    const auto readVersion = [](const char* version) {
        TextIArchive other;
        EXPECT_TRUE(other.loadFromString("<orlix_archive format=\"1\"><section name=\"" + TypeParam::getTypeName() +
                                         "\"><uint32 name=\"version\" value=\"" + version +
                                         "\"/></section></orlix_archive>"));
        return TypeParam().read(other).getValue();
    };
    EXPECT_TRUE(readVersion("0"));
    EXPECT_TRUE(readVersion("1"));
    EXPECT_THROW(readVersion("2"), ORLIXSerializationException);
}

TYPED_TEST(ConvertImgProcessorsTest, attributesBeforeInit)
{
    TypeParam processor;
    const auto setFirst = [&] {
        if constexpr (std::is_same_v<TypeParam, ConvertImgLvl1>) {
            processor.template set<attr::InConvertImageBufferType>(eImageBufferType::UInt8);
        } else if constexpr (std::is_same_v<TypeParam, ConvertImgLvl2>) {
            processor.template set<attr::InSubImg2d>(ImageConstPtr());
        } else {
            processor.template set<attr::InYStrip2d>(boost::shared_ptr<image::InputImageYStrip2d>());
        }
    };
    EXPECT_THROW(setFirst(), processor::ORLIXBaseProcessingException);
}

TEST(ConvertImgLvl1Test, byNameThroughTheFactory)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt16, 40, 30));
    const auto created =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::ConvertImgLvl1");
    ASSERT_TRUE(created->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    EXPECT_EQ(created->getAttributeNameColl(),
              (std::vector<std::string>{"InImg", "InConvertImageBufferType", "OutImg"}));
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

TEST(ConvertImgLvl1Test, anObserverSeesEveryPlanAndStrip)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 10, 3, 2, 2));
    const auto run = [&](const ImagePtr& out) {
        const auto processor = makeInitialised<ConvertImgLvl1>();
        processor->set<attr::InImg>(in);
        processor->set<attr::InConvertImageBufferType>(out->getBufferType());
        processor->set<attr::OutImg>(out);
        core::Progress last;
        processor->setProgressObserver([&](const core::Progress& progress) { last = progress; });
        EXPECT_TRUE(processor->run(g_sync));
        return last.done;
    };
    EXPECT_EQ(run(createImage(*geometry5d(eImageBufferType::Int16, 20, 10, 3, 2, 2))), 24U) << "12 plans of one strip";
    EXPECT_EQ(run(in), 0U) << "onto itself nothing is dispatched";
}

TEST(ConvertImgLvl2Test, convertsAPlan)
{
    const auto level = makeInitialised<ConvertImgLvl2>();
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InSubImg2d", "OutImg"}));
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
    EXPECT_EQ(level->getAttributeNameColl(), (std::vector<std::string>{"InYStrip2d", "OutYStrip2d"}));
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
