// orlix lines.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"

#include <gtest/gtest.h>

#include <numbers>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using orlix::testing::sameImages;

float radians(double degrees)
{
    return static_cast<float>(degrees / 180.0 * std::numbers::pi);
}

class LinesTest : public ::testing::Test
{
protected:
    ProgramResult run(const std::vector<std::string>& options, const std::string& name = "out.tif")
    {
        std::vector<std::string> arguments{"lines", m_folder / name};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }
    ImagePtr make(const std::vector<std::string>& options, const std::string& name = "out.tif")
    {
        const ProgramResult result = run(options, name);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        return image::io::readImage(m_folder / name);
    }
    /// What is said of arguments that are refused.
    std::string refusalOf(const std::vector<std::string>& options)
    {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(m_folder.getNames(), std::set<std::string>());
        return result.err;
    }

    const TemporaryFolder m_folder;
};

TEST_F(LinesTest, planAndVolume)
{
    EXPECT_TRUE(sameImages(*make({"--size", "67,45", "--spacing", "6.5", "--theta", "30"}),
                           *imaproc::util::buildLines2dImg(67, 45, radians(30), 6.5F)));
    EXPECT_TRUE(
        sameImages(*make({"--size", "40,30,20", "--spacing", "7", "--theta", "-20", "--phi", "10", "--alpha", "400.5"}),
                   *imaproc::util::buildLines3dImg(40, 30, 20, radians(-20), radians(10), radians(400.5), 7.0F)));
}

TEST_F(LinesTest, withoutAnglesTheyAre0)
{
    EXPECT_TRUE(
        sameImages(*make({"--size", "67,45", "--spacing", "6"}), *imaproc::util::buildLines2dImg(67, 45, 0, 6.0F)));
    EXPECT_TRUE(sameImages(*make({"--size", "40,30,20", "--spacing", "6"}),
                           *imaproc::util::buildLines3dImg(40, 30, 20, 0, 0, 0, 6.0F)));
}

TEST_F(LinesTest, radiansWithASuffix)
{
    EXPECT_TRUE(sameImages(*make({"--size", "67,45", "--spacing", "6.5", "--theta", "0.7rad"}),
                           *imaproc::util::buildLines2dImg(67, 45, 0.7F, 6.5F)));
}

TEST_F(LinesTest, intoAPng)
{
    const ImagePtr image = make({"--size", "67,45", "--spacing", "5"}, "out.png");
    EXPECT_EQ(image->getBufferType(), eImageBufferType::eBufferBinary);
    EXPECT_TRUE(sameImages(*image, *imaproc::util::buildLines2dImg(67, 45, 0, 5.0F)));
}

TEST_F(LinesTest, aPartOfALargerWhole)
{
    const ImagePtr part =
        make({"--size", "67,45", "--spacing", "6.5", "--theta", "30", "--whole", "1000,800", "--offset", "200,300"});
    const ImagePtr expected = image::createImage(*image::geometry2d(eImageBufferType::eBufferBinary, 67, 45));
    imaproc::util::buildLines2dImgPart({1000, 800}, {200, 300}, radians(30), 6.5F, expected);
    EXPECT_TRUE(sameImages(*part, *expected));
    const ImagePtr slab = make({"--size", "40,30,5", "--spacing", "7", "--theta", "9", "--whole", "40,30,20"});
    const ImagePtr volume = image::createImage(*image::geometry3d(eImageBufferType::eBufferBinary, 40, 30, 5));
    imaproc::util::buildLines3dImgPart({40, 30, 20}, {0, 0, 0}, radians(9), 0, 0, 7.0F, volume);
    EXPECT_TRUE(sameImages(*slab, *volume));
}

TEST_F(LinesTest, toldAsJson)
{
    const ProgramResult result = run({"--size", "40,30,20", "--spacing", "7", "--json"});
    EXPECT_EQ(result.exitCode, 0);
    const JsonDocument document = parseJson(result.out);
    EXPECT_EQ(document["output"].text, m_folder / "out.tif");
    EXPECT_EQ(document["type"].text, "Binary");
}

TEST_F(LinesTest, argumentsThatAreRefused)
{
    const auto expectRefusal = [&](const std::vector<std::string>& options, const std::string& text) {
        EXPECT_NE(refusalOf(options).find(text), std::string::npos) << refusalOf(options);
    };
    expectRefusal({"--spacing", "7"}, "--size");
    expectRefusal({"--size", "8,8"}, "--spacing");
    for (const char* const size : {"8", "8,8,8,8", "8x8", "8,", ",8", "8,-1", "8, 8", "8,8.5", ""}) {
        expectRefusal({"--size", size, "--spacing", "7"},
                      "2 to 3 whole numbers with commas between, found \"" + std::string(size) + "\"");
    }
    expectRefusal({"--size", "8,8", "--spacing", "wide"}, "--spacing: expected number, found \"wide\"");
    for (const char* const angle : {"east", "30deg", "nan", "inf", "rad", "1 rad", ""}) {
        expectRefusal({"--size", "8,8", "--spacing", "7", "--theta", angle},
                      "--theta: expected an angle in degrees, or in radians with rad behind it, found \"" +
                          std::string(angle) + "\"");
    }
    expectRefusal({"--size", "8,8", "--spacing", "7", "--phi", "1"},
                  "--phi is for volumes, but --size 8,8 is a plan: add its depth or leave the option out");
    expectRefusal({"--size", "8,8", "--spacing", "7", "--alpha", "1"}, "--alpha is for volumes");
    expectRefusal({"--size", "8,8", "--spacing", "7", "--offset", "1,1"},
                  "--offset means nothing without --whole: give both or none");
    expectRefusal({"--size", "8,8", "--spacing", "7", "--whole", "9,9,9"},
                  "--whole 9,9,9 has other axes than --size 8,8: give as many numbers");
    expectRefusal({"--size", "8,8,8", "--spacing", "7", "--whole", "9,9,9", "--offset", "1,1"},
                  "--offset 1,1 has other axes than --size 8,8,8: give as many numbers");
    expectRefusal({"--size", "8,8", "--spacing", "7", "--whole", "9,9", "--offset", "2,1"}, "reaches beyond a whole");
}

TEST_F(LinesTest, spacingsThatAreNoneDrawNothingAndThoseBelow1Everything)
{
    for (const char* const spacing : {"0", "-3", "inf", "nan"}) {
        EXPECT_TRUE(
            sameImages(*make({"--size", "9,8", "--spacing", spacing}), *imaproc::util::buildLines2dImg(9, 8, 0, 0.0F)));
    }
    EXPECT_TRUE(
        sameImages(*make({"--size", "9,8", "--spacing", "0.5"}), *imaproc::util::buildLines2dImg(9, 8, 0, 0.5F)));
}

TEST_F(LinesTest, sizesThatNoMemoryHoldsAreAnError)
{
    EXPECT_FALSE(refusalOf({"--size", "4000000000,4000000000", "--spacing", "7"}).empty());
    EXPECT_FALSE(refusalOf({"--size", "18446744073709551615,18446744073709551615", "--spacing", "7"}).empty());
}

} // namespace
} // namespace orlix::test
