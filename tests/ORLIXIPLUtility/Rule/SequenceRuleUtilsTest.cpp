// How many time steps an output of two sequences needs.
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SequenceRuleUtils.h"

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/ORLIXImageProcessingException.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry5d;
using Property = eCheckableImageProperty;

ImagePtr steps(unsigned long sizeT)
{
    return createImage(*geometry5d(eImageBufferType::UInt8, 5, 4, 1, 1, sizeT));
}

struct Attributes
{
    boost::shared_ptr<attr::InImg1> first = boost::make_shared<attr::InImg1>();
    boost::shared_ptr<attr::InImg2> second = boost::make_shared<attr::InImg2>();
    boost::shared_ptr<attr::OutImg> out = boost::make_shared<attr::OutImg>();
    boost::shared_ptr<BaseCustomCheckedImageProperty> property = matchAppendSeq(first, second);
};

const char* const g_missing =
    "There is no image from which another one's properties follow: set it, and keep the processor that holds it";

TEST(MatchAppendSeq, wantsTheStepsOfBothAndNothingElse)
{
    Attributes attributes;
    attributes.first->init(steps(3));
    attributes.second->init(steps(4));
    EXPECT_EQ(attributes.property->getTemporalGeometry().getSizeT(), 7u);
    EXPECT_TRUE(attributes.property->getTemporalGeometry().isSequence());
    for (const Property::domain each : {Property::eBufferType, Property::eSizeX, Property::eSizeY,
                                        Property::eVolumeGeometry, Property::eColorGeometry}) {
        EXPECT_FALSE(attributes.property->isCheckEnabled(each));
    }
    EXPECT_TRUE(attributes.property->isCheckEnabled(Property::eTemporalGeometry));

    const processor::RulePtr rule = customImageProperty(attributes.out, attributes.property);
    attributes.out->init(createImage(*geometry5d(eImageBufferType::Real32, 9, 9, 9, 9, 7)));
    EXPECT_TRUE(rule->check());
    attributes.out->init(steps(6));
    EXPECT_EQ(rule->check().getMessage(), "OutImg is 5x4x1x1x6 UInt8, but needs 7 along t where it has 6");
}

TEST(MatchAppendSeq, asksTheAttributesEachTime)
{
    Attributes attributes;
    attributes.first->init(steps(3));
    attributes.second->init(steps(4));
    EXPECT_EQ(attributes.property->getTemporalGeometry().getSizeT(), 7u);
    attributes.second->init(steps(1));
    EXPECT_EQ(attributes.property->getTemporalGeometry().getSizeT(), 4u);
    attributes.first->init(steps(0));
    EXPECT_EQ(attributes.property->getTemporalGeometry().getSizeT(), 1u);
}

TEST(MatchAppendSeq, throwsWhereAnImageIsMissing)
{
    const auto message = [](const Attributes& attributes) {
        return testing::messageOf([&] { static_cast<void>(attributes.property->getTemporalGeometry()); });
    };
    Attributes attributes;
    EXPECT_EQ(message(attributes), g_missing);
    attributes.first->init(steps(3));
    EXPECT_EQ(message(attributes), g_missing);
    attributes.second->init(ImageConstPtr());
    EXPECT_EQ(message(attributes), g_missing);
    attributes.second->init(steps(3));
    EXPECT_EQ(message(attributes), "no exception");
    attributes.second.reset();
    EXPECT_EQ(message(attributes), g_missing);
    attributes.second = boost::make_shared<attr::InImg2>();
    attributes.second->init(steps(3));
    attributes.property = matchAppendSeq(attributes.first, attributes.second);
    attributes.first.reset();
    EXPECT_EQ(message(attributes), g_missing);
    attributes.property = matchAppendSeq({}, {});
    EXPECT_EQ(message(attributes), g_missing);
}

} // namespace
} // namespace orlix::imaproc::util
