// Attributes of values at points: names, defaults, and what a person may write for them.
#include "ORLIXIPL/ORLIXIPLAttributes/PointAttributes.h"

#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::attr {
namespace {

TEST(InterpolationPolicyTest, hasNamesNumbersAndMargins)
{
    using Policy = eInterpolationPolicy;
    EXPECT_EQ(static_cast<unsigned>(Policy::eIP_NearestNeighbour), 0u);
    EXPECT_EQ(static_cast<unsigned>(Policy::eIP_Linear), 1u);
    EXPECT_EQ(static_cast<unsigned>(Policy::eIP_Cubic), 2u);
    const auto margins = [](unsigned policy) {
        const auto each = static_cast<Policy::domain>(policy);
        return std::pair(getStartingKernelSize(each), getEndingKernelSize(each));
    };
    EXPECT_EQ(margins(0), std::pair(0UL, 1UL));
    EXPECT_EQ(margins(1), std::pair(0UL, 1UL));
    EXPECT_EQ(margins(2), std::pair(1UL, 2UL));
    EXPECT_EQ(margins(3), margins(0));
    EXPECT_EQ(margins(~0U), margins(0));
    InInterpolationPolicy policy;
    EXPECT_TRUE(policy.setFromText("Cubic"));
    EXPECT_EQ(policy.getValue(), Policy::eIP_Cubic);
    EXPECT_TRUE(policy.setFromText("0"));
    EXPECT_EQ(policy.getValue(), Policy::eIP_NearestNeighbour);
    EXPECT_EQ(policy.setFromText("3").getMessage(),
              "InInterpolationPolicy: expected one of nearest, linear, cubic, found \"3\"");
}

TEST(PointAttributesTest, whatMayBeLeftOutHasItsDefault)
{
    const InOptInterpolationPolicy policy;
    EXPECT_TRUE(policy.isOptional());
    EXPECT_EQ(policy.getValue(), eInterpolationPolicy::eIP_Linear);
    EXPECT_EQ(policy.getDefaultText(), "linear");
    EXPECT_TRUE(InOptImageValueExtractionMethod().isOptional());
    EXPECT_FALSE(InImageValueExtractionMethod().isOptional());
    EXPECT_FALSE(InPICoords2dColl().isOptional());
    InOptImageValueExtractionMethod method;
    ASSERT_TRUE(method.setFromText("PixelsPerPoint=12"));
    EXPECT_TRUE(method.getDataItemNode().checkTiledMethod(1, 12));
    EXPECT_FALSE(method.getDataItemNode().checkTiledMethod(1, 11));
}

TEST(PointAttributesTest, pointsOfOnePlanComeAsATable)
{
    InCoords2dColl points;
    ASSERT_TRUE(points.setFromText("Y,X;1,2;3,4.5"));
    EXPECT_EQ(points.getDataItemNode().get<Coords2dColl::Coll>()[1].get<Coords2d::X>(), 4.5);
    EXPECT_EQ(points.getValueText(), "X,Y;2,1;4.5,3");
    InCoords3dColl volume;
    ASSERT_TRUE(volume.setFromText("1,2,3"));
    EXPECT_EQ(volume.getValueText(), "X,Y,Z;1,2,3");
}

TEST(PointAttributesTest, pointsByPlanComeAsATableWithPlans)
{
    InPICoords2dColl points;
    EXPECT_TRUE(points.takesText());
    ASSERT_TRUE(points.setFromText("X,Y;1,2;3,4"));
    EXPECT_EQ(points.getDataItemNode().size(), 1u);
    EXPECT_EQ(points.getDataItemNode().find(PlanIndex())->get<Coords2dColl::Coll>().size(), 2u);
    EXPECT_EQ(points.getValueText(), "X,Y,Z,C,T;1,2,0,0,0;3,4,0,0,0");
    ASSERT_TRUE(points.setFromText("X,Y,C,T;1,2,1,0;3,4,0,2;5,6,1,0"));
    const PlanIndexedCoords2dColl& byPlan = points.getDataItemNode();
    EXPECT_EQ(byPlan.getMaxSizeZ(), 1u);
    EXPECT_EQ(byPlan.getMaxSizeC(), 2u);
    EXPECT_EQ(byPlan.getMaxSizeT(), 3u);
    EXPECT_EQ(byPlan.size(), 6u) << "plans between have no points";
    ASSERT_EQ(byPlan.find({0, 1, 0})->get<Coords2dColl::Coll>().size(), 2u);
    EXPECT_EQ(byPlan.find({0, 1, 0})->get<Coords2dColl::Coll>()[1].get<Coords2d::X>(), 5);
    EXPECT_TRUE(byPlan.find({0, 0, 0})->get<Coords2dColl::Coll>().empty());
    EXPECT_EQ(points.getValueText(), std::nullopt);
    InPICoords3dColl volumes;
    ASSERT_TRUE(volumes.setFromText("X,Y,Z,T;1,2,3,1;4,5,6,0"));
    EXPECT_EQ(volumes.getDataItemNode().getMaxSizeZ(), 1u) << "z is a coordinate";
    EXPECT_EQ(volumes.getDataItemNode().getMaxSizeT(), 2u);
    EXPECT_EQ(volumes.getValueText(), "X,Y,Z,C,T;4,5,6,0,0;1,2,3,0,1");
    InPICoords3dColl again;
    ASSERT_TRUE(again.setFromText(*volumes.getValueText()));
    EXPECT_EQ(again.getDataItemNode(), volumes.getDataItemNode());
}

TEST(PointAttributesTest, aTableThatCannotBeMeantIsRefused)
{
    const auto flawOf = [](const std::string& text) {
        InPICoords2dColl points;
        return points.setFromText(text).getMessage();
    };
    EXPECT_EQ(flawOf("X,Y;1,two"), "InPICoords2dColl: line 1, column 7: Y: expected number, found \"two\"");
    EXPECT_EQ(flawOf("X,Y;1"), "InPICoords2dColl: line 1, column 5: expected 2 values, found 1");
    EXPECT_EQ(flawOf("X,Y,C;1,2,18446744073709551615"),
              "InPICoords2dColl: plans go up to z 0, c 18446744073709551615, t 0: give no more than 1048576 plans");
    EXPECT_EQ(flawOf("X,Y,Z,C,T;1,2,1024,1024,1"),
              "InPICoords2dColl: plans go up to z 1024, c 1024, t 1: give no more than 1048576 plans");
    EXPECT_NE(flawOf("@/no/such/file.csv"), "");
}

TEST(PointAttributesTest, inAndOutAreOutputs)
{
    EXPECT_TRUE(InOutPixels2d().isOutput());
    EXPECT_TRUE(InOutVoxels3d().isOutput());
    EXPECT_TRUE(OutImgGreyValues().isOutput());
    EXPECT_TRUE(OutPIImgGreyValues().isOutput());
    EXPECT_FALSE(InTile2dColl().isOutput());
    EXPECT_FALSE(InKnlYStrip2d().isOutput());
    EXPECT_EQ(InKnlZStrip3d().getObjectName(), "InKnlZStrip3d");
}

} // namespace
} // namespace orlix::imaproc::attr
