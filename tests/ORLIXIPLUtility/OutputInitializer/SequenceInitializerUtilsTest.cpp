// What is made of two sequences where nobody gave an output.
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SequenceInitializerUtils.h"

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/StepImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using Types = std::vector<eImageBufferType>;

struct Attributes
{
    boost::shared_ptr<attr::InImg1> first = boost::make_shared<attr::InImg1>();
    boost::shared_ptr<attr::InImg2> second = boost::make_shared<attr::InImg2>();
    boost::shared_ptr<attr::OutImg> out = boost::make_shared<attr::OutImg>();
    boost::shared_ptr<BaseCustomImageInfo> info = outputAppendSeq(first, second);
};

ImagePtr steps(const Types& types)
{
    return createImage(testing::withTypes(*geometry5d(types.front(), 5, 4, 3, 2, 1), types));
}

TEST(OutputAppendSeq, hasAllStepsAndTheirTypesAndElseTheFirstImagesSizes)
{
    Attributes attributes;
    attributes.first->init(steps({eImageBufferType::UInt8, eImageBufferType::UInt8}));
    attributes.second->init(steps({eImageBufferType::Real32}));
    const BaseCustomImageInfo& info = *attributes.info;
    EXPECT_TRUE(info.isOutputInitNeeded());
    EXPECT_EQ(info.getImageBufferType(), eImageBufferType::UInt8);
    EXPECT_EQ(info.getImageBufferTypeVector(),
              (Types{eImageBufferType::UInt8, eImageBufferType::UInt8, eImageBufferType::Real32}));
    EXPECT_EQ(info.getTemporalGeometry().getSizeT(), 3u);
    EXPECT_TRUE(info.getTemporalGeometry().isSequence());
    EXPECT_EQ(info.getSizeX(), 5u);
    EXPECT_EQ(info.getSizeY(), 4u);
    EXPECT_EQ(info.getVolumeGeometry().getSizeZ(), 3u);
    EXPECT_EQ(info.getColorGeometry().getSizeC(), 2u);
    EXPECT_TRUE(info.hasInputImage());
    EXPECT_EQ(info.getInputImage(), attributes.first->getStorage());
}

TEST(OutputAppendSeq, makesTheOutput)
{
    Attributes attributes;
    const auto initializer = customOutput(attributes.out, attributes.info);
    EXPECT_FALSE(initializer->isOutputInitNeeded()) << "there is nothing to make it of";
    attributes.first->init(steps({eImageBufferType::UInt8, eImageBufferType::UInt8}));
    attributes.second->init(steps({eImageBufferType::UInt8}));
    ASSERT_TRUE(initializer->isOutputInitNeeded());
    ASSERT_TRUE(initializer->initOutput());
    EXPECT_EQ(attributes.out->getImage().getGeometry().toString(), "5x4x3x2x3 UInt8");
    EXPECT_FALSE(initializer->isOutputInitNeeded());
    attributes.second->init(steps({eImageBufferType::Int32}));
    ASSERT_TRUE(initializer->initOutput());
    EXPECT_EQ(attributes.out->getImage().getGeometry().toString(), "5x4x3x2x3 UInt8/Int32");
}

TEST(OutputAppendSeq, leavesImagesThatDoNotFitToTheRules)
{
    Attributes attributes;
    attributes.first->init(steps({eImageBufferType::UInt8}));
    attributes.second->init(createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 3, 1, 1)));
    EXPECT_FALSE(attributes.info->isOutputInitNeeded());
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(attributes.info->getTemporalGeometry()); }),
              "Sequences of 5x4x3x2x1 UInt8 and 5x4x3x1x1 UInt8 can't be joined: sizes on x, y, z and c have to be the "
              "same");
}

TEST(OutputAppendSeq, throwsWhereAnImageIsMissing)
{
    const auto message = [](const Attributes& attributes) {
        const std::string one = testing::messageOf([&] { static_cast<void>(attributes.info->getImageBufferType()); });
        const std::string other =
            testing::messageOf([&] { static_cast<void>(attributes.info->getImageBufferTypeVector()); });
        EXPECT_EQ(one, other);
        return one;
    };
    const std::string missing =
        "There is no image from which another one's properties follow: set it, and keep the processor that holds it";
    Attributes attributes;
    EXPECT_EQ(message(attributes), missing);
    attributes.first->init(steps({eImageBufferType::UInt8}));
    EXPECT_EQ(message(attributes), missing);
    attributes.second->init(steps({eImageBufferType::UInt8}));
    EXPECT_EQ(message(attributes), "no exception");
    attributes.second.reset();
    EXPECT_EQ(message(attributes), missing);
    attributes.info = outputAppendSeq({}, {});
    EXPECT_EQ(message(attributes), missing);
    EXPECT_FALSE(attributes.info->isOutputInitNeeded());
}

} // namespace
} // namespace orlix::imaproc::util
