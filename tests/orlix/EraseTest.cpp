// orlix erase.
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

class EraseTest : public ::testing::Test
{
protected:
    ImagePtr erase(const ImageConstPtr& image, const std::vector<std::string>& options)
    {
        image::io::writeImage(m_folder / "in.tif", image);
        std::vector<std::string> arguments{"erase", m_folder / "in.tif", m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramResult result = runOrlix(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(sameImages(*image::io::readImage(m_folder / "in.tif"), *image));
        return image::io::readImage(m_folder / "out.tif");
    }

    const TemporaryFolder m_folder;
};

template <class T>
void expectAll(const image::BaseImage& image, T value)
{
    const image::BaseImageGeometry& geometry = image.getGeometry();
    for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
        for (unsigned long c = 0; c < geometry.getSizeC(); ++c) {
            for (unsigned long z = 0; z < geometry.getSizeZ(); ++z) {
                const T* pixel = image::planData<T>(image, z, c, t);
                EXPECT_TRUE(std::all_of(pixel, pixel + geometry.getSizeX() * geometry.getSizeY(),
                                        [&](T found) { return found == value; }));
            }
        }
    }
}

TEST_F(EraseTest, ToZeroWithoutAValue)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr out = erase(makeNoise(*geometry5d(type, 67, 33, 3, 2, 2)), {});
        EXPECT_EQ(out->getGeometry().toString(), geometry5d(type, 67, 33, 3, 2, 2)->toString());
        image::visitStorageType(type, [&]<class T>() { expectAll<T>(*out, T(0)); });
    }
}

TEST_F(EraseTest, ToAValueAsTheTypeTakesIt)
{
    const auto eraseTo = [&](eImageBufferType type, const std::string& value) {
        return erase(makeNoise(*geometry5d(type, 67, 33, 2, 1, 1)), {"--value", value});
    };
    expectAll<unsigned char>(*eraseTo(eImageBufferType::UInt8, "200.9"), 200);
    expectAll<unsigned char>(*eraseTo(eImageBufferType::UInt8, "300"), 44);
    expectAll<short>(*eraseTo(eImageBufferType::Int16, "-1234"), -1234);
    expectAll<float>(*eraseTo(eImageBufferType::Real32, "0.1"), 0.1F);
    expectAll<unsigned short>(*eraseTo(eImageBufferType::UInt16, "nan"), 0);
}

TEST_F(EraseTest, KeepsCalibration)
{
    const ImagePtr in = makeNoise(*geometry5d(eImageBufferType::UInt16, 9, 8, 4, 1, 1));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 0.5F, 0.5F, 2, 1, 2, 3);
    in->setGeometricCalibration(calibration);
    EXPECT_EQ(*erase(in, {"--value", "7"})->getGeometricCalibration(), *calibration);
}

TEST_F(EraseTest, ValueThatIsNoNumberIsRefused)
{
    image::io::writeImage(m_folder / "in.tif", makeNoise(*image::geometry2d(eImageBufferType::UInt8, 8, 8)));
    const ProgramResult result = runOrlix({"erase", m_folder / "in.tif", m_folder / "out.tif", "--value", "black"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("--value"), std::string::npos) << result.err;
    EXPECT_EQ(m_folder.getNames(), std::set<std::string>{"in.tif"});
}

} // namespace
} // namespace orlix::test
