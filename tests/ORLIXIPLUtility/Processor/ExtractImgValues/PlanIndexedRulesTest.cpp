// Collections by plan against images: how many entries are wanted, and how many a made one has.
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/PointAttributes.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/FromImagePlanIndexedInitializer.h"

#include <gtest/gtest.h>

namespace orlix::imaproc {
namespace {

using attr::InImg;
using attr::InPICoords2dColl;
using attr::OutPIImgGreyValues;

struct Attributes
{
    boost::shared_ptr<InImg> image = boost::make_shared<InImg>();
    boost::shared_ptr<InPICoords2dColl> points = boost::make_shared<InPICoords2dColl>();
    boost::shared_ptr<OutPIImgGreyValues> values = boost::make_shared<OutPIImgGreyValues>();

    Attributes() { image->init(image::createImage(*image::geometry5d(image::eImageBufferType::UInt8, 2, 2, 3, 2, 4))); }
    void setPoints(unsigned long z, unsigned long c, unsigned long t) const
    {
        const auto coll = boost::make_shared<attr::PlanIndexedCoords2dColl>();
        coll->initPlanIndexed(z, c, t);
        points->init(coll);
    }
};

TEST(PlanIndexedRulesTest, sizesAreThoseOfTheImage)
{
    const Attributes own;
    const auto plans = matchImagePlans(own.points, own.image);
    const auto volumes = matchImagePlans(own.points, own.image, eImageParts::eVolumes);
    EXPECT_FALSE(plans->check()) << "nothing is held";
    own.setPoints(3, 2, 4);
    EXPECT_TRUE(plans->check());
    EXPECT_FALSE(volumes->check());
    own.setPoints(1, 2, 4);
    EXPECT_TRUE(volumes->check());
    EXPECT_EQ(
        plans->check().getMessage(),
        "InPICoords2dColl is for 1 plans of 2 channels at 4 times, but InImg is 2x2x3x2x4 UInt8: give an entry to "
        "each of its plans");
    for (const PlanIndex sizes : {PlanIndex(3, 2, 5), {3, 1, 4}, {4, 2, 4}, {0, 2, 4}, {2, 2, 4}}) {
        own.setPoints(sizes.z, sizes.c, sizes.t);
        EXPECT_FALSE(plans->check()) << sizes;
    }
    own.image->init(nullptr);
    EXPECT_FALSE(plans->check());
}

TEST(PlanIndexedRulesTest, readsAttributesAsLongAsTheyAreThere)
{
    processor::RulePtr rule;
    {
        const Attributes own;
        own.setPoints(3, 2, 4);
        rule = matchImagePlans(own.points, own.image);
        EXPECT_TRUE(rule->check());
    }
    EXPECT_FALSE(rule->check());
}

TEST(FromImagePlanIndexedInitializerTest, makesAnEntryForEachPlanOrVolume)
{
    for (const eImageParts::domain parts : {eImageParts::ePlans, eImageParts::eVolumes}) {
        const Attributes own;
        const auto initializer =
            parts == eImageParts::ePlans ? fromImage(own.values, own.image) : fromImageButVolume(own.values, own.image);
        EXPECT_TRUE(initializer->isOutputInitNeeded());
        ASSERT_TRUE(initializer->initOutput());
        const auto& values = own.values->getDataItemNode();
        EXPECT_EQ(values.getMaxSizeZ(), parts == eImageParts::ePlans ? 3u : 1u);
        EXPECT_EQ(values.getMaxSizeC(), 2u);
        EXPECT_EQ(values.getMaxSizeT(), 4u);
        EXPECT_EQ(values.size(), values.getMaxSizeZ() * 8);
        EXPECT_FALSE(initializer->isOutputInitNeeded());
    }
    const Attributes own;
    own.image->clear();
    EXPECT_FALSE(fromImage(own.values, own.image)->initOutput());
}

} // namespace
} // namespace orlix::imaproc
