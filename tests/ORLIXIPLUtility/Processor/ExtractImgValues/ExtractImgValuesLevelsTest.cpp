// The lower levels by themselves: pixels that are objects, tiles of any size, groups, strips, kernels.
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using testing::makeInitialised;
using testing::messageOf;

boost::shared_ptr<attr::Pixels2d> pixelsAt(const std::vector<InPlans::Place>& places)
{
    const auto pixels = boost::make_shared<attr::Pixels2d>();
    for (const InPlans::Place& place : places) {
        const auto pixel = boost::make_shared<attr::Pixel2d>();
        pixel->access<attr::Pixel2d::X>() = place[0];
        pixel->access<attr::Pixel2d::Y>() = place[1];
        pixels->access<attr::Pixels2d::Coll>().push_back(pixel);
    }
    return pixels;
}
boost::shared_ptr<attr::Voxels3d> voxelsAt(const std::vector<InVolumes::Place>& places)
{
    const auto voxels = boost::make_shared<attr::Voxels3d>();
    for (const InVolumes::Place& place : places) {
        const auto voxel = boost::make_shared<attr::Voxel3d>();
        voxel->access<attr::Voxel3d::X>() = place[0];
        voxel->access<attr::Voxel3d::Y>() = place[1];
        voxel->access<attr::Voxel3d::Z>() = place[2];
        voxels->access<attr::Voxels3d::Coll>().push_back(voxel);
    }
    return voxels;
}

std::vector<double> valuesOfPixels(const attr::Pixels2d& pixels)
{
    std::vector<double> values;
    for (const auto& pixel : pixels.get<attr::Pixels2d::Coll>()) {
        values.push_back(pixel->get<attr::Pixel2d::Value>());
    }
    return values;
}
std::vector<double> valuesOfVoxels(const attr::Voxels3d& voxels)
{
    std::vector<double> values;
    for (const auto& voxel : voxels.get<attr::Voxels3d::Coll>()) {
        values.push_back(voxel->get<attr::Voxel3d::Value>());
    }
    return values;
}

const testing::KernelTable g_table{{eInstructionSet::eNone}};

TEST(ExtractImgValuesKernelsTest, plainRowsForEveryType)
{
    testing::expectRows<ExtractImg2dValuesTiledLvl3>(g_table);
    testing::expectRows<ExtractImg2dValuesStripedLvl3>(g_table);
    testing::expectRows<ExtractImg3dValuesTiledLvl3>(g_table);
    testing::expectRows<ExtractImg3dValuesStripedLvl3>(g_table);
}

TEST(ExtractImgValuesLevelsTest, tilesOfAnySizeServePixelsThatAreObjects)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::Int16, 11, 6));
    testing::fillRandom(*image, 60);
    const std::vector<InPlans::Place> places = {{3.25, 2.5}, {0, 0}, {10.75, 5.5}, {3.25, 2.5}};
    std::vector<image::Tile2dCoords> coords;
    for (const InPlans::Place& place : places) {
        coords.push_back({static_cast<unsigned long>(place[0]) - 1, static_cast<unsigned long>(place[1]) - 1, 1, 0});
    }
    const auto level = makeInitialised<ExtractImg2dValuesTiledLvl3>();
    level->set<attr::InTile2dColl>(
        boost::make_shared<image::InputImageTile2dColl>(*image, coords.data(), 4, image::mirorBorder2d()));
    level->set<attr::InInterpolationPolicy>(Policy::eIP_Cubic);
    const auto pixels = pixelsAt(places);
    level->set<attr::InOutPixels2d>(pixels);
    processor::executeSyncRun(level);
    EXPECT_TRUE(hasExpected(*image, places, 2, valuesOfPixels(*pixels)));
}

TEST(ExtractImgValuesLevelsTest, asManyTilesAsPixels)
{
    const ImagePtr image = image::createImage(*image::geometry3d(eImageBufferType::Int16, 11, 6, 2));
    const std::vector<image::Tile3dCoords> coords(3, {0, 0, 0, 2, 2, 2});
    const auto level = makeInitialised<ExtractImg3dValuesTiledLvl3>();
    level->set<attr::InTile3dColl>(
        boost::make_shared<image::InputImageTile3dColl>(*image, coords.data(), 3, image::mirorBorder3d()));
    level->set<attr::InInterpolationPolicy>(Policy::eIP_Linear);
    level->set<attr::InOutVoxels3d>(voxelsAt({{0, 0, 0}, {1, 1, 1}}));
    EXPECT_EQ(messageOf([&] { processor::executeSyncRun(level); }),
              "Tile collection size 3 mismatch with results collection size 2");
    const auto voxels = voxelsAt({{0, 0, 0}, {1, 1, 1}, {2, 2, 0}});
    voxels->access<attr::Voxels3d::Coll>()[1].reset();
    level->set<attr::InOutVoxels3d>(voxels);
    EXPECT_EQ(messageOf([&] { processor::executeSyncRun(level); }),
              "Tile collection size 3 mismatch with results collection size 2")
        << "what is null is no result";
}

TEST(ExtractImgValuesLevelsTest, stripsServePixelsThatAreObjects)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 11, 9));
    testing::fillRandom(*image, 61);
    const auto level = makeInitialised<ExtractImg2dValuesStripedLvl3>();
    level->set<attr::InKnlYStrip2d>(boost::make_shared<image::InputImageYStrip2dWithKernel>(
        *image, 3, 4, image::Margin{1, 2}, image::Margin{1, 2}));
    level->set<attr::InInterpolationPolicy>(Policy::eIP_Cubic);
    const std::vector<InPlans::Place> places = {{10.5, 6.75}, {0.25, 3}, {5, 5.5}, {4, 5.25}, {0.25, 3}};
    const auto pixels = pixelsAt(places);
    level->set<attr::InOutPixels2d>(pixels);
    processor::executeSyncRun(level);
    EXPECT_TRUE(hasExpected(*image, places, 2, valuesOfPixels(*pixels)));

    const auto above = pixelsAt({{5, 4}, {2, 2.5}, {5, 6}});
    level->set<attr::InOutPixels2d>(above);
    EXPECT_EQ(messageOf([&] { processor::executeSyncRun(level); }),
              "Input point 2d coordinates {x=2.000000, y=2.500000} are not valid given strip coordinates {xSize=11, "
              "yStart=3, ySize=4}");
    EXPECT_EQ(valuesOfPixels(*above), std::vector<double>(3)) << "all behind it wait in vain";
    const auto below = pixelsAt({{5, 4}, {2, 7.5}, {5, 6}});
    level->set<attr::InOutPixels2d>(below);
    EXPECT_EQ(messageOf([&] { processor::executeSyncRun(level); }),
              "Input point 2d coordinates {x=2.000000, y=7.500000} are not valid given strip coordinates {xSize=11, "
              "yStart=3, ySize=4}");
    const std::vector<double> values = valuesOfPixels(*below);
    EXPECT_EQ(values[0], expectedAt(*image, InPlans::Place{5, 4}, 2));
    EXPECT_EQ(values[2], expectedAt(*image, InPlans::Place{5, 6}, 2));
}

TEST(ExtractImgValuesLevelsTest, stripsOfVolumesServeVoxelsPlanByPlan)
{
    const ImagePtr image = image::createImage(*image::geometry3d(eImageBufferType::UInt16, 8, 5, 6));
    testing::fillRandom(*image, 62);
    const auto level = makeInitialised<ExtractImg3dValuesStripedLvl3>();
    level->set<attr::InKnlZStrip3d>(boost::make_shared<image::InputImageZStrip3dWithKernel>(
        *image, 2, 3, image::Margin{0, 1}, image::Margin{0, 1}));
    level->set<attr::InInterpolationPolicy>(Policy::eIP_Linear);
    const std::vector<InVolumes::Place> places = {{7.5, 4.5, 4.5}, {1, 1, 2}, {6, 3.25, 3.5},
                                                  {0.5, 3.75, 3},  {1, 1, 2}, {7, 0, 4}};
    const auto voxels = voxelsAt(places);
    level->set<attr::InOutVoxels3d>(voxels);
    processor::executeSyncRun(level);
    EXPECT_TRUE(hasExpected(*image, places, 1, valuesOfVoxels(*voxels)));
    // Beyond the lines of plan 3: what is before is served, in rising order, what is behind is not.
    const auto blocked = voxelsAt({{1, 1, 4}, {2, 5, 3}, {3, 4, 3}, {1, 0, 2}});
    level->set<attr::InOutVoxels3d>(blocked);
    EXPECT_EQ(messageOf([&] { processor::executeSyncRun(level); }),
              "Input point 3d coordinates {x=2.000000, y=5.000000, z=3.000000} are not valid given strip coordinates "
              "{xSize=8, ySize=5, zStart=2, zSize=3}");
    const std::vector<double> values = valuesOfVoxels(*blocked);
    EXPECT_EQ(values[0], 0);
    EXPECT_EQ(values[2], expectedAt(*image, InVolumes::Place{3, 4, 3}, 1));
    EXPECT_EQ(values[3], expectedAt(*image, InVolumes::Place{1, 0, 2}, 1));
}

TEST(ExtractImgValuesLevelsTest, levelTwoWantsAsManyValuesAsPoints)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 11, 9));
    const double xy[] = {1, 2, 3, 4};
    const auto level = makeInitialised<ExtractImg2dValuesLvl2>();
    level->set<attr::InSubImg2d>(image);
    level->set<attr::InCoords2dColl>(attr::createCoords2dColl(xy));
    level->set<attr::InInterpolationPolicy>(Policy::eIP_Linear);
    level->set<attr::InImageValueExtractionMethod>(tiled());
    const auto values = boost::make_shared<attr::Doubles>();
    level->set<attr::OutImgGreyValues>(values);
    EXPECT_NE(messageOf([&] { processor::executeSyncRun(level); }), "no exception");
    values->access<attr::Doubles::Coll>() = {7, 7};
    processor::executeSyncRun(level);
    EXPECT_EQ(values->get<attr::Doubles::Coll>(), (std::vector<double>{expectedAt(*image, InPlans::Place{1, 2}, 1),
                                                                       expectedAt(*image, InPlans::Place{3, 4}, 1)}));
}

TEST(ExtractImgValuesLevelsTest, groupsLieWithinTheirPoints)
{
    const double xy[] = {1, 2, 3, 4, 5, 6};
    const auto coords = attr::createCoords2dColl(xy);
    std::vector<double> values(3);
    const PointBlock<PlanPoints> all(coords->get<attr::Coords2dColl::Coll>().data(), values.data(), 3);
    const auto part = extractTiledPoints(all, 1, 2);
    EXPECT_EQ(part->getNbPoints(), 2u);
    EXPECT_EQ(part->getPlace(1), (InPlans::Place{5, 6}));
    EXPECT_EQ(&part->accessValue(0), &values[1]);
    EXPECT_EQ(messageOf([&] { static_cast<void>(extractTiledPixelValues(all, 2, 2)); }),
              "Elements range [2, 4[ used for data is invalid regards to elements collection size 3");
    const double xyz[] = {1, 2, 3};
    const auto one = attr::createCoords3dColl(xyz);
    const PointBlock<VolumePoints> voxels(one->get<attr::Coords3dColl::Coll>().data(), values.data(), 1);
    EXPECT_EQ(messageOf([&] { static_cast<void>(extractTiledVoxelValues(voxels, 0, 2)); }),
              "Elements range [0, 2[ used for data is invalid regards to elements collection size 1");
}

TEST(ExtractImgValuesLevelsTest, pointsAreOrderedByLowLineNumbersThenByX)
{
    const auto at = [](double x, double y) { return WaitingPoint<PlanPoints>{{x, y}, 0, nullptr}; };
    EXPECT_TRUE(coords2dGreater(at(0, 5), at(9, 4.9)));
    EXPECT_FALSE(coords2dGreater(at(0, 4.9), at(9, 4)));
    EXPECT_TRUE(coords2dGreater(at(9, 4), at(0, 4.9)));
    EXPECT_FALSE(coords2dGreater(at(1, 4), at(1, 4)));
    EXPECT_TRUE(coords2dGreater(at(0, 1), at(9, 0x1p32))) << "32 bits of the line count";
    const auto in = [](double x, double y, double z) { return WaitingPoint<VolumePoints>{{x, y, z}, 0, nullptr}; };
    EXPECT_TRUE(coords3dGreater(in(0, 0, 2), in(9, 9, 1)));
    EXPECT_TRUE(coords3dGreater(in(0, 2, 1.5), in(9, 1, 1.9)));
    EXPECT_TRUE(coords3dGreater(in(3, 2, 1), in(2, 2.5, 1)));
}

} // namespace
} // namespace orlix::imaproc::util::test
