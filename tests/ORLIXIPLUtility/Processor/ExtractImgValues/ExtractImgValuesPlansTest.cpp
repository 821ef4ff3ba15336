// Many plans and volumes in one call, and what is refused with which text.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using testing::messageOf;

/// 9 x 7 with 3 plans, 2 channels and 2 time steps.
ImagePtr makeStack()
{
    const ImagePtr image = image::createImage(*image::geometry5d(eImageBufferType::UInt16, 9, 7, 3, 2, 2));
    testing::fillRandom(*image, 21);
    return image;
}

ImagePtr planOf(const ImagePtr& image, const PlanIndex& plan)
{
    ImagePtr sub;
    EXPECT_TRUE(image::SubImageExtractor::extractPlan<image::BaseImage>(plan.z, plan.c, plan.t, *image, sub));
    return sub;
}
ImagePtr volumeOf(const ImagePtr& image, const PlanIndex& plan)
{
    ImagePtr sub;
    EXPECT_TRUE(image::SubImageExtractor::extractVolume<image::BaseImage>(plan.c, plan.t, *image, sub));
    return sub;
}

TEST(ExtractImgValuesPlansTest, everyPlanHasItsOwnPointsAndMethod)
{
    const ImagePtr image = makeStack();
    attr::PlanIndexedCoords2dColl points;
    std::vector<std::vector<InPlans::Place>> places;
    for (unsigned long t = 0; t < 2; ++t) { // not in the order of the plans
        for (unsigned long z = 3; z-- > 0;) {
            for (unsigned long c = 0; c < 2; ++c) {
                const unsigned long count = (z + 3 * c + 5 * t) % 4 * 20; // none for some
                places.push_back(pointsWithin<InPlans::Place>(*planOf(image, {z, c, t}), count, 30 + places.size()));
                points.insert({z, c, t}, collOf(places.back()));
            }
        }
    }
    const auto shared = boost::make_shared<const attr::PlanIndexedCoords2dColl>(points);
    for (const unsigned policy : {0U, 1U, 2U}) {
        // 63 pixels: plans of 20 points are read by tiles under the third method, those of more by strips.
        for (const MethodPtr& method : {tiled(), striped(), attr::createImageValueExtractionMethod(2)}) {
            const auto values =
                multiSlice_extractImg2dValues(image, shared, static_cast<Policy::domain>(policy), method);
            ASSERT_TRUE(values);
            ASSERT_EQ(values->size(), 12u);
            for (unsigned long i = 0; i < points.size(); ++i) {
                const PlanIndex plan = points.getPlanIndex(i);
                EXPECT_TRUE(hasExpected(*planOf(image, plan), places[i], policy, valuesIn(values->find(plan)))) << plan;
            }
        }
    }
}

TEST(ExtractImgValuesPlansTest, everyVolumeHasItsOwnPoints)
{
    const ImagePtr image = makeStack();
    const auto points = boost::make_shared<attr::PlanIndexedCoords3dColl>();
    std::vector<std::vector<InVolumes::Place>> places;
    for (unsigned long c = 0; c < 2; ++c) {
        for (unsigned long t = 0; t < 2; ++t) {
            places.push_back(
                pointsWithin<InVolumes::Place>(*volumeOf(image, {0, c, t}), 40 * c + 7, 50 + places.size()));
            points->insert({0, c, t}, collOf(places.back()));
        }
    }
    for (const MethodPtr& method : {tiled(), striped(), attr::createImageValueExtractionMethod(8)}) {
        const auto values = multiSlice_extractImg3dValues(image, points, Policy::eIP_Cubic, method);
        ASSERT_EQ(values->size(), 4u);
        for (unsigned long i = 0; i < points->size(); ++i) {
            const PlanIndex plan = points->getPlanIndex(i);
            EXPECT_TRUE(hasExpected(*volumeOf(image, plan), places[i], 2, valuesIn(values->find(plan)))) << plan;
        }
    }
}

TEST(ExtractImgValuesPlansTest, collectionsOfAnotherShapeAreRefused)
{
    const ImagePtr image = makeStack();
    const double xy[] = {1, 2};
    const double xyz[] = {1, 2, 1};
    EXPECT_EQ(messageOf([&] { extractImg2dValues(image, attr::createCoords2dColl(xy)); }),
              "InPICoords2dColl is for 1 plans of 1 channels at 1 times, but InImg is " +
                  image->getGeometry().toString() + ": give an entry to each of its plans");
    EXPECT_EQ(messageOf([&] { extractImg3dValues(image, attr::createCoords3dColl(xyz)); }),
              "InPICoords3dColl is for 1 plans of 1 channels at 1 times, but InImg3d is " +
                  image->getGeometry().toString() + ": give an entry to each of its volumes, at plan 0");
    const auto points = boost::make_shared<attr::PlanIndexedCoords2dColl>();
    points->insert({2, 1, 1}, attr::createCoords2dColl(xy));
    EXPECT_EQ(messageOf([&] { multiSlice_extractImg2dValues(image, points); }),
              "InCoords2dColl has no entry for plan 0 of channel 0 at time 0: every plan needs one");
    EXPECT_EQ(messageOf([&] { multiSlice_extractImg2dValues(image, nullptr); }),
              "ExtractImg2dValuesLvl1: attribute InPICoords2dColl holds a null pointer: give it an object that exists");
}

TEST(ExtractImgValuesPlansTest, whatIsNullIsRefused)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 3, 3));
    const double xy[] = {1, 2};
    const auto points = attr::createCoords2dColl(xy);
    EXPECT_NE(messageOf([&] { extractImg2dValues(nullptr, points); }), "no exception");
    EXPECT_NE(messageOf([&] { extractImg2dValues(image, nullptr); }), "no exception");
    EXPECT_NE(messageOf([&] { extractImg2dValues(image, points, Policy::eIP_Linear, nullptr); }), "no exception");
    EXPECT_NE(messageOf([&] { extractImg3dValues(image, nullptr); }), "no exception");
}

TEST(ExtractImgValuesPlansTest, stripsNameTheFirstPointThatIsInTheWay)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 10, 8));
    const double xy[] = {1, 2, 10, 3, 12.5, 3, 2, 7, 3, 1};
    EXPECT_EQ(
        messageOf([&] { extractImg2dValues(image, attr::createCoords2dColl(xy), Policy::eIP_Linear, striped()); }),
        "Input point 2d coordinates {x=10.000000, y=3.000000} are not valid given strip coordinates {xSize=10, "
        "yStart=0, ySize=8}");
    const double left[] = {1, 2, -0.5, 3, 4, 3};
    EXPECT_EQ(
        messageOf([&] { extractImg2dValues(image, attr::createCoords2dColl(left), Policy::eIP_Cubic, striped()); }),
        "Input point 2d coordinates {x=-0.500000, y=3.000000} are not valid given strip coordinates {xSize=10, "
        "yStart=0, ySize=8}");
    const ImagePtr volume = image::createImage(*image::geometry3d(eImageBufferType::UInt8, 10, 8, 3));
    const double xyz[] = {1, 2, 0, 4, 8, 1, 5, 5, 2};
    EXPECT_EQ(
        messageOf([&] { extractImg3dValues(volume, attr::createCoords3dColl(xyz), Policy::eIP_Linear, striped()); }),
        "Input point 3d coordinates {x=4.000000, y=8.000000, z=1.000000} are not valid given strip coordinates "
        "{xSize=10, ySize=8, zStart=0, zSize=3}");
}

} // namespace
} // namespace orlix::imaproc::util::test
