// Points and their values as data: made in bulk, read in bulk, in archives, by name.
#include "ORLIX/ORLIXBaseData/ORLIXBaseDataException.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImageValueExtractionMethod.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Pixels2d.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Voxels3d.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace orlix::imaproc::attr {
namespace {

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double g_inf = std::numeric_limits<double>::infinity();

template <class TItem>
std::string written(const TItem& item)
{
    TextOArchive archive;
    std::string text;
    EXPECT_TRUE(item.write(archive) && archive.saveToString(text));
    return text;
}

template <class TItem>
void expectRoundTrip(const TItem& item)
{
    TextIArchive archive;
    ASSERT_TRUE(archive.loadFromString(written(item)));
    const auto made = DynamicObjectFactory::getInstance().createShared(TItem::getTypeName());
    ASSERT_NE(made, nullptr) << TItem::getTypeName();
    auto& read = dynamic_cast<TItem&>(*made);
    ASSERT_TRUE(read.read(archive));
    EXPECT_EQ(read, item);
    EXPECT_EQ(written(read), written(item));
    const auto copy = item.duplicateShared();
    EXPECT_EQ(dynamic_cast<const TItem&>(*copy), item);
}

std::string messageOf(void (*call)())
{
    try {
        call();
    } catch (const ORLIXBaseDataException& error) {
        return error.what();
    }
    return "no exception";
}

boost::shared_ptr<Pixel2d> pixel(double x, double y, double value)
{
    const auto made = boost::make_shared<Pixel2d>();
    made->access<Pixel2d::X>() = x;
    made->access<Pixel2d::Y>() = y;
    made->access<Pixel2d::Value>() = value;
    return made;
}

TEST(PointsTest, namesAndLeavesAreThoseOfTheFamily)
{
    EXPECT_EQ(Coords2dColl::getTypeName(), "orlix::imaproc::attr::Coords2dColl");
    EXPECT_EQ(Coords3dColl::getTypeName(), "orlix::imaproc::attr::Coords3dColl");
    EXPECT_EQ(Doubles::getTypeName(), "orlix::imaproc::attr::Doubles");
    EXPECT_EQ(Pixels2d::getTypeName(), "orlix::imaproc::attr::Pixels2d");
    EXPECT_EQ(Voxels3d::getTypeName(), "orlix::imaproc::attr::Voxels3d");
    EXPECT_EQ(Pixel2d().getChildNames(), (std::vector<std::string>{"X", "Y", "Value"}));
    EXPECT_EQ(Voxel3d().getChildNames(), (std::vector<std::string>{"X", "Y", "Z", "Value"}));
    EXPECT_EQ(Doubles().getChildNames(), std::vector<std::string>{"Coll"});
    EXPECT_EQ(Pixel2d().get<Pixel2d::Value>(), 0);
    EXPECT_EQ(Voxel3d().get<Voxel3d::Value>(), 0);
}

TEST(PointsTest, areMadeFromNumbersSideBySide)
{
    const double xy[] = {1, 2, -3.5, g_inf, 5, 6};
    const auto points = createCoords2dColl(xy);
    const auto& coll = points->get<Coords2dColl::Coll>();
    ASSERT_EQ(coll.size(), 3u);
    EXPECT_EQ(coll[1].get<Coords2d::X>(), -3.5);
    EXPECT_EQ(coll[1].get<Coords2d::Y>(), g_inf);
    EXPECT_EQ(coll[2].get<Coords2d::X>(), 5);
    const auto volume = createCoords3dColl(xy);
    ASSERT_EQ(volume->get<Coords3dColl::Coll>().size(), 2u);
    EXPECT_EQ(volume->get<Coords3dColl::Coll>()[1].get<Coords3d::X>(), g_inf);
    EXPECT_EQ(volume->get<Coords3dColl::Coll>()[1].get<Coords3d::Z>(), 6);
    EXPECT_TRUE(createCoords2dColl({})->get<Coords2dColl::Coll>().empty());
    EXPECT_TRUE(createCoords3dColl({})->get<Coords3dColl::Coll>().empty());
}

TEST(PointsTest, halfAPointIsMisuse)
{
    EXPECT_EQ(messageOf([] {
                  const double three[] = {1, 2, 3};
                  static_cast<void>(createCoords2dColl(three));
              }),
              "3 numbers are no whole number of points of 2 coordinates each: give all coordinates");
    EXPECT_EQ(messageOf([] {
                  const double four[] = {1, 2, 3, 4};
                  static_cast<void>(createCoords3dColl(four));
              }),
              "4 numbers are no whole number of points of 3 coordinates each: give all coordinates");
}

TEST(PointsTest, valuesAreReadWhereTheyLie)
{
    Doubles doubles;
    doubles.access<Doubles::Coll>() = {1.5, -2};
    EXPECT_EQ(valuesOf(doubles).data(), doubles.get<Doubles::Coll>().data());
    EXPECT_EQ(valuesOf(doubles).size(), 2u);
}

TEST(PointsTest, archivesGiveThemBack)
{
    const double numbers[] = {0.1, -0.0, g_nan, g_inf, 1e300, 7};
    expectRoundTrip(*createCoords2dColl(numbers));
    expectRoundTrip(*createCoords3dColl(numbers));
    expectRoundTrip(Coords2dColl());
    Doubles doubles;
    doubles.access<Doubles::Coll>() = {0.1, g_nan, -g_inf};
    expectRoundTrip(doubles);
    expectRoundTrip(*pixel(1, 2, 3.25));
    Pixels2d pixels;
    pixels.access<Pixels2d::Coll>() = {pixel(1, 2, 3), nullptr, pixel(4, 5, g_nan)};
    expectRoundTrip(pixels);
    Voxel3d voxel;
    voxel.access<Voxel3d::Z>() = -4;
    expectRoundTrip(voxel);
    Voxels3d voxels;
    voxels.access<Voxels3d::Coll>() = {boost::make_shared<Voxel3d>(voxel)};
    expectRoundTrip(voxels);
    expectRoundTrip(*createImageValueExtractionMethod(17));
    PlanIndexedCoords2dColl byPlan;
    byPlan.insert({2, 1, 0}, createCoords2dColl(numbers));
    byPlan.insert({0, 0, 3}, nullptr);
    expectRoundTrip(byPlan);
    PlanIndexedCoords3dColl byVolume;
    byVolume.initPlanIndexed(1, 2, 2);
    expectRoundTrip(byVolume);
    PlanIndexedDoubles values;
    values.initPlanIndexed(3, 1, 2);
    values.find({1, 0, 1})->access<Doubles::Coll>() = {9};
    expectRoundTrip(values);
}

RC_GTEST_PROP(PointsProperty, EveryCoordinateSurvivesAnArchive, (const std::vector<std::pair<double, double>>& points))
{
    std::vector<double> xy;
    for (const auto& [x, y] : points) {
        xy.insert(xy.end(), {x, y});
    }
    const auto coll = createCoords2dColl(xy);
    TextOArchive out;
    std::string text;
    RC_ASSERT(static_cast<bool>(coll->write(out)) && static_cast<bool>(out.saveToString(text)));
    TextIArchive in;
    Coords2dColl read;
    RC_ASSERT(static_cast<bool>(in.loadFromString(text)) && static_cast<bool>(read.read(in)));
    RC_ASSERT(read == *coll);
}

TEST(ImageValueExtractionMethodTest, goesByPixelsAPoint)
{
    constexpr unsigned long max = std::numeric_limits<unsigned long>::max();
    const auto isTiled = [](unsigned long factor, unsigned long nbCoords, unsigned long nbPixels) {
        return createImageValueExtractionMethod(factor)->checkTiledMethod(nbCoords, nbPixels);
    };
    EXPECT_TRUE(isTiled(10, 5, 50));
    EXPECT_FALSE(isTiled(10, 5, 49));
    EXPECT_TRUE(isTiled(0, max, 0)) << "always";
    EXPECT_FALSE(isTiled(max, 0, max)) << "never";
    EXPECT_FALSE(isTiled(max, 1, max)) << "never";
    EXPECT_FALSE(isTiled(1UL << 40, 1UL << 24, max)) << "a product that does not fit";
    EXPECT_TRUE(isTiled(1UL << 40, 1UL << 23, max));
    EXPECT_EQ(*createDefaultImageValueExtractionMethod(), ImageValueExtractionMethod());
}

} // namespace
} // namespace orlix::imaproc::attr
