// orlix crop.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/Regions.h"
#include "orlix/support/TemporaryFolder.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;
using image::geometry5d;
using orlix::testing::sameImages;

class CropTest : public ::testing::Test
{
protected:
    ImagePtr crop(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        image::io::writeImage(m_folder / "in.tif", image);
        const ProgramResult result = run(options);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        return image::io::readImage(m_folder / "out.tif");
    }

    ProgramResult run(const std::vector<std::string>& options) const
    {
        std::vector<std::string> arguments{"crop", m_folder / "in.tif", m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }

    /// The line of a crop that is refused, which leaves no output.
    std::string refusalOf(const std::vector<std::string>& options) const
    {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(m_folder.getNames(), std::set<std::string>{"in.tif"});
        return result.err;
    }

    const TemporaryFolder m_folder;
};

TEST_F(CropTest, CutsWhatTheOptionsTell)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeNoise(*geometry5d(type, 67, 33, 5, 2, 3));
        const auto expectCut = [&](const Place& at, const Place& size, const std::vector<std::string>& options) {
            EXPECT_TRUE(sameImages(*cut(*image, at, size), *crop(image, options))) << options.front();
        };
        expectCut({3, 5, 2}, {60, 20, 3}, {"--at", "3,5,2", "--size", "60,20,3"});
        expectCut({3, 5, 0}, {60, 20, 5}, {"--at", "3,5", "--size", "60,20"});
        expectCut({3, 5, 4}, {64, 28, 1}, {"--at=3,5,4"});
        expectCut({0, 0, 0}, {1, 2, 3}, {"--size=1,2,3"});
        expectCut({66, 32, 0}, {1, 1, 5}, {"--region", "1x1+66+32"});
    }
}

TEST_F(CropTest, OnePlanOfAVolumeStaysAVolume)
{
    const ImagePtr out = crop(makeNoise(*geometry5d(eImageBufferType::UInt8, 9, 8, 4, 1, 1)), {"--at", "0,0,3"});
    EXPECT_TRUE(out->getGeometry().getVolumeGeometry().is3d());
}

TEST_F(CropTest, OriginMovesWithTheRegion)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt16, 9, 8, 4, 1, 1));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.25F, 2, 1, 2, 3);
    in->setGeometricCalibration(calibration);
    image::GeometricCalibration moved;
    moved.init3d("mm", 0.5F, 0.25F, 2, 3, 2.25F, 9);
    EXPECT_EQ(*crop(in, {"--at", "4,1,3"})->getGeometricCalibration(), moved);
}

TEST_F(CropTest, TakesPngAndOptionsOfTiff)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt8, 67, 33, 1, 3, 1));
    image::io::writeImage(m_folder / "in.png", in);
    const ProgramResult result = runOrlix({"crop", m_folder / "in.png", m_folder / "out.tif", "--region", "9x8+7+6",
                                           "--compression", "deflate", "--tiled", "--json"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("\"x\": 9"), std::string::npos) << result.out;
    EXPECT_TRUE(sameImages(*cut(*in, {7, 6, 0}, {9, 8, 1}), *image::io::readImage(m_folder / "out.tif")));
    EXPECT_TRUE(image::io::readImageInfo(m_folder / "out.tif").bTiled);
}

TEST_F(CropTest, CutsAFileInPlace)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::Real32, 20, 20, 3, 1, 1));
    image::io::writeImage(m_folder / "in.tif", in);
    EXPECT_EQ(runOrlix({"crop", m_folder / "in.tif", m_folder / "in.tif", "--at", "5,6"}).exitCode, 0);
    EXPECT_TRUE(sameImages(*cut(*in, {5, 6, 0}, {15, 14, 3}), *image::io::readImage(m_folder / "in.tif")));
}

TEST_F(CropTest, RegionsThatDontFitAreRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*geometry5d(eImageBufferType::UInt8, 50, 40, 3, 1, 1)));
    const std::string head = "orlix: " + (m_folder / "in.tif") + ": the image is 50x40x3x1x1 UInt8, but the region ";
    EXPECT_EQ(refusalOf({"--at", "45,0", "--size", "6,1"}),
              head + "ends at x = 51: let it lie in the image, whose x has 50\n");
    EXPECT_EQ(refusalOf({"--at", "0,41"}), head + "begins at y = 41: let it lie in the image, whose y has 40\n");
    EXPECT_EQ(refusalOf({"--at", "0,0,18446744073709551615", "--size", "1,1,2"}),
              head + "begins at z = 18446744073709551615: let it lie in the image, whose z has 3\n");
    EXPECT_EQ(refusalOf({"--at", "49,0", "--size", "18446744073709551615,1"}),
              head + "ends at x = 18446744073709551664: let it lie in the image, whose x has 50\n");
    // An offset at the end leaves nothing to write.
    EXPECT_NE(refusalOf({"--at", "50,0"}).find("an image without pixels can't be written"), std::string::npos);
}

TEST_F(CropTest, APlanHasNoDepth)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*geometry5d(eImageBufferType::UInt8, 50, 40, 1, 1, 1)));
    const std::string end = ": " + (m_folder / "in.tif") + " is one plan and no volume; give x and y alone\n";
    EXPECT_EQ(refusalOf({"--at", "1,2,0"}), "orlix: --at 1,2,0" + end);
    EXPECT_EQ(refusalOf({"--at", "1,2", "--size", "3,4,1"}), "orlix: --size 3,4,1" + end);
}

TEST_F(CropTest, WordsThatTellNoRegionAreRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*geometry5d(eImageBufferType::UInt8, 50, 40, 3, 1, 1)));
    EXPECT_NE(refusalOf({}).find("a region is needed: add --at, --size or --region"), std::string::npos);
    EXPECT_NE(refusalOf({"--region", "1x1+0+0", "--size", "2,2"}).find("--region tells what --size tells too"),
              std::string::npos);
    for (const char* const at :
         {"", "1", "1,", "1,2,", "1,2,3,4", "-1,2", "+1,2", "1.5,2", "1;2", "a,b", "1, 2", "18446744073709551616,0"}) {
        EXPECT_NE(refusalOf({"--at=" + std::string(at)}).find("--at"), std::string::npos) << at;
    }
    for (const char* const size : {"0,1", "1,0", "1,1,0", "1x1"}) {
        EXPECT_NE(refusalOf({"--size", size}).find("--size: expected W,H or W,H,D, whole numbers from 1 on, found"),
                  std::string::npos)
            << size;
    }
    for (const char* const region : {"1x1", "1x1+2", "0x1+2+3", "1x0+2+3", "1x1+2+3+4", "1,1,2,3", "1x1-2-3"}) {
        EXPECT_NE(refusalOf({"--region", region}).find("--region: expected WxH+X+Y"), std::string::npos) << region;
    }
}

} // namespace
} // namespace orlix::test
