// orlix append.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"
#include "support/StepImages.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using orlix::testing::joined;
using orlix::testing::makeRandom;
using orlix::testing::sameImages;
using NameSet = std::set<std::string>;

class AppendTest : public ::testing::Test
{
protected:
    std::string put(const std::string& name, const ImageConstPtr& image)
    {
        image::io::writeImage(m_folder / name, image);
        return m_folder / name;
    }
    /// The one line that a refused call writes; it leaves no output.
    std::string refusalOf(const std::vector<std::string>& arguments)
    {
        const NameSet before = m_folder.getNames();
        const ProgramResult result = runOrlix(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(m_folder.getNames(), before);
        return result.err;
    }

    const TemporaryFolder m_folder;
};

TEST_F(AppendTest, FromLeftToRight)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const bool bBinary = type == eImageBufferType::eBufferBinary;
        const auto make = [&](unsigned long sizeT, unsigned long seed) {
            const image::BaseImageGeometry geometry = *geometry5d(type, 67, 33, 3, 2, sizeT);
            return bBinary ? makeNoise(geometry) : makeRandom(geometry, seed);
        };
        const ImagePtr one = make(2, 1), two = make(1, 2), three = make(4, 3);
        const ProgramResult result = runOrlix({"append", put("1.tif", one), put("2.tif", two), put("3.tif", three),
                                               m_folder / "out.tif", "--compression", "deflate"});
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *joined(joined(one, two), three)));
        EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "1.tif"), *one));
    }
}

TEST_F(AppendTest, PlansOfPngFilesBecomeASequenceWithTheFirstOnesCalibration)
{
    const ImagePtr one = makeNoise(*geometry2d(eImageBufferType::UInt8, 20, 10));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("mm", 0.5F, 0.25F, 1, 2);
    one->setGeometricCalibration(calibration);
    const ImagePtr two = makeRandom(*geometry2d(eImageBufferType::UInt8, 20, 10), 2);
    EXPECT_EQ(runOrlix({"append", put("1.tif", one), put("2.png", two), m_folder / "out.tif"}).exitCode, 0);
    const ImagePtr out = image::io::readImage(m_folder / "out.tif");
    EXPECT_TRUE(sameImages(*out, *joined(one, two)));
    ASSERT_TRUE(out->hasGeometricCalibration());
    EXPECT_EQ(*out->getGeometricCalibration(), *calibration);
}

TEST_F(AppendTest, ToOneOfItsInputs)
{
    const ImagePtr one = makeNoise(*geometry2d(eImageBufferType::UInt16, 20, 10));
    const std::string file = put("a.tif", one);
    EXPECT_EQ(runOrlix({"append", file, file, file}).exitCode, 0);
    EXPECT_TRUE(sameImages(*image::io::readImage(file), *joined(one, one)));
    EXPECT_EQ(m_folder.getNames(), NameSet{"a.tif"});
}

TEST_F(AppendTest, TellsWhatItWroteInJson)
{
    const ImagePtr one = makeNoise(*geometry2d(eImageBufferType::UInt16, 20, 10));
    const std::string file = put("a.tif", one);
    const ProgramResult result = runOrlix({"append", file, file, m_folder / "out.tif", "--json"});
    const JsonDocument document = parseJson(result.out);
    EXPECT_EQ(document["inputs"][0].text, file);
    EXPECT_EQ(document["inputs"][1].text, file);
    EXPECT_EQ(document["output"].text, m_folder / "out.tif");
    EXPECT_EQ(document["size"]["t"].number, 2);
    EXPECT_EQ(document["type"].text, "UInt16");
}

TEST_F(AppendTest, RefusesWhatDoesNotFit)
{
    const std::string one = put("1.tif", makeNoise(*geometry5d(eImageBufferType::UInt8, 20, 10, 1, 1, 2)));
    const std::string wide = put("2.tif", makeNoise(*geometry2d(eImageBufferType::UInt8, 21, 10)));
    const std::string real = put("3.tif", makeNoise(*geometry2d(eImageBufferType::Real32, 20, 10)));
    const std::string out = m_folder / "out.tif";
    const std::string end = ": only images of the same sizes on x, y, z and c and the same element type can be "
                            "appended; `orlix convert` changes the type\n";
    EXPECT_EQ(refusalOf({"append", one, wide, out}),
              "orlix: " + one + " is 20x10x1x1x2 UInt8, " + wide + " is 21x10x1x1x1 UInt8" + end);
    EXPECT_EQ(refusalOf({"append", one, one, real, out}),
              "orlix: " + one + " is 20x10x1x1x2 UInt8, " + real + " is 20x10x1x1x1 Real32" + end);
    EXPECT_NE(refusalOf({"append", one, m_folder / "none.tif", out}).find("none.tif: can't be opened"),
              std::string::npos);
    EXPECT_NE(refusalOf({"append", one, one, m_folder / "out.png"}).find("PNG holds one plan"), std::string::npos);
}

TEST_F(AppendTest, RunsByTheNameOfItsProcessorToo)
{
    const ImagePtr one = makeNoise(*geometry2d(eImageBufferType::UInt8, 20, 10));
    const std::string file = put("a.tif", one);
    const ProgramResult result =
        runOrlix({"run", "AppendSeqImgLvl1", "InImg1=" + file, "InImg2=" + file, "OutImg=" + (m_folder / "out.tif")});
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "out.tif"), *joined(one, one)));
}

} // namespace
} // namespace orlix::test
