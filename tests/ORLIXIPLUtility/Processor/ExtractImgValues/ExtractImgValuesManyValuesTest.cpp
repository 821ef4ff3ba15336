// Ten million points in one call, by both methods.
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"

namespace orlix::imaproc::util::test {
namespace {

TEST(ExtractImgValuesManyValuesTest, tenMillionPoints)
{
    constexpr unsigned long nbPoints = 10'000'000;
    constexpr unsigned long sizeX = 1201;
    constexpr unsigned long sizeY = 907;
    const ImagePtr image =
        image::createImage(*image::geometry2d(image::eImageBufferType::UInt16, sizeX + 1, sizeY + 1));
    const auto pixelOf = [](unsigned long x, unsigned long y) { return (x * 7919 + y * 104729) % 65521; };
    for (unsigned long y = 0; y <= sizeY; ++y) {
        auto* const row = reinterpret_cast<unsigned short*>(image->accessRow(y, 0, 0, 0));
        for (unsigned long x = 0; x <= sizeX; ++x) {
            row[x] = static_cast<unsigned short>(pixelOf(x, y));
        }
    }
    std::vector<double> places(2 * nbPoints);
    std::mt19937_64 random(71);
    for (unsigned long i = 0; i < nbPoints; ++i) { // steps of 2^-16, so that sums of products are exact
        const unsigned long bits = random();
        places[2 * i] = static_cast<double>((bits >> 32) % (sizeX << 16)) / 65536;
        places[2 * i + 1] = static_cast<double>((bits & 0xFFFFFFFF) % (sizeY << 16)) / 65536;
    }
    const auto points = attr::createCoords2dColl(places);
    const std::vector<double> values = valuesIn(extractImg2dValues(image, points, Policy::eIP_Linear, tiled()));
    ASSERT_EQ(values.size(), nbPoints);
    for (unsigned long i = 0; i < nbPoints; ++i) {
        const auto x = static_cast<unsigned long>(places[2 * i]);
        const auto y = static_cast<unsigned long>(places[2 * i + 1]);
        const double tx = places[2 * i] - static_cast<double>(x);
        const double ty = places[2 * i + 1] - static_cast<double>(y);
        const auto a = static_cast<double>(pixelOf(x, y));
        const auto b = static_cast<double>(pixelOf(x + 1, y));
        const auto c = static_cast<double>(pixelOf(x, y + 1));
        const auto d = static_cast<double>(pixelOf(x + 1, y + 1));
        ASSERT_EQ(values[i], a + (b - a) * tx + (c - a) * ty + (a - b - c + d) * tx * ty) << "point " << i;
    }
    EXPECT_TRUE(values == valuesIn(extractImg2dValues(image, points, Policy::eIP_Linear, striped())));
}

} // namespace
} // namespace orlix::imaproc::util::test
