// orlix random and orlix normal.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry5d;
using orlix::testing::sameImages;

class RandomTest : public ::testing::TestWithParam<std::string>
{
protected:
    ProgramResult run(const std::vector<std::string>& options)
    {
        std::vector<std::string> arguments{GetParam(), m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        if (GetParam() == "normal") {
            arguments.insert(arguments.end(), {"--mean", "100", "--deviation", "20"});
        }
        return runOrlix(arguments);
    }
    ImagePtr made(const std::vector<std::string>& options)
    {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        m_out = result.out;
        return image::io::readImage(m_folder / "out.tif");
    }
    void expectRefused(const std::vector<std::string>& options, const std::string& text)
    {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_NE(result.err.find(text), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
    }

    const TemporaryFolder m_folder;
    std::string m_out;
};

TEST_P(RandomTest, TheSameSeedGivesTheSameImageOnAnyNumberOfThreads)
{
    for (const std::string type : {"UInt8", "int16", "float32"}) {
        const ImagePtr first = made({"--size", "700,300,2", "--type", type, "--seed", "42"});
        EXPECT_EQ(m_out, "");
        const ImagePtr other = made({"--size", "700,300,2", "--type", type, "--seed", "42", "--threads", "7"});
        EXPECT_TRUE(sameImages(*first, *other));
        EXPECT_FALSE(sameImages(*first, *made({"--size", "700,300,2", "--type", type, "--seed", "43"})));
    }
}

TEST_P(RandomTest, WithoutASeedEachCallDiffersAndTellsItsSeed)
{
    const ImagePtr first = made({"--size", "64,64", "--type", "UInt16"});
    ASSERT_TRUE(m_out.starts_with("seed ")) << m_out;
    const std::string seed = m_out.substr(5, m_out.size() - 6);
    EXPECT_FALSE(sameImages(*first, *made({"--size", "64,64", "--type", "UInt16"})));
    EXPECT_TRUE(sameImages(*first, *made({"--size", "64,64", "--type", "UInt16", "--seed", seed})));
    static_cast<void>(made({"--size", "64,64", "--type", "UInt16", "--seed", seed, "--json"}));
    EXPECT_NE(m_out.find("\"seed\": " + seed), std::string::npos) << m_out;
    EXPECT_NE(m_out.find("\"type\": \"UInt16\""), std::string::npos) << m_out;
}

TEST_P(RandomTest, LikeAnotherImage)
{
    const ImagePtr like = makeNoise(*geometry5d(eImageBufferType::Int32, 9, 8, 4, 3, 2));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.5F, 2, 1, 2, 3);
    like->setGeometricCalibration(calibration);
    image::io::writeImage(m_folder / "like.tif", like);
    const ImagePtr same = made({"--like", m_folder / "like.tif"});
    EXPECT_EQ(same->getGeometry().toString(), like->getGeometry().toString());
    EXPECT_EQ(*same->getGeometricCalibration(), *calibration);
    const ImagePtr other = made({"--like", m_folder / "like.tif", "--type", "UInt8"});
    EXPECT_EQ(other->getGeometry().toString(), geometry5d(eImageBufferType::UInt8, 9, 8, 4, 3, 2)->toString());
}

TEST_P(RandomTest, AllFiveAxes)
{
    EXPECT_EQ(made({"--size", "5,4,3,2,6", "--type", "Int8"})->getGeometry().toString(),
              geometry5d(eImageBufferType::Int8, 5, 4, 3, 2, 6)->toString());
}

TEST_P(RandomTest, Mistakes)
{
    for (const std::string size :
         {"5", "5,", ",5", "0,5", "5,-1", "5,5,5,5,5,5", "5x5", "", "99999999999999999999,1"}) {
        expectRefused({"--size", size, "--type", "UInt8"},
                      "--size: expected two to five whole numbers from 1 on, such as 640,480, found \"" + size + "\"");
    }
    expectRefused({"--type", "UInt8"}, "the new image needs --size W,H and --type TYPE, or --like IMAGE");
    expectRefused({"--size", "5,5"}, "the new image needs --size W,H and --type TYPE, or --like IMAGE");
    expectRefused({"--size", "5,5", "--like", "a.tif"}, "--like tells the size too: leave --size out");
    expectRefused({"--like", m_folder / "none.tif"}, "can't be opened");
    expectRefused({"--size", "5,5", "--type", "UInt8", "--seed", "-1"},
                  "--seed: expected a whole number from 0 to 9007199254740991, found \"-1\"");
    expectRefused({"--size", "5,5", "--type", "UInt8", "--seed", "9007199254740992"}, "--seed");
    expectRefused({"--size", "4000000000,4000000000,4000000000", "--type", "UInt8"}, "");
}

INSTANTIATE_TEST_SUITE_P(EveryVerb, RandomTest, ::testing::Values("random", "normal"),
                         [](const auto& info) { return info.param; });

TEST(RandomVerbTest, BoundsAndTheirMistakes)
{
    const TemporaryFolder folder;
    const std::string out = folder / "out.tif";
    const auto random = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments{"random", out, "--size", "100,100", "--type", "UInt8", "--seed", "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    };
    EXPECT_EQ(random({"--min", "10.9", "--max", "20"}).exitCode, 0);
    const ImagePtr image = image::io::readImage(out);
    const unsigned char* const first = image::planData<unsigned char>(*image, 0, 0, 0);
    EXPECT_EQ(*std::min_element(first, first + 10000), 10);
    EXPECT_EQ(*std::max_element(first, first + 10000), 20);
    EXPECT_EQ(random({"--min", "5", "--max", "4"}).err, "orlix: --min 5 is above --max 4: exchange the two\n");
    EXPECT_EQ(random({"--max", "300"}).err, "orlix: --max 300: UInt8 holds 0 to 255\n");
    EXPECT_EQ(random({"--min", "nan"}).exitCode, 2);
}

TEST(NormalVerbTest, MeanAndDeviation)
{
    const TemporaryFolder folder;
    const auto normal = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments{"normal", folder / "out.tif", "--size", "100,100", "--type",
                                           "Int16",  "--seed",           "1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    };
    EXPECT_EQ(normal({"--mean", "-7.5", "--deviation", "0"}).exitCode, 0);
    const ImagePtr image = image::io::readImage(folder / "out.tif");
    const short* const first = image::planData<short>(*image, 0, 0, 0);
    EXPECT_TRUE(std::all_of(first, first + 10000, [](short value) { return value == -8; }));
    EXPECT_NE(normal({"--mean", "1"}).err.find("--deviation"), std::string::npos);
    EXPECT_EQ(normal({"--mean", "0", "--deviation", "-1"}).err,
              "orlix: --deviation: expected a number from 0 to 3.4028234663852886e+38, found \"-1\"; `orlix normal "
              "--help` tells more\n");
    EXPECT_EQ(normal({"--mean", "nan", "--deviation", "1"}).exitCode, 2);
}

} // namespace
} // namespace orlix::test
