// Random generators give, element for element, what the numbers of their lanes come to, under every instruction set.
#include "ORLIXMath/Simd/RandomOracle.h"
#include "ORLIXMath/Simd/RandomTable.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <random>
#include <set>

namespace orlix::simd {
namespace {

using test::RandomRow;

struct SetCase
{
    const char* name;
    eInstructionSet::domain set;
    const test::RandomTable* table;
    bool bAvailable;
};

std::vector<SetCase> allSets()
{
    __builtin_cpu_init();
    const bool bAvx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                         __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    return {{"plain", eInstructionSet::eNone, &test::g_random_plain, true},
            {"SSE2", eInstructionSet::eSSE2, &test::g_random_sse2, true},
            {"AVX2", eInstructionSet::eAVX2, &test::g_random_avx2, __builtin_cpu_supports("avx2") != 0},
            {"AVX512", eInstructionSet::eAVX512, &test::g_random_avx512, bAvx512}};
}

class RandomGeneratorsTest : public testing::TestWithParam<SetCase>
{
protected:
    void SetUp() override
    {
        if (!GetParam().bAvailable) {
            GTEST_SKIP() << "this processor has no " << GetParam().name;
        }
    }
    eInstructionSet::domain set() const { return GetParam().set; }

    /// `nb` elements behind `nbSkipped`, from given states or, where there are none, from new ones.
    template <class T, class TParameter>
    std::vector<T> made(test::RandomFunction RandomRow::*function, TParameter first, TParameter second,
                        const std::vector<unsigned>& states, unsigned long nb, unsigned long nbSkipped = 0,
                        eMemoryPlace place = eMemoryPlace::secondLevelCache) const
    {
        const TParameter parameters[] = {first, second};
        std::vector<T> memory(nb + 128); // room to begin with a cache line, and behind
        const unsigned long before = (64 - reinterpret_cast<unsigned long>(memory.data()) % 64) % 64 / sizeof(T);
        (rowOf<T>().*function)(
            {parameters, states.empty() ? nullptr : states.data(), nb, nbSkipped, place, memory.data() + before});
        return {memory.begin() + static_cast<long>(before), memory.begin() + static_cast<long>(before + nb)};
    }
    template <class T>
    const RandomRow& rowOf() const
    {
        const std::size_t type = std::is_same_v<T, float> ? 6
                                                          : (sizeof(T) == 1   ? 0
                                                             : sizeof(T) == 2 ? 2
                                                                              : 4) +
                                                                (std::is_signed_v<T> ? 0 : 1);
        return GetParam().table->rows[type];
    }
};

/// The same in every byte: floats are compared as they lie in memory.
template <class T>
testing::AssertionResult areSame(const std::vector<T>& found, const std::vector<T>& expected)
{
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (i >= found.size() || std::memcmp(&found[i], &expected[i], sizeof(T)) != 0) {
            return testing::AssertionFailure() << "element " << i << " is " << +found[i] << ", not " << +expected[i];
        }
    }
    return testing::AssertionSuccess();
}

std::vector<unsigned> someStates(unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<unsigned> states(16);
    for (unsigned& state : states) {
        state = static_cast<unsigned>(random());
    }
    return states;
}

/// Bounds of all distances: none, few values, powers of 2 and their neighbours, all values.
template <class T>
std::vector<std::pair<T, T>> someBounds(unsigned seed)
{
    constexpr T low = std::numeric_limits<T>::lowest();
    constexpr T high = std::numeric_limits<T>::max();
    std::vector<std::pair<T, T>> bounds = {{low, high}, {low, low}, {high, high}, {0, 1}, {3, 12}, {0, 100}};
    std::mt19937_64 random(seed);
    if constexpr (std::is_same_v<T, float>) {
        bounds.insert(bounds.end(), {{-1.5F, 1.5F}, {1e-30F, 1e30F}, {0.1F, 0.3F}, {-1e-44F, 1e-44F}});
    } else {
        for (unsigned bit = 0; bit < 8 * sizeof(T); ++bit) {
            for (const long distance : {(1L << bit) - 2, (1L << bit) - 1, 1L << bit}) {
                const long most = static_cast<long>(high) - static_cast<long>(low);
                if (distance >= 0 && distance <= most) {
                    const long start = static_cast<long>(low) + static_cast<long>(random() % (most - distance + 1));
                    bounds.emplace_back(static_cast<T>(start), static_cast<T>(start + distance));
                }
            }
        }
        for (int i = 0; i < 40; ++i) {
            const auto [first, second] = std::minmax({static_cast<T>(random()), static_cast<T>(random())});
            bounds.emplace_back(first, second);
        }
    }
    return bounds;
}

template <class TAction>
void forEachType(const TAction& action)
{
    action.template operator()<signed char>();
    action.template operator()<unsigned char>();
    action.template operator()<short>();
    action.template operator()<unsigned short>();
    action.template operator()<int>();
    action.template operator()<unsigned int>();
    action.template operator()<float>();
}

TEST_P(RandomGeneratorsTest, uniformElementsAreThoseOfTheLanes)
{
    forEachType([this]<class T>() {
        unsigned seed = 0;
        for (const auto& [min, max] : someBounds<T>(7)) {
            const std::vector<unsigned> states = someStates(++seed);
            const std::vector<T> expected = test::uniformOracle<T>(set(), min, max, states, 3000);
            EXPECT_TRUE(areSame(made<T>(&RandomRow::uniform, min, max, states, 3000), expected))
                << sizeof(T) << " bytes, " << +min << " to " << +max;
            EXPECT_TRUE(areSame(made<T>(&RandomRow::uniformBlocks, min, max, states, 3000), expected))
                << "by blocks, " << sizeof(T) << " bytes, " << +min << " to " << +max;
        }
    });
}

/// Doubles round the longest products, about one in four million up to the next whole number.
TEST_P(RandomGeneratorsTest, blocksRoundAsOneByOne)
{
    for (const unsigned int max : {4294967293U, 3000000001U}) {
        const std::vector<unsigned> states = someStates(max);
        EXPECT_TRUE(areSame(made<unsigned int>(&RandomRow::uniformBlocks, 0U, max, states, 10000000),
                            made<unsigned int>(&RandomRow::uniform, 0U, max, states, 10000000)));
    }
}

TEST_P(RandomGeneratorsTest, normalElementsAreThoseOfTheLanes)
{
    forEachType([this]<class T>() {
        unsigned seed = 0;
        for (const auto& [mean, deviation] :
             {std::pair{0.0F, 1.0F}, {100.0F, 20.0F}, {1000.0F, 3.0F}, {-7.25F, 0.0F}, {1e9F, 1e9F}, {0.0F, -2e4F}}) {
            const std::vector<unsigned> states = someStates(++seed);
            EXPECT_TRUE(areSame(made<T>(&RandomRow::normal, mean, deviation, states, 3000),
                                test::normalOracle<T>(set(), mean, deviation, states, 3000)))
                << sizeof(T) << " bytes, " << mean << ", " << deviation;
        }
    });
}

TEST_P(RandomGeneratorsTest, integersRoundHalfAwayFromZeroAndSaturate)
{
    const std::vector<unsigned> states = someStates(3);
    const auto constant = [&]<class T>(float mean) { return made<T>(&RandomRow::normal, mean, 0.0F, states, 5)[4]; };
    EXPECT_EQ(constant.template operator()<short>(2.5F), 3);
    EXPECT_EQ(constant.template operator()<short>(-2.5F), -3);
    EXPECT_EQ(constant.template operator()<unsigned char>(1000.0F), 255);
    EXPECT_EQ(constant.template operator()<unsigned char>(-1.0F), 0);
    EXPECT_EQ(constant.template operator()<signed char>(-1000.0F), -128);
    EXPECT_EQ(constant.template operator()<unsigned short>(40000.0F), 40000);
    EXPECT_EQ(constant.template operator()<int>(3e9F), std::numeric_limits<int>::max());
    EXPECT_EQ(constant.template operator()<int>(0x1p31F), std::numeric_limits<int>::max());
    EXPECT_EQ(constant.template operator()<int>(0x1.fffffep30F), 2147483520);
    EXPECT_EQ(constant.template operator()<int>(-0x1p31F), std::numeric_limits<int>::lowest());
    EXPECT_EQ(constant.template operator()<unsigned int>(0x1p31F), 2147483648U);
    EXPECT_EQ(constant.template operator()<unsigned int>(0x1p32F), std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(constant.template operator()<unsigned int>(3e9F), 3000000000U);
    EXPECT_EQ(constant.template operator()<unsigned int>(5e9F), std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(constant.template operator()<float>(2.5F), 2.5F);
}

TEST_P(RandomGeneratorsTest, anyBoundsAndLawsAreTaken)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    forEachType([&]<class T>() {
        EXPECT_TRUE(areSame(made<T>(&RandomRow::uniform, T(100), T(20), someStates(1), 1000),
                            made<T>(&RandomRow::uniformBlocks, T(100), T(20), someStates(1), 1000)));
        for (const auto& [mean, deviation] :
             {std::pair{nan, 1.0F}, {0.0F, nan}, {infinity, -infinity}, {0.0F, infinity}, {-infinity, 0.0F}}) {
            EXPECT_EQ(made<T>(&RandomRow::normal, mean, deviation, someStates(1), 1000).size(), 1000U);
        }
        if (!std::is_same_v<T, float> && set() != eInstructionSet::eNone) { // plain: what the conversion gives
            EXPECT_EQ(made<T>(&RandomRow::normal, nan, 1.0F, someStates(1), 1)[0], std::numeric_limits<T>::max());
        }
    });
    EXPECT_EQ(made<float>(&RandomRow::uniform, nan, infinity, someStates(1), 100).size(), 100U);
    EXPECT_EQ(made<float>(&RandomRow::uniform, -infinity, infinity, someStates(1), 100).size(), 100U);
}

TEST_P(RandomGeneratorsTest, everyValueOfAnIntervalIsReached)
{
    forEachType([this]<class T>() {
        if constexpr (!std::is_same_v<T, float>) {
            const auto elements = made<T>(&RandomRow::uniform, T(7), T(90), someStates(5), 20000);
            EXPECT_EQ(std::set<T>(elements.begin(), elements.end()).size(), 84U);
        }
    });
}

TEST_P(RandomGeneratorsTest, startAnywhereAndFillAnyLength)
{
    forEachType([this]<class T>() {
        const std::vector<unsigned> states = someStates(11);
        for (const auto function : {&RandomRow::uniform, &RandomRow::uniformBlocks, &RandomRow::normal}) {
            const auto make = [&](unsigned long nb, unsigned long nbSkipped, eMemoryPlace place) {
                return function == &RandomRow::normal ? made<T>(function, 50.0F, 20.0F, states, nb, nbSkipped, place)
                                                      : made<T>(function, T(3), T(100), states, nb, nbSkipped, place);
            };
            const std::vector<T> whole = make(600, 0, eMemoryPlace::secondLevelCache);
            for (unsigned long start = 0; start < 200; ++start) {
                for (const unsigned long nb : {0UL, 1UL, 15UL, 64UL, 129UL, 333UL}) {
                    const auto first = whole.begin() + static_cast<long>(start);
                    const std::vector<T> part(first, first + static_cast<long>(nb));
                    ASSERT_TRUE(areSame(
                        make(nb, start, start % 2 == 0 ? eMemoryPlace::memory : eMemoryPlace::secondLevelCache), part))
                        << start << ", " << nb;
                }
            }
        }
    });
}

/// The elements of the full range tell the 32 bits of each raw number, and so the states but for their lowest bits,
/// which are found by trying.
TEST_P(RandomGeneratorsTest, statesComeOutOfTheElements)
{
    const unsigned long width = test::nbLanesOf(set());
    constexpr int low = std::numeric_limits<int>::min();
    const unsigned long block = set() == eInstructionSet::eNone ? 1 : 4 * width;
    const auto elements = made<int>(&RandomRow::uniform, low, std::numeric_limits<int>::max(), {}, 8 * block);
    for (unsigned long lane = 0; lane < width; ++lane) {
        std::vector<unsigned> words; // of this lane
        for (unsigned long i = lane; i < elements.size(); i += width) {
            const auto moved = static_cast<unsigned>(elements[i]); // of sets with registers the raw number itself
            words.push_back(set() == eInstructionSet::eNone ? moved ^ 0x80000000U : moved);
        }
        unsigned nbFound = 0;
        for (unsigned rest = 0; rest < 65536; ++rest) {
            const unsigned afterFirst = (words[0] >> 17) * 65536 + rest; // the highest bit never counts
            test::LaneOracle oracle(eInstructionSet::eAVX512, std::vector<unsigned>(16, afterFirst));
            const unsigned second = oracle.bits(lane);
            bool bSame = second == (words[0] >> 2) % 32768 && oracle.bits(lane) % 4 == words[0] % 4;
            for (unsigned long i = 1; bSame && i < words.size(); ++i) {
                bSame = oracle.word(lane) == words[i];
            }
            nbFound += bSame ? 1 : 0;
        }
        EXPECT_EQ(nbFound, 1U) << "lane " << lane;
    }
}

TEST_P(RandomGeneratorsTest, everyNewGeneratorHasNewStates)
{
    std::set<unsigned> seen;
    const unsigned long width = test::nbLanesOf(set());
    for (int i = 0; i < 10000; ++i) {
        unsigned states[16];
        GetParam().table->rows[i % 7].uniformStates({nullptr, nullptr, 0, 0, eMemoryPlace::secondLevelCache, states});
        seen.insert(states, states + width);
    }
    EXPECT_EQ(seen.size(), 10000 * width);
}

INSTANTIATE_TEST_SUITE_P(EverySet, RandomGeneratorsTest, testing::ValuesIn(allSets()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(LinearCongruenceTest, manyStepsAtOnce)
{
    for (unsigned long lane = 0; lane < 16; ++lane) {
        unsigned state = 12345;
        for (unsigned long nb = 0; nb < 1000; ++nb) {
            ASSERT_EQ(repeated(stepOfLane(lane), nb)(12345), state);
            state = stepOfLane(lane)(state);
        }
        EXPECT_EQ(repeated(stepOfLane(lane), 1UL << 32)(77), 77U) << "the whole period";
        EXPECT_NE(repeated(stepOfLane(lane), 1UL << 31)(77), 77U);
    }
}

TEST(UniformScaleTest, floatsStayWithinTheirBounds)
{
    EXPECT_TRUE(rc::check("the largest number gives the upper bound, or just less", [] {
        const auto bound = [] {
            return std::ldexp(static_cast<float>(*rc::gen::inRange<int>(-(1 << 24), 1 << 24)),
                              *rc::gen::inRange<int>(-60, 60));
        };
        const auto [min, max] = std::minmax({bound(), bound()});
        const double scale = uniformScale(min, max);
        const auto largest = static_cast<float>(4294967295.0 * scale + static_cast<double>(min));
        RC_ASSERT(largest <= max);
        const double step = std::ldexp(std::abs(static_cast<double>(min)), -50); // of doubles as large as the bounds
        RC_ASSERT(static_cast<double>(largest) >= static_cast<double>(std::nextafter(max, min)) - step);
    }));
}

} // namespace
} // namespace orlix::simd
