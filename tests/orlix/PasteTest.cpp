// orlix paste.
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

void pasteByLoops(image::BaseImage& image, const image::BaseImage& region, const Place& at)
{
    const unsigned long bytes = image::elementSize(image.getBufferType());
    for (unsigned long t = 0; t < region.getSizeT(); ++t) {
        for (unsigned long c = 0; c < region.getSizeC(); ++c) {
            for (unsigned long z = 0; z < region.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < region.getSizeY(); ++y) {
                    std::memcpy(image.accessRow(at.y + y, at.z + z, c, t) + at.x * bytes, region.accessRow(y, z, c, t),
                                region.getSizeX() * bytes);
                }
            }
        }
    }
}

class PasteTest : public ::testing::Test
{
protected:
    void expectPasted(const ImagePtr& image, const Place& from, const Place& size, const Place& at,
                      const std::string& option)
    {
        const ImagePtr region = cut(*image, from, size);
        image::io::writeImage(m_folder / "in.tif", image);
        image::io::writeImage(m_folder / "region.tif", region);
        const ProgramResult result = run(option);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        pasteByLoops(*image, *region, at);
        EXPECT_TRUE(sameImages(*image, *image::io::readImage(m_folder / "out.tif"))) << option;
    }

    ProgramResult run(const std::string& at) const
    {
        return runOrlix({"paste", m_folder / "in.tif", m_folder / "region.tif", m_folder / "out.tif", "--at=" + at});
    }

    std::string refusalOf(const std::string& at) const
    {
        const ProgramResult result = run(at);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_FALSE(m_folder.getNames().contains("out.tif"));
        return result.err;
    }

    std::string refusalOf(const image::BaseImageGeometry& image, const image::BaseImageGeometry& region,
                          const std::string& at) const
    {
        image::io::writeImage(m_folder / "in.tif", makeNoise(image));
        image::io::writeImage(m_folder / "region.tif", makeNoise(region));
        return refusalOf(at);
    }

    const TemporaryFolder m_folder;
};

TEST_F(PasteTest, ChangesTheRegionAlone)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeNoise(*geometry5d(type, 67, 33, 5, 2, 3));
        expectPasted(image, {1, 2, 0}, {20, 9, 5}, {40, 23, 0}, "40,23");
        expectPasted(image, {1, 2, 3}, {67 - 1, 31, 2}, {1, 0, 0}, "1,0,0");
        expectPasted(image, {0, 0, 0}, {1, 1, 1}, {66, 32, 4}, "66,32,4");
    }
    expectPasted(makeNoise(*geometry5d(eImageBufferType::UInt8, 67, 33, 1, 3, 1)), {0, 0, 0}, {67, 33, 1}, {0, 0, 0},
                 "0,0");
}

TEST_F(PasteTest, KeepsCalibration)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt16, 9, 8, 4, 1, 1));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.5F, 2, 1, 2, 3);
    in->setGeometricCalibration(calibration);
    expectPasted(in, {0, 0, 0}, {3, 3, 3}, {2, 2, 1}, "2,2,1");
    EXPECT_EQ(*image::io::readImage(m_folder / "out.tif")->getGeometricCalibration(), *calibration);
}

TEST_F(PasteTest, WhatDoesNotFitIsRefused)
{
    const auto image = geometry5d(eImageBufferType::UInt8, 50, 40, 3, 1, 1);
    const std::string names = (m_folder / "region.tif") + " is 7x6x3x1x1 UInt8, put at ";
    const auto beyond = [&](const std::string& at, const std::string& end) {
        return "orlix: " + names + at + " into " + (m_folder / "in.tif") + ", which is 50x40x3x1x1 UInt8, it ends " +
               "beyond the " + end + ": put it elsewhere or crop it\n";
    };
    const auto region = geometry5d(eImageBufferType::UInt8, 7, 6, 3, 1, 1);
    EXPECT_EQ(refusalOf(*image, *region, "44,0"), beyond("44,0", "x of 50"));
    EXPECT_EQ(refusalOf("43,35,0"), beyond("43,35,0", "y of 40"));
    EXPECT_EQ(refusalOf("0,0,1"), beyond("0,0,1", "z of 3"));
    EXPECT_EQ(refusalOf("18446744073709551615,0"), beyond("18446744073709551615,0", "x of 50"));
    EXPECT_EQ(refusalOf("18446744073709551612,0,0"), beyond("18446744073709551612,0,0", "x of 50"));
}

TEST_F(PasteTest, OtherTypesAndAxesAreRefused)
{
    using enum eImageBufferType::domain;
    const auto has = [](const std::string& text, const std::string& part) {
        return text.find(part) != text.npos ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << text;
    };
    const auto image = geometry5d(UInt8, 50, 40, 3, 2, 1);
    EXPECT_TRUE(has(refusalOf(*image, *geometry5d(Int8, 5, 4, 3, 2, 1), "0,0"), "both need the same element type"));
    EXPECT_TRUE(has(refusalOf(*image, *geometry5d(UInt8, 5, 4, 3, 1, 1), "0,0,0"),
                    "both need as many channels and time steps"));
    EXPECT_TRUE(has(refusalOf(*image, *geometry5d(UInt8, 5, 4, 2, 2, 1), "0,0"),
                    "both need as many plans, channels and time steps; with --at X,Y,Z volumes may differ along z"));
    EXPECT_TRUE(has(refusalOf(*image, *geometry5d(UInt8, 5, 4, 1, 2, 1), "0,0,0"),
                    "--at 0,0,0: " + (m_folder / "region.tif") + " is one plan and no volume"));
    EXPECT_TRUE(has(refusalOf(*geometry5d(UInt8, 50, 40, 1, 2, 1), *geometry5d(UInt8, 5, 4, 1, 2, 1), "0,0,0"),
                    "--at 0,0,0: " + (m_folder / "in.tif") + " is one plan and no volume"));
    EXPECT_TRUE(has(refusalOf("0"), "--at: expected X,Y or X,Y,Z, whole numbers from 0 on, found \"0\""));
}

} // namespace
} // namespace orlix::test
