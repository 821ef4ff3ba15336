// How even, how normal and how independent 10^8 random values are, under the set that is forced. For
// `scripts/test --long`. The figures that the tests print stand in docs/random-numbers.md.
#include "ORLIX/ORLIXUtil/RandomStates.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr unsigned long g_side = 4096;
constexpr unsigned long g_nbPlans = 6; // 1.007 10^8 elements
constexpr double g_nbAll = static_cast<double>(g_side * g_side * g_nbPlans);

ImagePtr uniform(eImageBufferType type)
{
    const RandomRunScope scope(20261122, 0);
    const ImagePtr image = image::createImage(*image::geometry3d(type, g_side, g_side, g_nbPlans));
    if (type == eImageBufferType::Real32) {
        randomImg(attr::createRange(0, 1), image);
    } else {
        randomImg(image);
    }
    return image;
}

ImagePtr normal()
{
    const RandomRunScope scope(20261122, 1);
    const ImagePtr image = image::createImage(*image::geometry3d(eImageBufferType::Real32, g_side, g_side, g_nbPlans));
    gaussianRandomImg(attr::createGaussianParameter(0, 1), image);
    return image;
}

template <class T, class TAction>
void forEach(const image::BaseImage& image, const TAction& action)
{
    for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
        const T* const plan = image::planData<T>(image, z, 0, 0);
        for (unsigned long i = 0; i < g_side * g_side; ++i) {
            action(plan[i]);
        }
    }
}

/// How many standard deviations chi-square lies from its mean, for bins that are equally likely. Below -5 they are
/// filled more evenly than by chance, as a part of a period fills them.
double chiSquare(const std::vector<unsigned long>& bins)
{
    const double expected = g_nbAll / static_cast<double>(bins.size());
    double sum = 0;
    for (const unsigned long bin : bins) {
        const double difference = static_cast<double>(bin) - expected;
        sum += difference * difference / expected;
    }
    const double freedom = static_cast<double>(bins.size()) - 1;
    return (sum - freedom) / std::sqrt(2 * freedom);
}

/// Kolmogorov and Smirnov's largest distance from the law, times the root of the count: above 1.95 in one case of a
/// thousand. `bins` are equally likely, and as many as make the rest within a bin small.
double kolmogorovSmirnov(const std::vector<unsigned long>& bins)
{
    double largest = 0;
    unsigned long below = 0;
    for (std::size_t i = 0; i < bins.size(); ++i) {
        below += bins[i];
        const double expected = static_cast<double>(i + 1) / static_cast<double>(bins.size());
        largest = std::max(largest, std::abs(static_cast<double>(below) / g_nbAll - expected));
    }
    return largest * std::sqrt(g_nbAll);
}

/// Of elements `distance` apart in a plan, times the root of their count: a standard deviation is 1.
double correlation(const image::BaseImage& image, unsigned long distance)
{
    double sum = 0, square = 0, product = 0, nb = 0;
    for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
        const float* const plan = image::planData<float>(image, z, 0, 0);
        for (unsigned long i = 0; i + distance < g_side * g_side; ++i) {
            const double value = static_cast<double>(plan[i]);
            sum += value;
            square += value * value;
            product += value * static_cast<double>(plan[i + distance]);
        }
        nb += static_cast<double>(g_side * g_side - distance);
    }
    const double mean = sum / nb;
    return (product / nb - mean * mean) / (square / nb - mean * mean) * std::sqrt(nb);
}

double correlationOfPlans(const image::BaseImage& image)
{
    double sum = 0, square = 0, product = 0;
    for (unsigned long z = 0; z + 1 < image.getSizeZ(); ++z) {
        const float* const plan = image::planData<float>(image, z, 0, 0);
        const float* const next = image::planData<float>(image, z + 1, 0, 0);
        for (unsigned long i = 0; i < g_side * g_side; ++i) {
            const double value = static_cast<double>(plan[i]);
            sum += value;
            square += value * value;
            product += value * static_cast<double>(next[i]);
        }
    }
    const auto nb = static_cast<double>(g_side * g_side * (g_nbPlans - 1));
    const double mean = sum / nb;
    return (product / nb - mean * mean) / (square / nb - mean * mean) * std::sqrt(nb);
}

void tell(const char* what, double figure)
{
    std::printf("    %-60s %8.3f\n", what, figure);
}

TEST(RandomStatisticsLongTest, DISABLED_uniformIntegersAreEven)
{
    std::vector<unsigned long> bins(256);
    forEach<unsigned char>(*uniform(eImageBufferType::UInt8), [&](unsigned char value) { ++bins[value]; });
    tell("UInt8, chi-square of 256 values", chiSquare(bins));
    EXPECT_LT(std::abs(chiSquare(bins)), 5);
    EXPECT_LT(kolmogorovSmirnov(bins), 2.3);
    bins.assign(65536, 0);
    forEach<unsigned short>(*uniform(eImageBufferType::UInt16), [&](unsigned short value) { ++bins[value]; });
    tell("UInt16, chi-square of 65536 values", chiSquare(bins));
    EXPECT_LT(chiSquare(bins), 5);
    std::vector<unsigned long> low(65536);
    std::vector<unsigned long> high(32768);
    bins.assign(65536, 0);
    forEach<unsigned int>(*uniform(eImageBufferType::UInt32), [&](unsigned int value) {
        ++high[value >> 17];
        ++bins[value >> 16];
        ++low[value & 65535];
    });
    tell("UInt32, chi-square of the upper 15 bits, which are one draw", chiSquare(high));
    tell("UInt32, chi-square of the upper 16 bits, of two draws", chiSquare(bins));
    tell("UInt32, chi-square of the lower 16 bits", chiSquare(low));
    EXPECT_LT(chiSquare(high), 5);
    EXPECT_LT(chiSquare(low), 5);
}

TEST(RandomStatisticsLongTest, DISABLED_uniformRealsAreEven)
{
    const ImagePtr image = uniform(eImageBufferType::Real32);
    std::vector<unsigned long> bins(1UL << 20);
    std::vector<unsigned long> coarse(1UL << 15);
    forEach<float>(*image, [&](float value) {
        const auto bin = static_cast<unsigned long>(static_cast<double>(value) * static_cast<double>(bins.size()));
        const unsigned long within = std::min(bin, bins.size() - 1);
        ++bins[within];
        ++coarse[within >> 5];
    });
    tell("Real32, Kolmogorov-Smirnov", kolmogorovSmirnov(bins));
    tell("Real32, chi-square of 2^15 intervals, which are one draw", chiSquare(coarse));
    tell("Real32, chi-square of 2^20 intervals, of two draws", chiSquare(bins));
    EXPECT_LT(kolmogorovSmirnov(bins), 2.3);
    EXPECT_LT(chiSquare(coarse), 5);
}

TEST(RandomStatisticsLongTest, DISABLED_normalRealsAreNormal)
{
    const ImagePtr image = normal();
    std::vector<unsigned long> bins(1UL << 16);
    double sum = 0, square = 0, cube = 0, fourth = 0;
    forEach<float>(*image, [&](float single) {
        const double value = static_cast<double>(single);
        const auto bin =
            static_cast<unsigned long>(0.5 * std::erfc(-value / std::sqrt(2.0)) * static_cast<double>(bins.size()));
        ++bins[std::min(bin, bins.size() - 1)];
        sum += value;
        square += value * value;
        cube += value * value * value;
        fourth += value * value * value * value;
    });
    tell("normal, Kolmogorov-Smirnov", kolmogorovSmirnov(bins));
    tell("normal, chi-square of 65536 intervals", chiSquare(bins));
    tell("normal, mean in standard errors", sum / std::sqrt(g_nbAll));
    tell("normal, variance in standard errors", (square - g_nbAll) / std::sqrt(2 * g_nbAll));
    tell("normal, third moment in standard errors", cube / std::sqrt(15 * g_nbAll));
    tell("normal, fourth moment in standard errors", (fourth - 3 * g_nbAll) / std::sqrt(96 * g_nbAll));
    EXPECT_LT(kolmogorovSmirnov(bins), 2.3);
    EXPECT_LT(std::abs(chiSquare(bins)), 5);
    EXPECT_LT(std::abs(sum / std::sqrt(g_nbAll)), 5);
    EXPECT_LT(std::abs((square - g_nbAll) / std::sqrt(2 * g_nbAll)), 5);
}

TEST(RandomStatisticsLongTest, DISABLED_neighboursDoNotFollowOneAnother)
{
    for (const bool bNormal : {false, true}) {
        const ImagePtr image = bNormal ? normal() : uniform(eImageBufferType::Real32);
        for (const unsigned long distance : {1UL, 2UL, 4UL, 8UL, 16UL, 32UL, 64UL, g_side, 16 * g_side, 32 * g_side}) {
            const double found = correlation(*image, distance);
            tell(((bNormal ? "normal, correlation of elements apart by "
                           : "uniform, correlation of elements apart by ") +
                  std::to_string(distance))
                     .c_str(),
                 found);
            EXPECT_LT(std::abs(found), 5) << distance;
        }
        tell(bNormal ? "normal, correlation of plans" : "uniform, correlation of plans", correlationOfPlans(*image));
        EXPECT_LT(std::abs(correlationOfPlans(*image)), 5);
    }
}

TEST(RandomStatisticsLongTest, DISABLED_noStateTwiceInAMillionStrips)
{
    constexpr unsigned long nbStrips = 1000000;
    constexpr unsigned long nbLanes = 16;
    std::vector<unsigned int> states(nbStrips * nbLanes);
    for (unsigned long strip = 0; strip < nbStrips; ++strip) {
        drawRandomStates(states.data() + strip * nbLanes, nbLanes);
    }
    std::sort(states.begin(), states.end());
    EXPECT_EQ(std::adjacent_find(states.begin(), states.end()), states.end()) << "without a seed";
    RandomRun run;
    run.bSeeded = true;
    std::vector<unsigned int> ofLanes[nbLanes];
    for (unsigned long strip = 0; strip < nbStrips; ++strip) {
        unsigned int found[nbLanes];
        fillRandomStates(run, strip * 64, 64, 4, nbLanes, found);
        for (unsigned long lane = 0; lane < nbLanes; ++lane) {
            ofLanes[lane].push_back(found[lane]);
        }
    }
    for (std::vector<unsigned int>& lane : ofLanes) {
        std::sort(lane.begin(), lane.end());
        EXPECT_EQ(std::adjacent_find(lane.begin(), lane.end()), lane.end()) << "in the strips of a plan with a seed";
    }
}

} // namespace
} // namespace orlix::imaproc::util
