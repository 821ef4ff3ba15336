// Which values of every element type lie between which bounds.
#include "ORLIXIPLUtility/Processor/BasicThresholdImg/ThresholdOracle.h"

#include <cfloat>
#include <limits>
#include <set>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;

template <class T>
ImagePtr imageOf(const eImageBufferType& type, const std::vector<T>& values)
{
    const ImagePtr image = image::createImage(*geometry2d(type, values.size(), 1));
    std::memcpy(image->accessRow(0, 0, 0, 0), values.data(), values.size() * sizeof(T));
    return image;
}

template <class T>
int selected(const eImageBufferType& type, T value, double low, double high)
{
    const ImagePtr out = threshold(imageOf<T>(type, {value}), low, high);
    return image::planData<unsigned char>(*out, 0, 0, 0)[0];
}

TEST(BasicThresholdImgValuesTest, knownValues)
{
    constexpr auto g_uint8 = eImageBufferType::UInt8;
    EXPECT_EQ(selected<unsigned char>(g_uint8, 1, 1.5, 2.9), 1);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 2, 1.5, 2.9), 1);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 3, 1.5, 2.9), 0);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 0, 1.5, 2.9), 0);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 255, 0, 254.9), 0);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 254, 0, 254.9), 1);
    EXPECT_EQ(selected<unsigned char>(g_uint8, 255, 255, 255), 1);
    EXPECT_EQ(selected<signed char>(eImageBufferType::Int8, -1, -1.5, 0), 1);
    EXPECT_EQ(selected<signed char>(eImageBufferType::Int8, -2, -1.5, 0), 0);
    EXPECT_EQ(selected<signed char>(eImageBufferType::Int8, -128, -128, -128), 1);
    EXPECT_EQ(selected<int>(eImageBufferType::Int32, std::numeric_limits<int>::min(), -2147483648.0, 0), 1);
    EXPECT_EQ(selected<int>(eImageBufferType::Int32, std::numeric_limits<int>::min(), -2147483647.0, 2147483647.0), 0);
    EXPECT_EQ(selected<unsigned int>(eImageBufferType::UInt32, 4294967295U, 2147483648.0, 4294967295.0), 1);
    EXPECT_EQ(selected<unsigned int>(eImageBufferType::UInt32, 2147483647U, 2147483648.0, 4294967295.0), 0);
    EXPECT_EQ(selected<unsigned char>(eImageBufferType::eBufferBinary, 1, 1, 1), 1);
    EXPECT_EQ(selected<unsigned char>(eImageBufferType::eBufferBinary, 0, 1, 1), 0);
    EXPECT_EQ(selected<float>(eImageBufferType::Real32, 0.1F, 0.1, 0.1), 1) << "bounds are single-precision numbers";
    EXPECT_EQ(selected<float>(eImageBufferType::Real32, -0.0F, 0.0, 0.0), 1);
    EXPECT_EQ(selected<float>(eImageBufferType::Real32, std::numeric_limits<float>::quiet_NaN(), -FLT_MAX, FLT_MAX), 0);
    EXPECT_EQ(selected<float>(eImageBufferType::Real32, std::numeric_limits<float>::infinity(), -FLT_MAX, FLT_MAX), 0);
}

/// Numbers within the range of the type at its limits, at 0 and in between, and beside each of them.
std::vector<double> boundsOf(const eImageBufferType& type)
{
    const double smallest = image::getMinValue(type);
    const double largest = image::getMaxValue(type);
    const double middle = type == eImageBufferType::Real32 ? 1.5 : std::floor(smallest / 2 + largest / 2);
    std::set<double> bounds;
    for (const double centre : {smallest, largest, 0.0, middle, smallest / 2, largest / 2, 1.0, 127.0, 32768.0}) {
        for (const double distance : {-1.0, -0.5, -0.1, 0.0, 0.1, 0.5, 0.9, 1.0}) {
            const double bound = centre + distance;
            if (bound >= smallest && bound <= largest) {
                bounds.insert(bound);
            }
        }
    }
    return {bounds.begin(), bounds.end()};
}

void checkAllPairs(const ImagePtr& in, const std::vector<double>& bounds)
{
    for (std::size_t low = 0; low < bounds.size(); ++low) {
        for (std::size_t high = low; high < bounds.size(); ++high) {
            ASSERT_TRUE(isThreshold(*in, bounds[low], bounds[high], *threshold(in, bounds[low], bounds[high])));
        }
    }
}

template <class T>
std::vector<T> everyValue()
{
    std::vector<T> values;
    for (int value = std::numeric_limits<T>::min(); value <= std::numeric_limits<T>::max(); ++value) {
        values.push_back(static_cast<T>(value));
    }
    return values;
}

TEST(BasicThresholdImgValuesTest, everyValueOf8Bits)
{
    checkAllPairs(imageOf(eImageBufferType::Int8, everyValue<signed char>()), boundsOf(eImageBufferType::Int8));
    for (const auto type :
         {eImageBufferType::UInt8, eImageBufferType::eBufferUInt8Like, eImageBufferType::eBufferBinary}) {
        checkAllPairs(imageOf(type, everyValue<unsigned char>()), boundsOf(type));
    }
}

TEST(BasicThresholdImgValuesTest, everyValueOf16Bits)
{
    const auto few = [](const eImageBufferType& type) {
        const double smallest = image::getMinValue(type);
        const double largest = image::getMaxValue(type);
        std::vector<double> bounds{smallest,    smallest + 0.9, smallest + 1,  0.5,    127.9,
                                   largest / 2, largest - 1,    largest - 0.5, largest};
        std::sort(bounds.begin(), bounds.end());
        return bounds;
    };
    checkAllPairs(imageOf(eImageBufferType::Int16, everyValue<short>()), few(eImageBufferType::Int16));
    for (const auto type : {eImageBufferType::UInt16, eImageBufferType::eBufferUInt16Like}) {
        checkAllPairs(imageOf(type, everyValue<unsigned short>()), few(type));
    }
}

/// Whole numbers of 32 bits around every bound, around the limits of 16 bits, and spread over all.
std::vector<unsigned int> samplesOf32Bits(const std::vector<double>& bounds)
{
    std::vector<unsigned int> samples;
    std::set<long> centres = {0, 127, 255, 32767, 65535, 1L << 31, -(1L << 31), (1L << 32) - 1};
    for (const double bound : bounds) {
        centres.insert(static_cast<long>(bound));
    }
    for (const long centre : centres) {
        for (long distance = -3; distance <= 3; ++distance) {
            samples.push_back(static_cast<unsigned int>(centre + distance));
        }
    }
    for (unsigned long i = 0; i < 500; ++i) {
        samples.push_back(static_cast<unsigned int>(i * 8589935UL));
    }
    return samples;
}

TEST(BasicThresholdImgValuesTest, samplesOf32Bits)
{
    for (const auto type : {eImageBufferType::Int32, eImageBufferType::UInt32, eImageBufferType::eBufferUInt32Like}) {
        const std::vector<double> bounds = boundsOf(type);
        checkAllPairs(imageOf(type, samplesOf32Bits(bounds)), bounds);
    }
}

TEST(BasicThresholdImgValuesTest, samplesOfRealNumbers)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const std::vector<double> bounds = {-FLT_MAX, -1e20,   -1,  -1.0 / 3, -1e-40, -0.0,     0.0,  1e-46,  1e-45,
                                        1e-40,    FLT_MIN, 0.1, 1.0 / 3,  1,      16777217, 1e20, FLT_MAX};
    std::vector<float> samples = {std::numeric_limits<float>::quiet_NaN(),
                                  std::numeric_limits<float>::signaling_NaN(),
                                  -std::numeric_limits<float>::quiet_NaN(),
                                  infinity,
                                  -infinity,
                                  0.0F,
                                  -0.0F};
    for (const double bound : bounds) {
        const float centre = static_cast<float>(bound);
        for (const float sample : {std::nextafter(centre, -infinity), centre, std::nextafter(centre, infinity)}) {
            samples.push_back(sample);
        }
    }
    for (unsigned int bits = 0; bits < 0xFFFFFFFFU - 8589935U; bits += 8589935U) {
        samples.push_back(__builtin_bit_cast(float, bits));
    }
    checkAllPairs(imageOf(eImageBufferType::Real32, samples), bounds);
}

} // namespace
} // namespace orlix::imaproc::util::test
