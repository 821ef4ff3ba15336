// Packs compute element by element what plain arithmetic does, under every instruction set of this processor.
#include "ORLIXMath/Simd/PackArithmeticTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace orlix::simd {
namespace {

using test::ArithmeticRow;
using test::ArithmeticTable;
using test::ComputeFunction;

struct SetCase
{
    const char* name;
    const ArithmeticTable* table;
    bool bAvailable;
};

std::vector<SetCase> allSets()
{
    __builtin_cpu_init();
    const bool bAvx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                         __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    return {{"plain", &test::g_arithmetic_plain, true},
            {"SSE2", &test::g_arithmetic_sse2, true},
            {"AVX", &test::g_arithmetic_avx, __builtin_cpu_supports("avx") != 0},
            {"AVX2", &test::g_arithmetic_avx2, __builtin_cpu_supports("avx2") != 0},
            {"AVX512", &test::g_arithmetic_avx512, bAvx512}};
}

class PackArithmeticTest : public testing::TestWithParam<SetCase>
{
protected:
    void SetUp() override
    {
        if (!GetParam().bAvailable) {
            GTEST_SKIP() << "this processor has no " << GetParam().name;
        }
    }
};

/// The numbers at the limits of T, then any.
template <class T>
std::vector<T> numbersOf(unsigned long count, unsigned seed)
{
    std::mt19937_64 random(seed);
    std::vector<T> numbers{T(0), T(1), std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max()};
    if constexpr (std::is_same_v<T, float>) {
        numbers.insert(numbers.end(), {-0.0F, std::numeric_limits<float>::infinity(),
                                       std::numeric_limits<float>::quiet_NaN(), 1e-45F});
    } else {
        numbers.push_back(static_cast<T>(-1));
    }
    std::shuffle(numbers.begin(), numbers.end(), random);
    while (numbers.size() < count) {
        if constexpr (std::is_same_v<T, float>) {
            numbers.push_back(static_cast<float>(static_cast<double>(random() >> 11) * 1e-10 - 4e5));
        } else {
            numbers.push_back(static_cast<T>(random()));
        }
    }
    numbers.resize(count);
    return numbers;
}

/// Whole numbers keep the low bits of a result that is computed in 64.
template <class T>
using Wide = std::conditional_t<std::is_same_v<T, float>, float, long>;

float multiply(float x, float y)
{
    return x * y;
}
unsigned long multiply(long x, long y)
{
    return static_cast<unsigned long>(x) * static_cast<unsigned long>(y);
}

template <class T, class TExact>
void expectComputes(ComputeFunction compute, unsigned long nbElements, const TExact& exact, const char* what)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        const std::vector<T> a = numbersOf<T>(nbElements, seed);
        const std::vector<T> b = numbersOf<T>(nbElements, seed + 1000);
        std::vector<T> found(nbElements + 1, T(77));
        compute(a.data(), b.data(), found.data());
        EXPECT_EQ(found.back(), T(77)) << what << ": one too many";
        for (unsigned long i = 0; i < nbElements; ++i) {
            const T expected = static_cast<T>(exact(static_cast<Wide<T>>(a[i]), static_cast<Wide<T>>(b[i])));
            const bool bBothNoNumber = expected != expected && found[i] != found[i];
            EXPECT_TRUE(bBothNoNumber || std::memcmp(&expected, &found[i], sizeof(T)) == 0)
                << what << " of " << +a[i] << " and " << +b[i] << ": " << +found[i] << ", not " << +expected;
        }
    }
}

template <class T>
void expectArithmetic(const ArithmeticRow& row)
{
    if (row.nbElements == 0) {
        return;
    }
    const unsigned long n = row.nbElements;
    expectComputes<T>(
        row.sum, n, [](auto x, auto y) { return x + y; }, "sum");
    expectComputes<T>(
        row.difference, n, [](auto x, auto y) { return x - y; }, "difference");
    expectComputes<T>(
        row.product, n, [](auto x, auto y) { return multiply(x, y); }, "product");
    expectComputes<T>(
        row.minimum, n, [](auto x, auto y) { return x < y ? x : y; }, "minimum");
    expectComputes<T>(
        row.maximum, n, [](auto x, auto y) { return x > y ? x : y; }, "maximum");
    if constexpr (!std::is_same_v<T, float>) {
        expectComputes<T>(
            row.bitAnd, n, [](auto x, auto y) { return x & y; }, "and");
        expectComputes<T>(
            row.bitOr, n, [](auto x, auto y) { return x | y; }, "or");
        expectComputes<T>(
            row.bitXor, n, [](auto x, auto y) { return x ^ y; }, "exclusive or");
        expectComputes<T>(
            row.complement, n, [](auto x, auto) { return -x - 1; }, "complement");
    }
}

TEST_P(PackArithmeticTest, EveryElementIsWhatPlainArithmeticGives)
{
    const ArithmeticRow* const rows = GetParam().table->rows;
    expectArithmetic<signed char>(rows[0]);
    expectArithmetic<unsigned char>(rows[1]);
    expectArithmetic<short>(rows[2]);
    expectArithmetic<unsigned short>(rows[3]);
    expectArithmetic<int>(rows[4]);
    expectArithmetic<unsigned int>(rows[5]);
    expectArithmetic<float>(rows[6]);
    EXPECT_NE(rows[6].nbElements, 0u) << "every set has floats";
}

INSTANTIATE_TEST_SUITE_P(Sets, PackArithmeticTest, testing::ValuesIn(allSets()),
                         [](const auto& set) { return std::string(set.param.name); });

} // namespace
} // namespace orlix::simd
