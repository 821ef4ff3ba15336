// Every pair of values that matters, in every mode, against the oracle.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPLUtility/Processor/CompareImg/CompareOracle.h"

#include <limits>
#include <vector>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float g_infinity = std::numeric_limits<float>::infinity();

std::vector<Tolerance> makeTolerances(const std::vector<float>& absolutes, const std::vector<float>& relatives)
{
    std::vector<Tolerance> tolerances = {{0, 5, 5}, {7, 5, 5}};
    for (const float absolute : absolutes) {
        tolerances.push_back({1, absolute, 0});
        for (const float relative : relatives) {
            tolerances.push_back({3, absolute, relative});
        }
    }
    for (const float relative : relatives) {
        tolerances.push_back({2, 0, relative});
    }
    return tolerances;
}

/// The pairs of one value with all: each a line, and behind them the values again, so that lines have a length that is
/// no multiple of any register's.
template <class T>
std::pair<ImagePtr, ImagePtr> makePairs(const eImageBufferType& type, T value, const std::vector<T>& others)
{
    const unsigned long nbRepeated = 3 * others.size() / 2 + 5;
    const ImagePtr first = image::createImage(*image::geometry2d(type, nbRepeated, 1));
    const ImagePtr second = image::createImage(*image::geometry2d(type, nbRepeated, 1));
    for (unsigned long x = 0; x < nbRepeated; ++x) {
        image::planData<T>(*first, 0, 0, 0)[x] = value;
        image::planData<T>(*second, 0, 0, 0)[x] = others[x % others.size()];
    }
    return {first, second};
}

template <class T>
void checkAllPairs(const eImageBufferType& type, const std::vector<T>& values, const std::vector<Tolerance>& tolerances)
{
    for (const T value : values) {
        const auto [first, second] = makePairs(type, value, values);
        for (const Tolerance& tolerance : tolerances) {
            ASSERT_TRUE(comparesAsExpected(first, second, tolerance))
                << image::getBufferTypeName(type) << " against " << +value;
            ASSERT_TRUE(comparesAsExpected(second, first, tolerance))
                << image::getBufferTypeName(type) << " against " << +value << ", the other way round";
        }
    }
}

template <class T>
std::vector<T> allOf8Bits()
{
    std::vector<T> values;
    for (int value = std::numeric_limits<T>::min(); value <= std::numeric_limits<T>::max(); ++value) {
        values.push_back(static_cast<T>(value));
    }
    return values;
}

/// Both ends of the type, and the neighbours of 0 and of every power of two.
template <class T>
std::vector<T> limitsOf()
{
    std::vector<T> values;
    constexpr long long lowest = std::numeric_limits<T>::min();
    constexpr long long highest = std::numeric_limits<T>::max();
    for (const long long sign : {1, -1}) {
        for (long long power = 1; power <= highest + 1; power *= 2) {
            for (const long long value : {power - 1, power, power + 1, 3 * power / 2}) {
                if (sign * value >= lowest && sign * value <= highest) {
                    values.push_back(static_cast<T>(sign * value));
                }
            }
        }
    }
    return values;
}

TEST(CompareImgPairsTest, EveryPairOf8BitsInEveryMode)
{
    const std::vector<Tolerance> tolerances =
        makeTolerances({0, 1, 1.9f, 127, 254, 255, -1, 65536, 65546, 3e9f, g_nan}, {0, 0.25f, 0.1f, 1, -0.5f, g_nan});
    checkAllPairs(eImageBufferType::Int8, allOf8Bits<signed char>(), tolerances);
    checkAllPairs(eImageBufferType::UInt8, allOf8Bits<unsigned char>(), tolerances);
}

TEST(CompareImgPairsTest, LimitsOf16Bits)
{
    const std::vector<Tolerance> tolerances =
        makeTolerances({0, 1.9f, 32767, 32768, 65534, 65535, 65536, -1, g_nan, g_infinity},
                       {0, 0.1f, 0.5f, 1, 1.5f, 2, 3.0517578e-5f, -0.5f, g_nan, g_infinity});
    checkAllPairs(eImageBufferType::Int16, limitsOf<short>(), tolerances);
    checkAllPairs(eImageBufferType::UInt16, limitsOf<unsigned short>(), tolerances);
    checkAllPairs(eImageBufferType::eBufferUInt16Like, limitsOf<unsigned short>(), tolerances);
}

TEST(CompareImgPairsTest, LimitsOf32Bits)
{
    const std::vector<Tolerance> tolerances =
        makeTolerances({0, 1.9f, 65536, 2147483520.0f, 2147483648.0f, 4294967040.0f, 4294967296.0f, -1, g_nan},
                       {0, 0.1f, 0.5f, 1, 2, 1.1920929e-7f, -0.5f, g_nan, g_infinity});
    checkAllPairs(eImageBufferType::Int32, limitsOf<int>(), tolerances);
    checkAllPairs(eImageBufferType::UInt32, limitsOf<unsigned int>(), tolerances);
    checkAllPairs(eImageBufferType::eBufferUInt32Like, limitsOf<unsigned int>(), tolerances);
}

TEST(CompareImgPairsTest, FloatsOfAllKinds)
{
    std::vector<float> values = {0.0f,
                                 g_nan,
                                 g_infinity,
                                 std::numeric_limits<float>::denorm_min(),
                                 std::numeric_limits<float>::min(),
                                 std::numeric_limits<float>::max()};
    for (int exponent = -149; exponent < 128; exponent += 23) {
        values.push_back(std::ldexp(1.0f, exponent));
        values.push_back(std::nextafter(std::ldexp(1.5f, exponent), 0.0f));
    }
    for (unsigned long i = 0, nb = values.size(); i < nb; ++i) {
        values.push_back(-values[i]);
    }
    const std::vector<Tolerance> tolerances = makeTolerances({0, -1, 1e-45f, 0.1f, 1, 3e38f, g_nan, g_infinity},
                                                             {0, -1, 1e-45f, 0.1f, 1, 2, g_nan, g_infinity});
    checkAllPairs(eImageBufferType::Real32, values, tolerances);
}

TEST(CompareImgPairsTest, BinaryImagesAreComparedAsBytes)
{
    const std::vector<unsigned char> values = {0, 1, 2, 128, 255};
    checkAllPairs(eImageBufferType::eBufferBinary, values, makeTolerances({0, 1}, {0, 0.5f}));
    checkAllPairs(eImageBufferType::eBufferUInt8Like, values, makeTolerances({0, 1}, {0, 0.5f}));
}

/// What the oracle says is itself worth a few examples.
TEST(CompareImgPairsTest, OracleKnowsTheExamples)
{
    EXPECT_TRUE(differ<unsigned char>(10, 12, {1, 1.9f, 0}));
    EXPECT_FALSE(differ<unsigned char>(10, 11, {1, 1.9f, 0}));
    EXPECT_FALSE(differ<short>(0, 0, {2, 0, 0}));
    EXPECT_TRUE(differ<short>(0, 1, {2, 0, 0.99f}));
    EXPECT_FALSE(differ<short>(0, 1, {2, 0, 1}));
    EXPECT_FALSE(differ<int>(std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), {1, 0, 0}));
    EXPECT_TRUE(differ(g_nan, g_nan, {0, 0, 0}));
    EXPECT_FALSE(differ(g_nan, g_nan, {1, 0, 0}));
    EXPECT_FALSE(differ(-0.0f, 0.0f, {0, 0, 0}));
    EXPECT_TRUE(differ<int>(1, 2, {7, 10, 10}));
    EXPECT_FALSE(differ<unsigned short>(60000, 60500, {3, 100, 0.01f}));
}

} // namespace
} // namespace orlix::imaproc::util::test
