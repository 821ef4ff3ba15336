// orlix threshold.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <limits>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using orlix::testing::sameImages;
using NameSet = std::set<std::string>;

class ThresholdTest : public ::testing::Test
{
protected:
    ProgramResult threshold(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        image::io::writeImage(m_folder / "in.tif", image);
        std::vector<std::string> arguments{"threshold", m_folder / "in.tif", m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }
    /// The mask as a text of 0 and 1, row after row.
    std::string maskOf(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        const ProgramResult result = threshold(image, options);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        const ImagePtr mask = image::io::readImage(m_folder / "out.tif");
        EXPECT_EQ(mask->getBufferType(), eImageBufferType::eBufferBinary);
        std::string text;
        for (unsigned long y = 0; y < mask->getSizeY(); ++y) {
            for (unsigned long x = 0; x < mask->getSizeX(); ++x) {
                text += static_cast<char>('0' + static_cast<int>(mask->accessRow(y, 0, 0, 0)[x]));
            }
        }
        return text;
    }
    std::string refusal(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        const ProgramResult result = threshold(image, options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(m_folder.getNames(), NameSet{"in.tif"});
        return result.err;
    }

    const TemporaryFolder m_folder;
};

template <class T>
ImagePtr makeRow(eImageBufferType type, const std::vector<T>& values)
{
    const ImagePtr image = image::createImage(*geometry2d(type, values.size(), 1));
    std::copy(values.begin(), values.end(), image::planData<T>(*image, 0, 0, 0));
    return image;
}

TEST_F(ThresholdTest, BothBoundsAreIncluded)
{
    const ImagePtr in = makeRow<short>(eImageBufferType::Int16, {-101, -100, 0, 199, 200, 201});
    EXPECT_EQ(maskOf(in, {"--min", "-100", "--max", "200"}), "011110");
    EXPECT_EQ(maskOf(in, {"--min=-100.7", "--max=200.7"}), "011110");
    EXPECT_EQ(maskOf(in, {"--min", "199", "--max", "199"}), "000100") << "one value is a range too";
}

TEST_F(ThresholdTest, BoundsThatAreLeftOutAreTheLimitsOfTheType)
{
    const ImagePtr in = makeRow<unsigned char>(eImageBufferType::UInt8, {0, 99, 100, 255});
    EXPECT_EQ(maskOf(in, {"--min", "100"}), "0011");
    EXPECT_EQ(maskOf(in, {"--max", "99"}), "1100");
    EXPECT_EQ(maskOf(in, {}), "1111");
    const float largest = std::numeric_limits<float>::max();
    const ImagePtr real = makeRow<float>(eImageBufferType::Real32,
                                         {-largest, -0.5F, 0.25F, largest, std::numeric_limits<float>::quiet_NaN()});
    EXPECT_EQ(maskOf(real, {"--min", "0.25"}), "00110");
    EXPECT_EQ(maskOf(real, {}), "11110");
}

TEST_F(ThresholdTest, KeepsAxesAndCalibration)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt16, 9, 8, 4, 3, 2));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.5F, 2, 1, 2, 3);
    in->setGeometricCalibration(calibration);
    EXPECT_EQ(threshold(in, {"--min", "30000"}).exitCode, 0);
    const ImagePtr mask = image::io::readImage(m_folder / "out.tif");
    EXPECT_EQ(mask->getGeometry().toString(), "9x8x4x3x2 Binary");
    EXPECT_EQ(*mask->getGeometricCalibration(), *calibration);
    for (unsigned long z = 0; z < 4; ++z) {
        for (unsigned long i = 0; i < 72; ++i) {
            EXPECT_EQ(image::planData<unsigned char>(*mask, z, 2, 1)[i],
                      image::planData<unsigned short>(*in, z, 2, 1)[i] >= 30000 ? 1 : 0);
        }
    }
}

TEST_F(ThresholdTest, BoundsTheTypeCannotHoldAreRefused)
{
    const ImagePtr in = makeNoise(*geometry2d(eImageBufferType::UInt8, 4, 3));
    for (const std::string option : {"--min", "--max"}) {
        for (const std::string value : {"-1", "255.5", "256", "nan", "inf", "-inf"}) {
            EXPECT_EQ(refusal(in, {option + "=" + value}),
                      "orlix: " + option + " " + value + ": UInt8 holds 0 to 255\n");
        }
    }
    EXPECT_EQ(refusal(in, {"--min", "100", "--max", "99"}), "orlix: --min 100 is above --max 99: exchange the two\n");
    EXPECT_EQ(refusal(in, {"--min", "bright"}), "orlix: --min: expected number, found \"bright\"; `orlix threshold "
                                                "--help` tells more\n");
    const auto refusalOf = [&](eImageBufferType type, const std::string& value) {
        return refusal(makeNoise(*geometry2d(type, 4, 3)), {"--max", value});
    };
    EXPECT_EQ(refusalOf(eImageBufferType::Int16, "32768"), "orlix: --max 32768: Int16 holds -32768 to 32767\n");
    EXPECT_EQ(refusalOf(eImageBufferType::eBufferBinary, "2"), "orlix: --max 2: Binary holds 0 to 1\n");
    EXPECT_EQ(refusalOf(eImageBufferType::Real32, "1e39"),
              "orlix: --max 1e39: Real32 holds -3.4028234663852886e+38 to 3.4028234663852886e+38\n");
    EXPECT_EQ(refusalOf(eImageBufferType::UInt32, "4294967296"),
              "orlix: --max 4294967296: UInt32 holds 0 to 4294967295\n");
}

} // namespace
} // namespace orlix::test
