// Makes a test volume, the head of ten ellipsoids in noise, and writes it as a TIFF file: makePhantom head.tif
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <CLI/CLI.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <numbers>

namespace {

using namespace orlix::image;

// A. C. Kak and M. Slaney, Principles of Computerized Tomographic Imaging, IEEE Press 1988, table 3.2: centre, half
// axes, angle about z in degrees, density. The head fills the cube from -1 to 1; y points up.
struct Ellipsoid
{
    double x, y, z, a, b, c, angle, density;
};

constexpr std::array g_head = {Ellipsoid{0, 0, 0, 0.69, 0.92, 0.9, 0, 2},
                               Ellipsoid{0, 0, 0, 0.6624, 0.874, 0.88, 0, -0.98},
                               Ellipsoid{-0.22, 0, -0.25, 0.41, 0.16, 0.21, 108, -0.02},
                               Ellipsoid{0.22, 0, -0.25, 0.31, 0.11, 0.22, 72, -0.02},
                               Ellipsoid{0, 0.35, -0.25, 0.21, 0.25, 0.5, 0, 0.02},
                               Ellipsoid{0, 0.1, -0.25, 0.046, 0.046, 0.046, 0, 0.02},
                               Ellipsoid{-0.08, -0.65, -0.25, 0.046, 0.023, 0.02, 0, 0.01},
                               Ellipsoid{0.06, -0.65, -0.25, 0.046, 0.023, 0.02, 90, 0.01},
                               Ellipsoid{0.06, -0.105, 0.625, 0.056, 0.04, 0.1, 90, 0.02},
                               Ellipsoid{0, 0.1, 0.625, 0.056, 0.056, 0.1, 0, -0.02}};

constexpr double g_cubeInMillimetres = 256;

bool isInside(const Ellipsoid& e, double x, double y, double z)
{
    const double angle = e.angle * std::numbers::pi / 180;
    const double dx = x - e.x, dy = y - e.y;
    const double u = (dx * std::cos(angle) + dy * std::sin(angle)) / e.a;
    const double v = (dy * std::cos(angle) - dx * std::sin(angle)) / e.b;
    const double w = (z - e.z) / e.c;
    return u * u + v * v + w * w <= 1;
}

double densityAt(double x, double y, double z)
{
    double density = 0;
    for (const Ellipsoid& ellipsoid : g_head) {
        density += isInside(ellipsoid, x, y, z) ? ellipsoid.density : 0;
    }
    return density;
}

// Soft tissue, from 0.95 to 1.1, takes the whole range; air is black and bone white.
double stretched(double density)
{
    return std::clamp((density - 0.95) / (1.1 - 0.95), 0., 1.) * 65535;
}

// The centre of pixel `index` of `size` in the cube.
double positionOf(unsigned long index, unsigned long size)
{
    return (2 * static_cast<double>(index) + 1) / static_cast<double>(size) - 1;
}

// Noise of a normal law about 0. Kernel sets differ in their numbers; plain code runs on every processor, so that the
// same seed gives the same head everywhere.
orlix::ImagePtr makeNoise(const std::array<unsigned long, 3>& size, double deviation, unsigned long seed)
{
    using namespace orlix::imaproc;
    const orlix::ImagePtr noise = createImage(*geometry3d(eImageBufferType::Real32, size[0], size[1], size[2]));
    util::GaussianRandomImgLvl3::forceInstructionSets({orlix::eInstructionSet::eNone});
    const util::RandomRunScope run(seed, 0);
    util::gaussianRandomImg(attr::createGaussianParameter(0, deviation), noise);
    return noise;
}

orlix::ImagePtr makeHead(const std::array<unsigned long, 3>& size, double deviation, unsigned long seed)
{
    const orlix::ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt16, size[0], size[1], size[2]));
    const orlix::ImagePtr noise = makeNoise(size, deviation, seed);
    for (unsigned long z = 0; z < size[2]; ++z) {
        unsigned short* pixel = planData<unsigned short>(*image, z, 0, 0); // rows of a new image touch
        const float* noiseOfPixel = planData<float>(*noise, z, 0, 0);
        for (unsigned long y = 0; y < size[1]; ++y) {
            for (unsigned long x = 0; x < size[0]; ++x) {
                const double value =
                    stretched(densityAt(positionOf(x, size[0]), -positionOf(y, size[1]), positionOf(z, size[2])));
                *pixel++ = static_cast<unsigned short>(std::clamp(value + *noiseOfPixel++, 0., 65535.));
            }
        }
    }
    const auto calibration = boost::make_shared<GeometricCalibration>();
    const auto pixelSize = [&](unsigned axis) {
        return static_cast<float>(g_cubeInMillimetres / static_cast<double>(size[axis]));
    };
    calibration->init3d("mm", pixelSize(0), pixelSize(1), pixelSize(2), 0, 0, 0);
    image->setGeometricCalibration(calibration);
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    std::string file;
    std::array<unsigned long, 3> size = {128, 128, 96};
    double deviation = 500;
    unsigned long seed = 1;
    CLI::App app("Makes a noisy head of ten ellipsoids, UInt16, with pixel sizes in mm, and writes it as TIFF.");
    app.add_option("file", file, "Where to write it, .tif or .tiff")->required();
    app.add_option("--size", size, "Pixels along x, y and z")->capture_default_str()->check(CLI::Range(1ul, 1ul << 16));
    app.add_option("--noise", deviation, "Standard deviation of the noise, of 65535")
        ->capture_default_str()
        ->check(CLI::Range(0., 65535.));
    app.add_option("--seed", seed, "Same seed, same noise")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    try {
        io::writeImage(file, makeHead(size, deviation, seed));
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
    return 0;
}
