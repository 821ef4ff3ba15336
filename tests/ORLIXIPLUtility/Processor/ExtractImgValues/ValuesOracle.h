// Values at points by plain loops, and how the tests of both operators call them.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"

#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace orlix::imaproc::util::test {

using Policy = attr::eInterpolationPolicy;
using MethodPtr = boost::shared_ptr<const attr::ImageValueExtractionMethod>;

inline MethodPtr tiled()
{
    return attr::createImageValueExtractionMethod(attr::ImageValueExtractionMethod::s_tiledAlways);
}
inline MethodPtr striped()
{
    return attr::createImageValueExtractionMethod(attr::ImageValueExtractionMethod::s_tiledNever);
}

/// The place of a pixel in an endless row of mirror images, found by going back step by step.
inline unsigned long mirrored(long place, unsigned long size)
{
    const long last = static_cast<long>(size) - 1;
    place %= 2 * (last + 1);
    while (place < 0 || place > last) {
        place = place < 0 ? -1 - place : 2 * last + 1 - place;
    }
    return static_cast<unsigned long>(place);
}

template <class T>
double read(const std::byte* element)
{
    T value{};
    std::memcpy(&value, element, sizeof(T));
    return static_cast<double>(value);
}

inline double pixelAt(const image::BaseImage& image, long x, long y, long z)
{
    using Type = image::eImageBufferType;
    const Type type = image.getBufferType();
    const std::byte* const element =
        image.accessRow(mirrored(y, image.getSizeY()), mirrored(z, image.getSizeZ()), 0, 0) +
        mirrored(x, image.getSizeX()) * image::elementSize(type);
    switch (static_cast<Type::domain>(type)) {
    case Type::Int8: return read<signed char>(element);
    case Type::Int16: return read<short>(element);
    case Type::Int32: return read<int>(element);
    case Type::Real32: return read<float>(element);
    case Type::UInt16:
    case Type::eBufferUInt16Like: return read<unsigned short>(element);
    case Type::UInt32:
    case Type::eBufferUInt32Like: return read<unsigned int>(element);
    default: return read<unsigned char>(element);
    }
}

/// Catmull-Rom, as its polynomial is told.
inline double spline(const std::array<double, 4>& p, double t)
{
    return p[1] +
           0.5 * t *
               ((p[2] - p[0]) + t * ((2 * p[0] - 5 * p[1] + 4 * p[2] - p[3]) + t * (3 * (p[1] - p[2]) + p[3] - p[0])));
}

inline double valueInPlan(const image::BaseImage& image, double x, double y, long z, unsigned policy)
{
    const long ix = static_cast<long>(std::floor(x));
    const long iy = static_cast<long>(std::floor(y));
    const double tx = x - std::floor(x);
    const double ty = y - std::floor(y);
    if (policy == 1) {
        const double upper = pixelAt(image, ix, iy, z) * (1 - tx) + pixelAt(image, ix + 1, iy, z) * tx;
        const double lower = pixelAt(image, ix, iy + 1, z) * (1 - tx) + pixelAt(image, ix + 1, iy + 1, z) * tx;
        return upper * (1 - ty) + lower * ty;
    }
    if (policy == 2) {
        std::array<double, 4> lines{};
        for (long line = 0; line < 4; ++line) {
            std::array<double, 4> samples{};
            for (long i = 0; i < 4; ++i) {
                samples[static_cast<unsigned long>(i)] = pixelAt(image, ix - 1 + i, iy - 1 + line, z);
            }
            lines[static_cast<unsigned long>(line)] = spline(samples, tx);
        }
        return spline(lines, ty);
    }
    return pixelAt(image, ix + (tx + 0.5 >= 1 ? 1 : 0), iy + (ty + 0.5 >= 1 ? 1 : 0), z);
}

inline double expectedAt(const image::BaseImage& image, const std::array<double, 2>& place, unsigned policy)
{
    return valueInPlan(image, place[0], place[1], 0, policy);
}
inline double expectedAt(const image::BaseImage& image, const std::array<double, 3>& place, unsigned policy)
{
    const long iz = static_cast<long>(std::floor(place[2]));
    const double tz = place[2] - std::floor(place[2]);
    const auto inPlan = [&](long z) { return valueInPlan(image, place[0], place[1], z, policy); };
    if (policy == 1) {
        return inPlan(iz) * (1 - tz) + inPlan(iz + 1) * tz;
    }
    if (policy == 2) {
        return spline({inPlan(iz - 1), inPlan(iz), inPlan(iz + 1), inPlan(iz + 2)}, tz);
    }
    return inPlan(iz + (tz + 0.5 >= 1 ? 1 : 0));
}

/// What the two operators are called by.
struct InPlans
{
    static constexpr unsigned long s_nbAxes = 2;
    using Place = std::array<double, 2>;
    using CoordsColl = attr::Coords2dColl;
    using Lvl1 = ExtractImg2dValuesLvl1;

    static boost::shared_ptr<attr::Coords2dColl> coords(std::span<const double> numbers)
    {
        return attr::createCoords2dColl(numbers);
    }
    static ImagePtr make(const image::eImageBufferType& type, unsigned long x, unsigned long y, unsigned long)
    {
        return image::createImage(*image::geometry2d(type, x, y));
    }
    template <class... TArgs>
    static auto call(const TArgs&... args)
    {
        return extractImg2dValues(args...);
    }
    template <class... TArgs>
    static auto callAll(const TArgs&... args)
    {
        return multiSlice_extractImg2dValues(args...);
    }
    template <class... TArgs>
    static auto start(const TArgs&... args)
    {
        return extractImg2dValues_async(args...);
    }
    template <class... TArgs>
    static auto startAll(const TArgs&... args)
    {
        return multiSlice_extractImg2dValues_async(args...);
    }
};
struct InVolumes
{
    static constexpr unsigned long s_nbAxes = 3;
    using Place = std::array<double, 3>;
    using CoordsColl = attr::Coords3dColl;
    using Lvl1 = ExtractImg3dValuesLvl1;

    static boost::shared_ptr<attr::Coords3dColl> coords(std::span<const double> numbers)
    {
        return attr::createCoords3dColl(numbers);
    }
    static ImagePtr make(const image::eImageBufferType& type, unsigned long x, unsigned long y, unsigned long z)
    {
        return image::createImage(*image::geometry3d(type, x, y, z));
    }
    template <class... TArgs>
    static auto call(const TArgs&... args)
    {
        return extractImg3dValues(args...);
    }
    template <class... TArgs>
    static auto callAll(const TArgs&... args)
    {
        return multiSlice_extractImg3dValues(args...);
    }
    template <class... TArgs>
    static auto start(const TArgs&... args)
    {
        return extractImg3dValues_async(args...);
    }
    template <class... TArgs>
    static auto startAll(const TArgs&... args)
    {
        return multiSlice_extractImg3dValues_async(args...);
    }
};

template <class TPlace>
auto collOf(const std::vector<TPlace>& places)
{
    std::vector<double> numbers;
    for (const TPlace& place : places) {
        numbers.insert(numbers.end(), place.begin(), place.end());
    }
    if constexpr (std::tuple_size_v<TPlace> == 2) {
        return attr::createCoords2dColl(numbers);
    } else {
        return attr::createCoords3dColl(numbers);
    }
}

inline std::vector<double> valuesIn(const boost::shared_ptr<attr::Doubles>& doubles)
{
    return doubles ? doubles->get<attr::Doubles::Coll>() : std::vector<double>{-12345};
}

/// Numbers of ordinary size in every element, so that sums don't overflow: the patterns of fillRandom hold
/// not-a-number.
inline void fillValues(image::BaseImage& image, unsigned long seed)
{
    if (image.getBufferType() != image::eImageBufferType::Real32) {
        testing::fillRandom(image, seed);
        return;
    }
    std::mt19937 random(static_cast<unsigned>(seed));
    std::uniform_real_distribution<float> values(-1000, 1000);
    testing::forEachRow(image, [&](unsigned long, std::byte* row) {
        for (unsigned long x = 0; x < image.getSizeX(); ++x) {
            const float value = values(random);
            std::memcpy(row + x * sizeof(value), &value, sizeof(value));
        }
    });
}

/// Random points that both methods serve, among them whole ones, halves, corners and repeated ones.
template <class TPlace>
std::vector<TPlace> pointsWithin(const image::BaseImage& image, unsigned long count, unsigned long seed)
{
    const double sizes[] = {static_cast<double>(image.getSizeX()), static_cast<double>(image.getSizeY()),
                            static_cast<double>(image.getSizeZ())};
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<TPlace> places;
    for (unsigned long i = 0; i < count; ++i) {
        TPlace place{};
        for (unsigned long axis = 0; axis < place.size(); ++axis) {
            double value = part(random) * sizes[axis];
            switch (random() % 8) {
            case 0: value = std::floor(value); break;
            case 1: value = std::floor(value) + 0.5; break;
            case 2: value = 0; break;
            case 3: value = std::nextafter(sizes[axis], 0.0); break;
            case 4: value = std::floor(value) + 0.49999999999999994; break;
            default: break;
            }
            place[axis] = std::min(value, std::nextafter(sizes[axis], 0.0));
        }
        places.push_back(i % 7 == 6 ? places[random() % places.size()] : place);
    }
    return places;
}

/// Bit by bit: zeros of either sign differ, and what is no number equals itself.
template <class TPlace>
::testing::AssertionResult hasExpected(const image::BaseImage& image, const std::vector<TPlace>& places,
                                       unsigned policy, const std::vector<double>& values)
{
    if (values.size() != places.size()) {
        return ::testing::AssertionFailure() << values.size() << " values for " << places.size() << " points";
    }
    for (unsigned long i = 0; i < places.size(); ++i) {
        const double expected = expectedAt(image, places[i], policy);
        const bool bNeither = expected != expected && values[i] != values[i];
        if (!bNeither && std::bit_cast<unsigned long>(expected) != std::bit_cast<unsigned long>(values[i])) {
            return ::testing::AssertionFailure()
                   << "point " << i << " " << ::testing::PrintToString(places[i]) << ", policy " << policy << ": "
                   << values[i] << " instead of " << expected;
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace orlix::imaproc::util::test
