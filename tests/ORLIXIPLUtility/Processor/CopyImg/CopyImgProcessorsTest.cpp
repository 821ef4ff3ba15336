// The processors of the copy tower as objects: names, creation by name, archives, misuse.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"
#include "support/SameImages.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

template <class TProcessor>
class CopyImgProcessorsTest : public ::testing::Test
{};

using Processors = ::testing::Types<CopyImgLvl1, CopyImgLvl2, CopyImgLvl3>;
TYPED_TEST_SUITE(CopyImgProcessorsTest, Processors);

TYPED_TEST(CopyImgProcessorsTest, namesAndVersion)
{
    testing::expectNames<TypeParam>("Image copy algorithm level #");
}

TYPED_TEST(CopyImgProcessorsTest, createdByName)
{
    testing::expectCreatedByName<TypeParam>("CopyImg");
}

TYPED_TEST(CopyImgProcessorsTest, noCopy)
{
    testing::expectNoCopy<TypeParam>();
}

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
    EXPECT_EQ(created->getAttributeNameColl(), (std::vector<std::string>{"InImg", "OutImg"}));
    dynamic_cast<attr::InImg&>(created->getAttribute("InImg")).init(in);
    processor::executeSyncRun(created);
    EXPECT_TRUE(testing::sameImages(*in, dynamic_cast<attr::OutImg&>(created->getAttribute("OutImg")).getImage()));
}

TEST(CopyImgLvl1Test, runsAgain)
{
    const auto processor = boost::make_shared<CopyImgLvl1>();
    ASSERT_TRUE(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    for (const unsigned long seed : {1UL, 2UL}) {
        const ImagePtr in = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 70, 30));
        testing::fillRandom(*in, seed);
        const ImagePtr out = image::createImage(in->getGeometry());
        processor->set<attr::InImg>(in);
        processor->set<attr::OutImg>(out);
        processor::executeSyncRun(processor);
        EXPECT_TRUE(testing::sameImages(*in, *out));
    }
}

TEST(CopyImgLvl1Test, writesItsVersionOncePerArchive)
{
    TextOArchive archive;
    const CopyImgLvl1 processor;
    ASSERT_TRUE(processor.write(archive));
    std::string once;
    ASSERT_TRUE(archive.saveToString(once));
    EXPECT_NE(once.find("orlix::imaproc::util::CopyImgLvl1"), std::string::npos);
    ASSERT_TRUE(processor.write(archive));
    std::string twice;
    ASSERT_TRUE(archive.saveToString(twice));
    EXPECT_EQ(twice, once);
}

} // namespace
} // namespace orlix::imaproc::util
