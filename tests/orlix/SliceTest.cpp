// orlix slice and orlix put-slice.
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

/// Where the pixel (across, down) of a slice lies in the volume.
Place placeOf(const std::string& axis, unsigned long index, unsigned long across, unsigned long down)
{
    return axis == "x"   ? Place{index, across, down}
           : axis == "y" ? Place{across, index, down}
                         : Place{across, down, index};
}

/// Calls `work` with the element of every pixel of a slice and that of its place in the volume.
template <class TWork>
void forEachPair(const image::BaseImage& slice, const image::BaseImage& volume, const std::string& axis,
                 unsigned long index, TWork&& work)
{
    const unsigned long bytes = image::elementSize(volume.getBufferType());
    for (unsigned long t = 0; t < volume.getSizeT(); ++t) {
        for (unsigned long c = 0; c < volume.getSizeC(); ++c) {
            for (unsigned long down = 0; down < slice.getSizeY(); ++down) {
                for (unsigned long across = 0; across < slice.getSizeX(); ++across) {
                    const Place p = placeOf(axis, index, across, down);
                    work(slice.accessRow(down, 0, c, t) + across * bytes,
                         volume.accessRow(p.y, p.z, c, t) + p.x * bytes);
                }
            }
        }
    }
}

ImagePtr sliceBy(const image::BaseImage& volume, const std::string& axis, unsigned long index)
{
    const unsigned long across = axis == "x" ? volume.getSizeY() : volume.getSizeX();
    const unsigned long down = axis == "z" ? volume.getSizeY() : volume.getSizeZ();
    const image::BaseImageGeometry& whole = volume.getGeometry();
    const ImagePtr slice = image::createImage(
        {whole.getBufferType(), across, down, {}, whole.getColorGeometry(), whole.getTemporalGeometry()});
    forEachPair(*slice, volume, axis, index, [&](const std::byte* in, const std::byte* from) {
        std::memcpy(const_cast<std::byte*>(in), from, image::elementSize(whole.getBufferType()));
    });
    return slice;
}

class SliceTest : public ::testing::Test
{
protected:
    ImagePtr slice(const std::string& axis, const std::string& index) const
    {
        const ProgramResult result =
            runOrlix({"slice", m_folder / "in.tif", m_folder / "out.tif", "--axis", axis, "--index", index});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        return image::io::readImage(m_folder / "out.tif");
    }

    std::string refusalOf(const std::vector<std::string>& arguments) const
    {
        const std::set<std::string> before = m_folder.getNames();
        const ProgramResult result = runOrlix(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(m_folder.getNames(), before);
        return result.err;
    }

    std::string refusedSlice(const std::string& axis, const std::string& index) const
    {
        return refusalOf({"slice", m_folder / "in.tif", m_folder / "out.tif", "--axis", axis, "--index", index});
    }

    std::string refusedPutSlice(const std::string& axis, const std::string& index) const
    {
        return refusalOf({"put-slice", m_folder / "in.tif", m_folder / "slice.tif", m_folder / "out.tif", "--axis",
                          axis, "--index", index});
    }

    ImagePtr write(const std::string& name, const image::BaseImageGeometry& geometry) const
    {
        const ImagePtr image = makeNoise(geometry);
        image::io::writeImage(m_folder / name, image);
        return image;
    }

    const TemporaryFolder m_folder;
};

TEST_F(SliceTest, EveryAxisAndType)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr volume = write("in.tif", *geometry5d(type, 17, 13, 5, 2, 2));
        EXPECT_TRUE(sameImages(*sliceBy(*volume, "x", 7), *slice("x", "7")));
        EXPECT_TRUE(sameImages(*sliceBy(*volume, "y", 12), *slice("y", "-1")));
        EXPECT_TRUE(sameImages(*sliceBy(*volume, "z", 0), *slice("z", "-5")));
        EXPECT_FALSE(slice("Z", "0")->getGeometry().getVolumeGeometry().is3d());
    }
}

TEST_F(SliceTest, CalibrationIsThatOfTheAxesThatStay)
{
    const ImagePtr volume = makeNoise(*geometry5d(eImageBufferType::UInt8, 9, 8, 4, 1, 1));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.25F, 2, 1, 2, 3);
    volume->setGeometricCalibration(calibration);
    image::io::writeImage(m_folder / "in.tif", volume);
    image::GeometricCalibration x, y, z;
    x.init2d("mm", 0.25F, 2, 2, 3);
    y.init2d("mm", 0.5F, 2, 1, 3);
    z.init2d("mm", 0.5F, 0.25F, 1, 2);
    EXPECT_EQ(*slice("x", "5")->getGeometricCalibration(), x);
    EXPECT_EQ(*slice("y", "5")->getGeometricCalibration(), y);
    EXPECT_EQ(*slice("z", "3")->getGeometricCalibration(), z);
}

TEST_F(SliceTest, PixelsWithoutASizeAlongZHaveNoCalibrationInOtherPlanes)
{
    const ImagePtr volume = makeNoise(*geometry5d(eImageBufferType::UInt8, 9, 8, 4, 1, 1));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("mm", 0.5F, 0.25F, 1, 2);
    volume->setGeometricCalibration(calibration);
    image::io::writeImage(m_folder / "in.tif", volume);
    EXPECT_FALSE(slice("x", "5")->hasGeometricCalibration());
    EXPECT_EQ(*slice("z", "3")->getGeometricCalibration(), *calibration);
}

TEST_F(SliceTest, SlicesThatAreNotThereAreRefused)
{
    write("in.tif", *geometry5d(eImageBufferType::UInt8, 9, 8, 4, 1, 1));
    const auto beyond = [&](const std::string& index, const std::string& rest) {
        return "orlix: --index " + index + ": " + (m_folder / "in.tif") + " is 9x8x4x1x1 UInt8, so slices along " +
               rest + "\n";
    };
    EXPECT_EQ(refusedSlice("x", "9"), beyond("9", "x go from 0 to 8, or from -1, the last, to -9"));
    EXPECT_EQ(refusedSlice("y", "-9"), beyond("-9", "y go from 0 to 7, or from -1, the last, to -8"));
    EXPECT_EQ(refusedSlice("z", "9223372036854775807"),
              beyond("9223372036854775807", "z go from 0 to 3, or from -1, the last, to -4"));
    EXPECT_EQ(refusedSlice("z", "-9223372036854775808"),
              beyond("-9223372036854775808", "z go from 0 to 3, or from -1, the last, to -4"));
    for (const char* const index : {"", "1.5", "one", "9223372036854775808", "1 "}) {
        EXPECT_NE(refusedSlice("z", index).find("--index"), std::string::npos) << index;
    }
    EXPECT_NE(refusedSlice("w", "0").find("--axis: expected one of x, y, z, found \"w\""), std::string::npos);
    EXPECT_NE(
        refusalOf({"slice", m_folder / "in.tif", m_folder / "out.tif", "--axis", "x"}).find("--index is required"),
        std::string::npos);
    write("in.tif", *geometry5d(eImageBufferType::UInt8, 9, 8, 1, 1, 3));
    EXPECT_EQ(refusedSlice("z", "0"), "orlix: " + (m_folder / "in.tif") +
                                          " is 9x8x1x1x3 UInt8, one plan and no "
                                          "volume: only volumes have slices\n");
}

TEST_F(SliceTest, PutChangesTheSliceAlone)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const std::string axis : {"x", "y", "z"}) {
            const ImagePtr volume = write("in.tif", *geometry5d(type, 17, 13, 5, 2, 2));
            const ImagePtr slice = sliceBy(*volume, axis, 0);
            image::io::writeImage(m_folder / "slice.tif", slice);
            const ProgramResult result = runOrlix({"put-slice", m_folder / "in.tif", m_folder / "slice.tif",
                                                   m_folder / "out.tif", "--axis", axis, "--index", "-2"});
            EXPECT_EQ(result.exitCode, 0) << result.err;
            const unsigned long index = axis == "x" ? 15 : axis == "y" ? 11 : 3;
            forEachPair(*slice, *volume, axis, index, [&](const std::byte* from, const std::byte* in) {
                std::memcpy(const_cast<std::byte*>(in), from, image::elementSize(type));
            });
            EXPECT_TRUE(sameImages(*volume, *image::io::readImage(m_folder / "out.tif"))) << axis;
        }
    }
}

TEST_F(SliceTest, SlicesOfOtherKindsAreRefused)
{
    write("in.tif", *geometry5d(eImageBufferType::UInt16, 9, 8, 4, 2, 1));
    write("slice.tif", *geometry5d(eImageBufferType::Int16, 9, 4, 1, 2, 1));
    EXPECT_EQ(refusedPutSlice("y", "0"), "orlix: " + (m_folder / "in.tif") + " is 9x8x4x2x1 UInt16, " +
                                             (m_folder / "slice.tif") +
                                             " is 9x4x1x2x1 Int16: both need the same element type; `orlix convert` "
                                             "changes it\n");
    write("slice.tif", *geometry5d(eImageBufferType::UInt16, 9, 4, 1, 1, 1));
    EXPECT_EQ(refusedPutSlice("y", "0"), "orlix: " + (m_folder / "slice.tif") +
                                             " is 9x4x1x1x1 UInt16, but a slice "
                                             "along y of " +
                                             (m_folder / "in.tif") + " is 9x4x1x2x1 UInt16: make it such a plan\n");
    write("slice.tif", *geometry5d(eImageBufferType::UInt16, 9, 4, 1, 2, 1));
    EXPECT_NE(refusedPutSlice("x", "0").find("a slice along x"), std::string::npos);
    EXPECT_NE(refusedPutSlice("z", "0").find("is 9x8x1x2x1 UInt16"), std::string::npos);
    EXPECT_NE(refusedPutSlice("y", "8").find("--index 8: "), std::string::npos);
    EXPECT_NE(refusedPutSlice("y", "-9").find("--index -9: "), std::string::npos);
    // A plan that was cut out of a volume as a volume.
    EXPECT_EQ(runOrlix({"crop", m_folder / "in.tif", m_folder / "slice.tif", "--at", "0,0,3"}).exitCode, 0);
    EXPECT_NE(refusedPutSlice("z", "0").find("is the volume 9x8x1x2x1"), std::string::npos);
}

} // namespace
} // namespace orlix::test
