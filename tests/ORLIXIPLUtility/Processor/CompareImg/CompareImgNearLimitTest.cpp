// Relative comparisons of 32-bit pixels whose quotients lie next to the tolerance, on either side and on it: kernels
// that do not divide have to decide as the division does.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/CompareImg/CompareOracle.h"
#include "support/Images.h"

#include <random>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                              eInstructionSet::eAVX512};

template <class T>
struct Pairs
{
    std::vector<T> first;
    std::vector<T> second;

    void add(T a, T b)
    {
        first.push_back(a);
        second.push_back(b);
    }
};

template <class T>
constexpr eImageBufferType::domain g_typeOf = std::is_same_v<T, float> ? eImageBufferType::Real32
                                              : std::is_same_v<T, int> ? eImageBufferType::Int32
                                                                       : eImageBufferType::UInt32;

/// How many pairs differ by the division, pixel by pixel.
template <class T>
unsigned long countByDivision(const Pairs<T>& pairs, const Tolerance& tolerance)
{
    unsigned long nbDifferent = 0;
    for (std::size_t i = 0; i < pairs.first.size(); ++i) {
        nbDifferent += differ(pairs.first[i], pairs.second[i], tolerance) ? 1 : 0;
    }
    return nbDifferent;
}

template <class T>
void expectAsDivided(Pairs<T> pairs, float relative)
{
    while (pairs.first.size() % 64 != 0) { // so that kernels see all of them in vectors
        pairs.add(pairs.first.back(), pairs.second.back());
    }
    const auto geometry = image::geometry2d(g_typeOf<T>, pairs.first.size(), 1);
    const image::BufferStrides strides{pairs.first.size(), 0, 0, 0};
    const ImagePtr first = image::wrapImage(*geometry, pairs.first.data(), strides, nullptr);
    const ImagePtr second = image::wrapImage(*geometry, pairs.second.data(), strides, nullptr);
    for (const eInstructionSet::domain set : g_sets) {
        if (!core::isAvailable(set)) {
            continue;
        }
        const testing::ForcedSet<CompareImgLvl3> forced(set);
        for (const Tolerance& tolerance : {Tolerance{2, 0, relative}, {3, 2, relative}}) {
            ASSERT_EQ(compareImg(first, second, tolerance.make())->nbDifferentPixels, countByDivision(pairs, tolerance))
                << tolerance << " with " << core::getInstructionSetName(set);
        }
    }
}

/// t = significand / 2^scale, the significand an odd number of up to 24 bits.
struct Fraction
{
    unsigned long significand;
    int scale;
};
Fraction fractionOf(float value)
{
    int exponent = 0;
    const float mantissa = std::frexp(value, &exponent);
    Fraction fraction{static_cast<unsigned long>(std::ldexp(mantissa, 24)), 24 - exponent};
    while (fraction.significand % 2 == 0) {
        fraction.significand /= 2;
        --fraction.scale;
    }
    return fraction;
}

/// x with x * odd = 1 modulo 2^64.
unsigned long inverseOf(unsigned long odd)
{
    unsigned long inverse = odd;
    for (int step = 0; step < 6; ++step) {
        inverse *= 2 - odd * inverse;
    }
    return inverse;
}

/// All d and m below 2^32 with d / m above t by exactly `excess` parts of 2^scale of m, as far as there are such; of
/// these quotients some round to t, though they are above it. d is at most m, and for int images m at most 2^31.
template <class T>
void addNeighbours(Pairs<T>& pairs, const Fraction& t, long excess)
{
    if (t.scale < 1 || t.scale > 40) {
        return;
    }
    const unsigned long modulus = 1UL << t.scale;
    const unsigned long largest = std::is_same_v<T, int> ? 0x7FFFFFFFUL : 0xFFFFFFFFUL;
    const unsigned long smallest = (0UL - static_cast<unsigned long>(excess)) * inverseOf(t.significand) % modulus;
    const unsigned long step = std::max(modulus, (largest / 64 + modulus - 1) / modulus * modulus);
    for (unsigned long magnitude = smallest; magnitude <= largest; magnitude += step) {
        const unsigned long difference = (t.significand * magnitude + static_cast<unsigned long>(excess)) >> t.scale;
        if (difference <= magnitude) {
            pairs.add(static_cast<T>(magnitude), static_cast<T>(magnitude - difference));
        }
    }
}

/// Pairs above t in whole numbers whose quotient the division doesn't put above it.
template <class T>
unsigned long countRoundedDown(const Pairs<T>& pairs, float relative, const Fraction& t)
{
    unsigned long nb = 0;
    for (std::size_t i = 0; i < pairs.first.size(); ++i) {
        const auto magnitude = static_cast<unsigned long>(pairs.first[i]);
        const unsigned long difference = magnitude - static_cast<unsigned long>(pairs.second[i]);
        // Both sides have at most 56 bits, of the 64 of this type.
        const bool bAbove = std::ldexp(static_cast<long double>(difference), t.scale) >
                            static_cast<long double>(t.significand) * static_cast<long double>(magnitude);
        nb += bAbove && !(static_cast<double>(difference) / static_cast<double>(magnitude) > relative) ? 1 : 0;
    }
    return nb;
}

template <class T>
class CompareImgNearLimitTest : public ::testing::Test
{};
using WholeTypes = ::testing::Types<int, unsigned int>;
TYPED_TEST_SUITE(CompareImgNearLimitTest, WholeTypes);

TYPED_TEST(CompareImgNearLimitTest, quotientsNextToTheToleranceOfWholeNumbers)
{
    std::mt19937 random(7);
    unsigned long nbRoundedDown = 0;
    for (int round = 0; round < 400; ++round) {
        const int exponent = round % 2 == 0 ? 0 : -static_cast<int>(random() % 16);
        const float relative = std::ldexp(0.5F + static_cast<float>(random() % (1U << 23)) * 0x1p-24F, exponent);
        const Fraction t = fractionOf(relative);
        Pairs<TypeParam> pairs;
        for (long excess = -5; excess <= 5; ++excess) {
            addNeighbours(pairs, t, excess);
        }
        if (!pairs.first.empty()) {
            nbRoundedDown += countRoundedDown(pairs, relative, t);
            expectAsDivided(pairs, relative);
        }
    }
    EXPECT_GT(nbRoundedDown, 50U) << "a mere product would have passed";
}

TYPED_TEST(CompareImgNearLimitTest, everyQuotientOfSmallWholeNumbers)
{
    Pairs<TypeParam> pairs;
    for (unsigned int a = 0; a < 130; ++a) {
        for (unsigned int b = 0; b < 130; ++b) {
            pairs.add(static_cast<TypeParam>(a), static_cast<TypeParam>(b));
        }
    }
    for (unsigned int d = 0; d <= 40; ++d) {
        for (unsigned int m = 1; m <= 40; ++m) {
            const float relative = static_cast<float>(d) / static_cast<float>(m);
            expectAsDivided(pairs, relative);
        }
    }
}

/// What no number of an image is, and the largest ones.
template <class T>
std::vector<T> extremesOf()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values = {
        T(0),         T(1), T(2), T(3), Limits::max(), Limits::lowest(), T(Limits::max() / 2), T(Limits::lowest() / 2),
        Limits::min()};
    if constexpr (std::is_same_v<T, float>) {
        values.insert(values.end(), {-0.0F, -1.0F, Limits::denorm_min(), -Limits::denorm_min(), Limits::infinity(),
                                     -Limits::infinity(), Limits::quiet_NaN(), 0x1.fffffep-127F, 0x1.000002p0F});
    } else {
        values.insert(values.end(), {T(Limits::max() - 1), T(Limits::lowest() + 1)});
    }
    return values;
}

constexpr float g_inf = std::numeric_limits<float>::infinity();
constexpr float g_tolerances[] = {0.0F,          -0.0F,
                                  1.0F,          0x1.fffffep-1F,
                                  0x1.000002p0F, 0.5F,
                                  2.0F,          0x1.fffffep0F,
                                  0.01F,         1e-20F,
                                  1e20F,         0x1p-149F,
                                  0x1p-126F,     0x1p31F,
                                  0x1p32F,       0x1.fffffep127F,
                                  -0.5F,         -1e-30F,
                                  -1e30F,        g_inf,
                                  -g_inf,        std::numeric_limits<float>::quiet_NaN()};

template <class T>
void checkExtremes()
{
    Pairs<T> pairs;
    for (const T a : extremesOf<T>()) {
        for (const T b : extremesOf<T>()) {
            pairs.add(a, b);
        }
    }
    for (const float relative : g_tolerances) {
        expectAsDivided(pairs, relative);
    }
}

TEST(CompareImgNearLimitTest, extremesOfEveryType)
{
    checkExtremes<int>();
    checkExtremes<unsigned int>();
    checkExtremes<float>();
}

TEST(CompareImgNearLimitTest, quotientsNextToTheToleranceOfFloats)
{
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        const float relative =
            std::ldexp(1 + static_cast<float>(random() % (1U << 23)) * 0x1p-23F, -static_cast<int>(random() % 12));
        Pairs<float> pairs;
        for (int i = 0; i < 64; ++i) {
            const int exponent = i % 8 == 0 ? -140 : static_cast<int>(random() % 60) - 30;
            const float magnitude = std::ldexp(1 + static_cast<float>(random() % (1U << 23)) * 0x1p-23F, exponent);
            float other = magnitude - relative * magnitude; // from the other side of 0 where the tolerance is above 1
            for (int k = 0; k < 3; ++k) {
                other = std::nextafter(other, -g_inf);
            }
            for (int k = 0; k < 7; ++k, other = std::nextafter(other, g_inf)) {
                pairs.add(magnitude, other);
                pairs.add(-other, -magnitude);
            }
        }
        expectAsDivided(pairs, relative);
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
