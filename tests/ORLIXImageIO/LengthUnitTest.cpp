// Length units of descriptions: every name converts by its own factor and is written by the name that OME-XML has.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

#include <boost/make_shared.hpp>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct Unit
{
    const char* name;
    const char* omeName;
    double metres;
};

constexpr Unit g_units[] = {{"km", "km", 1000},
                            {"m", "m", 1},
                            {"meter", "m", 1},
                            {"metre", "m", 1},
                            {"dm", "dm", 0.1},
                            {"cm", "cm", 0.01},
                            {"mm", "mm", 0.001},
                            {"millimeter", "mm", 0.001},
                            {"\u00b5m", "\u00b5m", 0.000001},
                            {"\u03bcm", "\u00b5m", 0.000001},
                            {"um", "\u00b5m", 0.000001},
                            {"micron", "\u00b5m", 0.000001},
                            {"microns", "\u00b5m", 0.000001},
                            {"micrometer", "\u00b5m", 0.000001},
                            {"nm", "nm", 0.000000001},
                            {"nanometer", "nm", 0.000000001},
                            {"\u00c5", "\u00c5", 0.0000000001},
                            {"\u212b", "\u00c5", 0.0000000001},
                            {"angstrom", "\u00c5", 0.0000000001},
                            {"pm", "pm", 0.000000000001},
                            {"inch", "in", 0.0254},
                            {"in", "in", 0.0254},
                            {"ft", "ft", 0.3048}};

} // namespace

TEST(LengthUnitTest, EveryUnitConverts)
{
    for (const Unit& unit : g_units) {
        const std::string sizes =
            "PhysicalSizeX=\"1\" PhysicalSizeXUnit=\"m\" PhysicalSizeY=\"3\" PhysicalSizeYUnit=\"" +
            std::string(unit.name) + "\"";
        const auto calibration = imageOf({.description = ome(sizes)})->getGeometricCalibration();
        ASSERT_TRUE(calibration) << unit.name;
        EXPECT_FLOAT_EQ(static_cast<float>(3 * unit.metres), calibration->getPixelSizeY()) << unit.name;
    }
}

TEST(LengthUnitTest, EveryUnitIsWrittenByItsOmeName)
{
    const TestFolder folder;
    std::vector<Unit> units(std::begin(g_units), std::end(g_units));
    units.push_back({"px", "pixel", 0});
    units.push_back({"pixels", "pixel", 0});
    units.push_back({"furlong", "reference frame", 0});
    for (const Unit& unit : units) {
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 2, 2), 1);
        const auto calibration = boost::make_shared<GeometricCalibration>();
        calibration->init2d(unit.name, 2, 3, 0, 0);
        image->setGeometricCalibration(calibration);
        writeImage(folder / "a.tif", image);
        EXPECT_TRUE(contains(contentOf(folder / "a.tif"), std::string("PhysicalSizeXUnit=\"") + unit.omeName + "\""));
        EXPECT_EQ(unit.name, readImage(folder / "a.tif")->getGeometricCalibration()->getUnit());
    }
}
