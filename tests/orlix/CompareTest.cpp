// orlix compare.
#include "ColourScale.h"
#include "CommandLine.h"
#include "DifferencePicture.h"
#include "DifferenceStatistics.h"
#include "orlix/support/JsonDocument.h"
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <iostream>
#include <limits>
#include <sstream>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;

class CompareTest : public ::testing::Test
{
protected:
    ProgramResult compare(const ImageConstPtr& first, const ImageConstPtr& second,
                          const std::vector<std::string>& options = {})
    {
        image::io::writeImage(m_folder / "one.tif", first);
        image::io::writeImage(m_folder / "two.tif", second);
        std::vector<std::string> arguments{"compare", m_folder / "one.tif", m_folder / "two.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }
    /// The noise of `makeNoise` with one UInt16 pixel changed by `change`.
    static ImagePtr makeChanged(const image::BaseImageGeometry& geometry, unsigned long x, unsigned long y,
                                unsigned long z, unsigned short change)
    {
        const ImagePtr image = makeNoise(geometry);
        image::planData<unsigned short>(*image, z, 0, 0)[y * geometry.getSizeX() + x] ^= change;
        return image;
    }

    const TemporaryFolder m_folder;
};

/// What the verb prints in this process, whose locale writes numbers in another way.
std::string printedInAnotherLocale(const std::vector<std::string>& arguments)
{
    std::vector<const char*> words{"orlix"};
    for (const std::string& argument : arguments) {
        words.push_back(argument.c_str());
    }
    const orlix::testing::ScopedCppLocale scope;
    std::ostringstream out;
    std::streambuf* const buffer = std::cout.rdbuf(out.rdbuf());
    const std::locale locale = std::cout.imbue(std::locale());
    EXPECT_EQ(cli::runCommandLine(static_cast<int>(words.size()), words.data()), 1);
    std::cout.imbue(locale);
    std::cout.rdbuf(buffer);
    return out.str();
}

TEST_F(CompareTest, NumbersFollowNoLocale)
{
    const auto geometry = *geometry2d(eImageBufferType::UInt16, 2000, 3);
    const ImagePtr image = makeNoise(geometry);
    image::planData<unsigned short>(*image, 0, 0, 0)[1999] = 5000;
    const ImagePtr changed = makeNoise(geometry);
    image::planData<unsigned short>(*changed, 0, 0, 0)[1999] = 35000;
    const ProgramResult result = compare(image, changed);
    EXPECT_NE(result.out.find("6000 compared, 1 differ"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("x 1999, y 0, z 0, c 0, t 0: 5000 in "), std::string::npos) << result.out;
    const std::string one = m_folder / "one.tif";
    const std::string two = m_folder / "two.tif";
    EXPECT_EQ(printedInAnotherLocale({"compare", one, two}), result.out);
    EXPECT_EQ(printedInAnotherLocale({"compare", one, two, "--json"}), compare(image, changed, {"--json"}).out);
}

TEST_F(CompareTest, SameImagesOfEveryType)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeNoise(*geometry5d(type, 67, 33, 3, 2, 2));
        const ProgramResult result = compare(image, image);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, m_folder / "one.tif" + " and " + (m_folder / "two.tif") +
                                  " are the same\n  pixels      26532 compared, 0 differ\n");
    }
}

TEST_F(CompareTest, TellsCountsAndTheFirstDifference)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 20, 10, 3, 1, 1);
    const ImagePtr image = makeNoise(*geometry);
    const unsigned value = image::planData<unsigned short>(*image, 2, 0, 0)[7 * 20 + 5];
    const ProgramResult result = compare(image, makeChanged(*geometry, 5, 7, 2, 0x100));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
    const std::string one = m_folder / "one.tif";
    const std::string two = m_folder / "two.tif";
    EXPECT_EQ(result.out, one + " and " + two +
                              " differ\n  pixels      600 compared, 1 differ\n  first       x 5, y 7, z 2, c 0, t 0: " +
                              std::to_string(value) + " in " + one + ", " + std::to_string(value ^ 0x100U) + " in " +
                              two + "\n  difference  largest 256, mean of all pixels 0.42666668\n");
}

TEST_F(CompareTest, TolerancesAloneAndTogether)
{
    const auto geometry = geometry2d(eImageBufferType::UInt16, 4, 1);
    const ImagePtr one = image::createImage(*geometry);
    const ImagePtr two = image::createImage(*geometry);
    const unsigned short first[] = {0, 100, 1000, 10000};
    const unsigned short second[] = {2, 103, 1030, 10100};
    std::copy(first, first + 4, image::planData<unsigned short>(*one, 0, 0, 0));
    std::copy(second, second + 4, image::planData<unsigned short>(*two, 0, 0, 0));
    const auto differing = [&](const std::vector<std::string>& options) {
        std::vector<std::string> all = options;
        all.push_back("--json");
        const ProgramResult result = compare(one, two, all);
        const JsonDocument json = parseJson(result.out);
        const double nbDifferent = json["differentPixels"].number;
        EXPECT_EQ(result.exitCode, nbDifferent > 0 ? 1 : 0);
        EXPECT_EQ(json["identical"].bValue, nbDifferent == 0);
        return nbDifferent;
    };
    EXPECT_EQ(differing({}), 4);
    EXPECT_EQ(differing({"--absolute", "2.9"}), 3);
    EXPECT_EQ(differing({"--absolute", "30"}), 1);
    EXPECT_EQ(differing({"--relative", "0.01"}), 3);
    EXPECT_EQ(differing({"--relative", "0.03"}), 1);
    EXPECT_EQ(differing({"--absolute", "2", "--relative", "0.03"}), 0);
}

TEST_F(CompareTest, AsJson)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 20, 10, 3, 1, 1);
    const ProgramResult result = compare(makeNoise(*geometry), makeChanged(*geometry, 5, 7, 2, 0x100), {"--json"});
    const JsonDocument json = parseJson(result.out);
    EXPECT_EQ(json["first"].text, m_folder / "one.tif");
    EXPECT_EQ(json["second"].text, m_folder / "two.tif");
    EXPECT_TRUE(json["absoluteTolerance"].isNull());
    EXPECT_EQ(json["comparedPixels"].number, 600);
    EXPECT_EQ(json["firstDifference"]["x"].number, 5);
    EXPECT_EQ(json["firstDifference"]["y"].number, 7);
    EXPECT_EQ(json["firstDifference"]["z"].number, 2);
    EXPECT_EQ(json["firstDifference"]["c"].number, 0);
    EXPECT_EQ(json["firstDifference"]["t"].number, 0);
    EXPECT_EQ(json["largestDifference"].number, 256);
    const JsonDocument same = parseJson(compare(makeNoise(*geometry), makeNoise(*geometry), {"--json"}).out);
    EXPECT_TRUE(same["firstDifference"].isNull());
    EXPECT_EQ(same["largestDifference"].number, 0);
}

TEST_F(CompareTest, ImagesThatCannotBeComparedAreTrouble)
{
    const ProgramResult result = compare(makeNoise(*geometry2d(eImageBufferType::UInt16, 20, 10)),
                                         makeNoise(*geometry2d(eImageBufferType::UInt8, 20, 10)));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "orlix: " + (m_folder / "one.tif") + " is 20x10x1x1x1 UInt16, " + (m_folder / "two.tif") +
                              " is 20x10x1x1x1 UInt8: only images of the same sizes and element type can be compared; "
                              "`orlix convert` changes the type\n");
    EXPECT_EQ(runOrlix({"compare", m_folder / "one.tif", m_folder / "nowhere.tif"}).exitCode, 2);
    EXPECT_EQ(runOrlix({"compare", m_folder / "one.tif"}).exitCode, 2);
    EXPECT_EQ(compare(makeNoise(*geometry2d(eImageBufferType::UInt8, 9, 9)),
                      makeNoise(*geometry2d(eImageBufferType::UInt8, 9, 9)), {"--absolute", "-1"})
                  .exitCode,
              2);
}

TEST_F(CompareTest, PictureIsAPngOfThreeChannels)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 20, 10, 3, 1, 1);
    const std::string picture = m_folder / "difference.png";
    EXPECT_EQ(compare(makeNoise(*geometry), makeChanged(*geometry, 5, 7, 2, 0x100), {"--picture", picture}).exitCode,
              1);
    const ImagePtr drawn = image::io::readImage(picture);
    EXPECT_EQ(drawn->getSizeC(), 3u);
    EXPECT_EQ(drawn->getBufferType(), eImageBufferType::UInt8);
    const ProgramResult refused =
        compare(makeNoise(*geometry), makeNoise(*geometry), {"--picture", m_folder / "difference.tif"});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.err.find("let it end in .png"), std::string::npos);
    EXPECT_FALSE(m_folder.getNames().contains("difference.tif"));
}

cli::Colour colourAt(const image::BaseImage& picture, unsigned long x, unsigned long y)
{
    cli::Colour colour{};
    for (unsigned long channel = 0; channel < 3; ++channel) {
        colour[channel] = static_cast<unsigned char>(picture.accessRow(y, 0, channel, 0)[x]);
    }
    return colour;
}

/// Panels of 3x2 pixels, each 85 times as large, 8 apart, from line 26 on.
TEST(DifferencePictureTest, PanelsShowBothPlansAndTheirDifference)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const ImagePtr one = image::createImage(*geometry2d(eImageBufferType::Real32, 3, 2));
    const ImagePtr two = image::createImage(*geometry2d(eImageBufferType::Real32, 3, 2));
    const float first[] = {0, 10, 5, 0, nan, 10};
    const float second[] = {0, 10, 9, 8, 3, 6};
    std::copy(first, first + 6, image::planData<float>(*one, 0, 0, 0));
    std::copy(second, second + 6, image::planData<float>(*two, 0, 0, 0));
    const ImagePtr picture = cli::drawDifference(*one, *two, 0, 0, 0);
    const auto panel = [&](unsigned long number, unsigned long x, unsigned long y) {
        return colourAt(*picture, 8 + number * (3 * 85 + 8) + x * 85 + 40, 26 + y * 85 + 40);
    };
    EXPECT_EQ(panel(0, 0, 0), (cli::Colour{0, 0, 0}));
    EXPECT_EQ(panel(0, 1, 0), (cli::Colour{255, 255, 255}));
    EXPECT_EQ(panel(0, 2, 0), (cli::Colour{128, 128, 128}));
    EXPECT_EQ(panel(0, 1, 1), cli::g_noNumberColour);
    EXPECT_EQ(panel(1, 0, 1), (cli::Colour{204, 204, 204}));
    EXPECT_EQ(panel(2, 0, 0), cli::colourOf(0));
    EXPECT_EQ(panel(2, 2, 0), cli::colourOf(0.5));
    EXPECT_EQ(panel(2, 0, 1), cli::colourOf(1));
    EXPECT_EQ(panel(2, 1, 1), cli::g_noNumberColour);
    const unsigned long scale = 8 + 3 * (3 * 85 + 8);
    EXPECT_EQ(colourAt(*picture, scale, 26), cli::colourOf(1));
    EXPECT_EQ(colourAt(*picture, scale, 26 + 2 * 85 - 1), cli::colourOf(0));
}

/// Sizes of 3x2x3x2x2; the images differ from plan z 2, c 0, t 1 on, in each plan at a pixel of its own.
TEST_F(CompareTest, PictureShowsThePlanOfTheFirstDifference)
{
    const auto geometry = geometry5d(eImageBufferType::UInt8, 3, 2, 3, 2, 2);
    const ImagePtr one = image::createImage(*geometry);
    const ImagePtr two = image::createImage(*geometry);
    for (unsigned long t = 0; t < 2; ++t) {
        for (unsigned long c = 0; c < 2; ++c) {
            for (unsigned long z = 0; z < 3; ++z) {
                std::memset(image::planData<unsigned char>(*one, z, c, t), 100, 6);
                std::memset(image::planData<unsigned char>(*two, z, c, t), 100, 6);
            }
        }
    }
    image::planData<unsigned char>(*two, 2, 0, 1)[5] = 200;
    for (unsigned long z = 0; z < 3; ++z) {
        image::planData<unsigned char>(*two, z, 1, 1)[z] = 200;
    }
    const std::string picture = m_folder / "difference.png";
    const ProgramResult result = compare(one, two, {"--picture", picture});
    EXPECT_NE(result.out.find("first       x 2, y 1, z 2, c 0, t 1: 100 in"), std::string::npos) << result.out;
    const ImagePtr drawn = image::io::readImage(picture);
    for (unsigned long i = 0; i < 6; ++i) {
        const unsigned long x = 8 + 2 * (3 * 85 + 8) + i % 3 * 85 + 40;
        EXPECT_EQ(colourAt(*drawn, x, 26 + i / 3 * 85 + 40), cli::colourOf(i == 5 ? 1 : 0)) << i;
    }
    EXPECT_EQ(compare(two, two, {"--picture", picture}).exitCode, 0);
    EXPECT_EQ(colourAt(*image::io::readImage(picture), 8 + 2 * (3 * 85 + 8) + 40, 66), cli::colourOf(0));
}

TEST(DifferencePictureTest, LightnessGrowsAllTheWay)
{
    const auto lightness = [](const cli::Colour& colour) {
        return 0.2126 * colour[0] + 0.7152 * colour[1] + 0.0722 * colour[2];
    };
    for (int step = 0; step < 100; ++step) {
        EXPECT_LT(lightness(cli::colourOf(step / 100.0)), lightness(cli::colourOf((step + 2) / 100.0))) << step;
    }
    EXPECT_EQ(cli::colourOf(-1), cli::colourOf(0));
    EXPECT_EQ(cli::colourOf(7), cli::colourOf(1));
}

TEST(DifferenceStatisticsTest, LargestAndMeanOfWhatAreNumbers)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const ImagePtr one = image::createImage(*geometry2d(eImageBufferType::Real32, 4, 1));
    const ImagePtr two = image::createImage(*geometry2d(eImageBufferType::Real32, 4, 1));
    const float first[] = {1, infinity, nan, 5};
    const float second[] = {4, infinity, nan, 5};
    std::copy(first, first + 4, image::planData<float>(*one, 0, 0, 0));
    std::copy(second, second + 4, image::planData<float>(*two, 0, 0, 0));
    const cli::DifferenceStatistics statistics = cli::measureDifferences(*one, *two);
    EXPECT_EQ(statistics.largest, 3);
    EXPECT_EQ(statistics.mean, 1);
    EXPECT_EQ(statistics.nbNotNumbers, 1u);
}

} // namespace
} // namespace orlix::test
