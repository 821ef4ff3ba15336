// orlix values.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cstring>

namespace orlix::test {
namespace {

using image::eImageBufferType;

class ValuesTest : public ::testing::Test
{
protected:
    /// x + 10 y + 100 z + 1000 c + 10000 t, so that linear values tell where they were read.
    ImagePtr makeRamp(const image::BaseImageGeometry& geometry)
    {
        const ImagePtr image = image::createImage(geometry);
        for (unsigned long t = 0; t < image->getSizeT(); ++t) {
            for (unsigned long c = 0; c < image->getSizeC(); ++c) {
                for (unsigned long z = 0; z < image->getSizeZ(); ++z) {
                    for (unsigned long y = 0; y < image->getSizeY(); ++y) {
                        for (unsigned long x = 0; x < image->getSizeX(); ++x) {
                            const auto value = static_cast<float>(x + 10 * y + 100 * z + 1000 * c + 10000 * t);
                            std::memcpy(image->accessRow(y, z, c, t) + x * sizeof(value), &value, sizeof(value));
                        }
                    }
                }
            }
        }
        return image;
    }
    void writePlan() { write(*image::geometry2d(eImageBufferType::Real32, 10, 8)); }
    void writeStack() { write(*image::geometry5d(eImageBufferType::Real32, 10, 8, 3, 2, 2)); }
    void write(const image::BaseImageGeometry& geometry)
    {
        image::io::writeImage(m_folder / "in.tif", makeRamp(geometry));
    }

    ProgramResult run(const std::string& table, const std::vector<std::string>& options = {})
    {
        writeText(m_folder / "points.csv", table);
        std::vector<std::string> arguments{"values", m_folder / "in.tif", m_folder / "points.csv"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }
    std::string valuesOf(const std::string& table, const std::vector<std::string>& options = {})
    {
        const ProgramResult result = run(table, options);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        return result.out;
    }
    /// Without the folder, and without what stands before the first colon and a space.
    std::string refusal(const std::string& table, const std::vector<std::string>& options = {})
    {
        const ProgramResult result = run(table, options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        std::string text = result.err;
        for (const std::string name : {"in.tif", "points.csv"}) {
            const std::string whole = m_folder / name;
            for (std::size_t at = text.find(whole); at != std::string::npos; at = text.find(whole)) {
                text.replace(at, whole.size(), name);
            }
        }
        return text;
    }

    const TemporaryFolder m_folder;
};

TEST_F(ValuesTest, RowsComeBackWithTheirValues)
{
    writePlan();
    EXPECT_EQ(valuesOf("x,y\n1,2\n0.5,0.25\n9,7\n1,2\n"), "x,y,value\n1,2,21\n0.5,0.25,3\n9,7,79\n1,2,21\n");
    EXPECT_EQ(valuesOf("x,y\n1.5,2.5\n", {"--interpolation", "nearest"}), "x,y,value\n1.5,2.5,32\n");
    EXPECT_EQ(valuesOf("x,y\n4.5,3.5\n", {"--interpolation", "CUBIC"}), "x,y,value\n4.5,3.5,39.5\n");
    EXPECT_EQ(valuesOf("x,y\n"), "x,y,value\n");
}

TEST_F(ValuesTest, AllMethodsGiveTheSame)
{
    writePlan();
    const std::string table = "x,y\n0,0\n3.3,4.7\n8.999,6.5\n9,7\n";
    const std::string expected = valuesOf(table, {"--interpolation", "cubic"});
    for (const char* const method : {"auto", "tiled", "striped"}) {
        EXPECT_EQ(valuesOf(table, {"--interpolation", "cubic", "--method", method}), expected) << method;
    }
}

TEST_F(ValuesTest, TablesOfOtherProgramsAreRead)
{
    writePlan();
    EXPECT_EQ(valuesOf(" \tArea\tY\tX\n1\t17.5\t2.000\t1.000\r\n2\t3\t0\t9\n"),
              " \tArea\tY\tX\tvalue\n1\t17.5\t2.000\t1.000\t21\n2\t3\t0\t9\t9\n");
    EXPECT_EQ(valuesOf(" ,Label,X,Y,Mean\n1,head:0001,1.000,2.000,3.5\n"),
              " ,Label,X,Y,Mean,value\n1,head:0001,1.000,2.000,3.5,21\n");
    EXPECT_EQ(valuesOf("\xEF\xBB\xBF# made by hand\n\nname; \"x\" ;y\n\"a;b\";1; 2\n# the end\n"),
              "name; \"x\" ;y;value\n\"a;b\";1; 2;21\n");
    EXPECT_EQ(valuesOf("x,y\n1e0,.5"), "x,y,value\n1e0,.5,6\n") << "no line end at the end";
}

TEST_F(ValuesTest, ColumnsTellPlanesAndVolumes)
{
    writeStack();
    EXPECT_EQ(valuesOf("x,y,c,t\n1,2,1,0\n3,4,0,1\n5,6,1,1\n1,1,1,0\n", {"--plan", "2,0,0"}),
              "x,y,c,t,value\n1,2,1,0,1221\n3,4,0,1,10243\n5,6,1,1,11265\n1,1,1,0,1211\n");
    EXPECT_EQ(valuesOf("x,y\n1,2\n", {"--plan=1,1,1"}), "x,y,value\n1,2,11121\n");
    EXPECT_EQ(valuesOf("x,y,z,c,t\n1,2,0.5,1,1\n1,2,1.5,0.0,1\n"),
              "x,y,z,c,t,value\n1,2,0.5,1,1,11071\n1,2,1.5,0.0,1,10171\n");
}

TEST_F(ValuesTest, WhatNobodySaysIsAsked)
{
    writeStack();
    EXPECT_EQ(refusal("x,y\n1,2\n"),
              "orlix: in.tif is 10x8x3x2x2 Real32, but points.csv doesn't say where on z, c, t its points lie: add "
              "columns, or give --plan Z,C,T\n");
    EXPECT_EQ(
        refusal("x,y,z,t\n1,2,0,0\n"),
        "orlix: in.tif is 10x8x3x2x2 Real32, but points.csv doesn't say where on c its points lie: add columns, or "
        "give --plan Z,C,T\n");
    EXPECT_EQ(refusal("x,y,c\n1,2,2\n", {"--plan", "0,0,0"}),
              "orlix: points.csv, line 2 (row 1): there is no plan 0 of channel 2 at time 0 in in.tif, which is "
              "10x8x3x2x2 Real32\n");
    EXPECT_EQ(
        refusal("x,y\n1,2\n", {"--plan", "0,0"}),
        "orlix: --plan: expected three whole numbers from 0 on, as in 5,0,2, found \"0,0\"; `orlix values --help` "
        "tells more\n");
}

TEST_F(ValuesTest, PointsOutsideAreRefusedOrMirrored)
{
    writePlan();
    const std::string text = "orlix: points.csv, line 3 (row 2): (9.5, 2) is outside of in.tif, whose pixel centres go "
                             "from (0, 0) to (9, 7); --outside mirror takes values there too\n";
    EXPECT_EQ(refusal("x,y\n1,2\n9.5,2\n"), text);
    EXPECT_EQ(refusal("x,y\n1,2\n9.5,2\n", {"--outside", "refuse"}), text);
    EXPECT_EQ(
        refusal("x,y\n1,2\n1,-1e300\n"),
        "orlix: points.csv, line 3 (row 2): (1, -1e+300) is outside of in.tif, whose pixel centres go from (0, 0) "
        "to (9, 7); --outside mirror takes values there too\n");
    EXPECT_EQ(valuesOf("x,y\n9.5,2\n-1,0\n-0.25,0\n", {"--outside", "mirror"}),
              "x,y,value\n9.5,2,29\n-1,0,0\n-0.25,0,0\n");
    EXPECT_EQ(refusal("x,y\n1,2\n", {"--outside", "mirror", "--method", "striped"}),
              "orlix: --outside mirror goes with tiles alone; leave out --method striped\n");
    write(*image::geometry3d(eImageBufferType::Real32, 10, 8, 3));
    EXPECT_EQ(
        refusal("x,y,z\n1,2,2.5\n"),
        "orlix: points.csv, line 2 (row 1): (1, 2, 2.5) is outside of in.tif, whose pixel centres go from (0, 0, 0) "
        "to (9, 7, 2); --outside mirror takes values there too\n");
}

TEST_F(ValuesTest, BrokenTablesAreRefusedWithTheirLine)
{
    writePlan();
    EXPECT_EQ(refusal("x,y\n1,2\n# no\n1,two\n"),
              "orlix: points.csv, line 4 (row 2): y: expected a number with a decimal point, found \"two\"\n");
    EXPECT_EQ(refusal("x;y\n1,5;2\n"),
              "orlix: points.csv, line 2 (row 1): x: expected a number with a decimal point, found \"1,5\"\n");
    EXPECT_EQ(refusal("x,y\n1,2,3\n"), "orlix: points.csv, line 2 (row 1): expected 2 fields, found 3 in \"1,2,3\"\n");
    for (const char* const bad : {"nan", "inf", "-inf", "1e999", ""}) {
        EXPECT_EQ(
            refusal(std::string("x,y\n1,") + bad + "\n"),
            std::string("orlix: points.csv, line 2 (row 1): y: expected a number with a decimal point, found \"") +
                bad + "\"\n");
    }
    EXPECT_EQ(refusal("x,y,c\n1,2,0.5\n"),
              "orlix: points.csv, line 2 (row 1): c: expected a whole number from 0 on, found \"0.5\"\n");
    EXPECT_EQ(refusal("1,2\n3,4\n"),
              "orlix: points.csv, line 1: expected the names of columns, x and y among them, found \"1,2\"\n");
    EXPECT_EQ(refusal(""),
              "orlix: points.csv, line 1: expected the names of columns, x and y among them, found \"\"\n");
    EXPECT_EQ(refusal("x,y,X\n1,2,3\n"), "orlix: points.csv, line 1: there are two columns \"x\": rename one\n");
    EXPECT_EQ(refusal("x,y,Value\n1,2,3\n"),
              "orlix: points.csv, line 1: there is a column \"value\" already: rename it\n");
    const ProgramResult missing = runOrlix({"values", m_folder / "in.tif", m_folder / "none.csv"});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_NE(missing.err.find("none.csv can't be read (No such file or directory): name a table of points"),
              std::string::npos)
        << missing.err;
}

TEST_F(ValuesTest, CalibratedPointsCountFromTheCornerOfTheFirstPixel)
{
    const ImagePtr image = makeRamp(*image::geometry2d(eImageBufferType::Real32, 10, 8));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("um", 0.5F, 0.25F, 0, 0);
    image->setGeometricCalibration(calibration);
    image::io::writeImage(m_folder / "in.tif", image);
    EXPECT_EQ(valuesOf("x,y\n0.25,0.125\n1.75,0.625\n", {"--calibrated"}), "x,y,value\n0.25,0.125,0\n1.75,0.625,23\n");
    EXPECT_EQ(
        refusal("x,y\n0,0\n", {"--calibrated"}).find("orlix: points.csv, line 2 (row 1): (-0.5, -0.5) is outside"), 0u);
    writePlan();
    EXPECT_EQ(refusal("x,y\n0,0\n", {"--calibrated"}),
              "orlix: in.tif has no pixel sizes: leave out --calibrated, and give points in pixels\n");
}

TEST_F(ValuesTest, TheTableGoesToAFile)
{
    writePlan();
    EXPECT_EQ(valuesOf("x,y\n1,2\n", {"--out", m_folder / "out.csv"}), "");
    EXPECT_EQ(contentOf(m_folder / "out.csv"), "x,y,value\n1,2,21\n");
    EXPECT_EQ(refusal("x,y\n1,2\n1,99\n", {"--out", m_folder / "never.csv"}).substr(0, 13), "orlix: points");
    EXPECT_EQ(m_folder.getNames(), (std::set<std::string>{"in.tif", "points.csv", "out.csv"}));
}

TEST_F(ValuesTest, JsonTellsThePlaces)
{
    writePlan();
    const std::string json = valuesOf("x,y\n1,2\n", {"--json"});
    EXPECT_NE(json.find("\"points\": ["), std::string::npos) << json;
    EXPECT_NE(json.find("\"value\": 21"), std::string::npos) << json;
}

} // namespace
} // namespace orlix::test
