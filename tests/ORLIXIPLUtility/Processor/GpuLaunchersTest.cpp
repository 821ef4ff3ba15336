// The launchers and what their kernels compute, on devices made of software.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <limits>

namespace orlix::imaproc::util::gpu {
namespace {

using testing::eGpuCall;
using testing::SoftwareGpuLayer;

void succeed(const CudaResult& result)
{
    EXPECT_TRUE(result.bSuccess) << result.message;
}

/// Plans of `T` on the device, each an allocation of its own, and their table.
template <class T>
class Plans
{
public:
    Plans(SoftwareGpuLayer& layer, const std::vector<T>& plan, std::size_t nbPlans)
        : m_layer(layer), m_size(plan.size())
    {
        for (std::size_t p = 0; p < nbPlans; ++p) {
            void* memory = nullptr;
            succeed(layer.allocate(m_size * sizeof(T), memory));
            std::vector<T> shifted = plan; // so that no two plans are alike
            std::rotate(shifted.begin(), shifted.begin() + static_cast<long>(p % m_size), shifted.end());
            succeed(layer.upload(memory, shifted.data(), m_size * sizeof(T)));
            m_plans.push_back(static_cast<T*>(memory));
            m_host.push_back(shifted);
        }
        void* table = nullptr;
        succeed(layer.allocate(nbPlans * sizeof(T*), table));
        succeed(layer.upload(table, m_plans.data(), nbPlans * sizeof(T*)));
        m_table = static_cast<T**>(table);
    }
    Plans(const Plans&) = delete;
    Plans& operator=(const Plans&) = delete;
    ~Plans()
    {
        for (T* plan : m_plans) {
            succeed(m_layer.free(plan));
        }
        succeed(m_layer.free(m_table));
    }

    T** table() const { return m_table; }
    const T** constTable() const { return const_cast<const T**>(m_table); }
    /// As they were uploaded.
    const std::vector<T>& host(std::size_t p) const { return m_host[p]; }
    /// As they are on the device.
    std::vector<T> download(std::size_t p) const
    {
        std::vector<T> plan(m_size);
        succeed(m_layer.download(plan.data(), m_plans[p], m_size * sizeof(T)));
        return plan;
    }

private:
    SoftwareGpuLayer& m_layer;
    std::size_t m_size;
    std::vector<T*> m_plans;
    std::vector<std::vector<T>> m_host;
    T** m_table = nullptr;
};

template <class T>
bool isSame(const T& a, const T& b)
{
    if constexpr (std::is_same_v<T, float>) {
        return std::bit_cast<unsigned>(a) == std::bit_cast<unsigned>(b);
    } else {
        return a == b;
    }
}

constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float g_infinity = std::numeric_limits<float>::infinity();

/// All values of types up to 16 bits; of the others, those around each limit that there is.
template <class T>
std::vector<T> interestingValues()
{
    std::vector<T> values;
    if constexpr (std::is_same_v<T, float>) {
        for (const double limit : {0.0, 0.5, 1.0, 3.5, 127.0, 128.0, 255.0, 300.7, 32767.0, 32768.0, 65535.0, 65536.0,
                                   2147483648.0, 4294967296.0, 1e20, 3.40282e38, static_cast<double>(FLT_MAX)}) {
            const auto value = static_cast<float>(limit);
            for (const float near : {std::nextafter(value, -g_infinity), value, std::nextafter(value, g_infinity)}) {
                values.insert(values.end(), {near, -near});
            }
        }
        values.insert(values.end(), {g_nan, -g_nan, g_infinity, -g_infinity, FLT_MIN, FLT_TRUE_MIN, 0.99F, -0.99F});
    } else if constexpr (sizeof(T) <= 2) {
        for (long value = std::numeric_limits<T>::min(); value <= std::numeric_limits<T>::max(); ++value) {
            values.push_back(static_cast<T>(value));
        }
    } else {
        for (const long limit :
             {0L, 128L, 256L, 32768L, 40000L, 65536L, 16777216L, 2147483648L, 4294934528L, 4294967168L, 4294967296L}) {
            for (long value = limit - 3; value <= limit + 3; ++value) {
                values.insert(values.end(), {static_cast<T>(value), static_cast<T>(-value)});
            }
        }
    }
    return values;
}

template <class T>
class GpuLaunchers : public ::testing::Test
{
protected:
    /// One plan that is a line, and little more than a block.
    LauncherInfo lineOf(std::size_t size) const { return {4, 2048, 1024, 16, 0, 0, size, 1, 1, 1, 1}; }

    SoftwareGpuLayer m_layer;
    const hard::GpuLayerScope m_scope{m_layer};
};

using Types = ::testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;
TYPED_TEST_SUITE(GpuLaunchers, Types);

constexpr unsigned long g_x = 35, g_y = 18, g_z = 2, g_c = 3, g_t = 2; // no multiples of a block
constexpr unsigned long g_nbPlans = g_z * g_c * g_t;
constexpr LauncherInfo g_info = {4, 2048, 1024, 0xabcd0000 + 16, 0, 0, g_x, g_y, g_z, g_c, g_t};

TYPED_TEST(GpuLaunchers, copyIsBitForBitInEachPlan)
{
    std::vector<TypeParam> values = interestingValues<TypeParam>();
    values.resize(g_x * g_y, 7);
    {
        const Plans<TypeParam> in(this->m_layer, values, g_nbPlans);
        const Plans<TypeParam> out(this->m_layer, std::vector<TypeParam>(g_x * g_y), g_nbPlans);
        this->m_layer.forgetCalls();
        succeed(CopyImg_knlLauncher<TypeParam>(&g_info, in.constTable(), out.table()));
        EXPECT_EQ(this->m_layer.getCalls(),
                  (std::vector{eGpuCall::launch, eGpuCall::synchronize, eGpuCall::takeLastError}));
        for (std::size_t p = 0; p < g_nbPlans; ++p) {
            EXPECT_TRUE(std::ranges::equal(out.download(p), in.host(p), isSame<TypeParam>)) << p;
        }
        EXPECT_TRUE(this->m_layer.isSurroundingIntact());
    }
    EXPECT_EQ(this->m_layer.getNbAllocations(), 0U);
}

TYPED_TEST(GpuLaunchers, eraseFillsEachPlan)
{
    const Plans<TypeParam> out(this->m_layer, std::vector<TypeParam>(g_x * g_y, 3), g_nbPlans);
    const auto value =
        static_cast<TypeParam>(-5.5F < static_cast<float>(std::numeric_limits<TypeParam>::lowest()) ? 5 : -5);
    succeed(EraseImg_knlLauncher<TypeParam>(&g_info, value, out.table()));
    for (std::size_t p = 0; p < g_nbPlans; ++p) {
        EXPECT_EQ(out.download(p), std::vector<TypeParam>(g_x * g_y, value)) << p;
    }
    EXPECT_TRUE(this->m_layer.isSurroundingIntact());
}

TYPED_TEST(GpuLaunchers, thresholdTakesBothBounds)
{
    const std::vector<TypeParam> values = interestingValues<TypeParam>();
    const LauncherInfo info = this->lineOf(values.size());
    const Plans<TypeParam> in(this->m_layer, values, 1);
    const Plans<unsigned char> out(this->m_layer, std::vector<unsigned char>(values.size(), 9), 1);
    succeed(BasicThresholdImg_knlLauncher<TypeParam>(&info, in.constTable(), 1, 127, out.table()));
    const std::vector<unsigned char> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = static_cast<double>(values[i]);
        EXPECT_EQ(result[i], value >= 1 && value <= 127 ? 1 : 0) << value;
    }
}

TYPED_TEST(GpuLaunchers, binaryOutputIsTrueForAllButZero)
{
    const std::vector<TypeParam> values = interestingValues<TypeParam>();
    const LauncherInfo info = this->lineOf(values.size());
    const Plans<TypeParam> in(this->m_layer, values, 1);
    const Plans<unsigned char> out(this->m_layer, std::vector<unsigned char>(values.size(), 9), 1);
    succeed((ConvertImg_knlLauncher<TypeParam, unsigned char>(&info, true, in.constTable(), out.table())));
    const std::vector<unsigned char> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(result[i], static_cast<double>(values[i]) == 0 ? 0 : 1) << static_cast<double>(values[i]);
    }
}

/// How an integer becomes an element of another type: limits, or a carried bit pattern, or one of two values.
struct IntegerRule
{
    enum { eCarried, eClamped, eTwoValues } kind = eCarried;
    long low = 0;
    long high = 0;
    long above = 0; ///< gives `high`, else `low`
};

constexpr IntegerRule g_carried = {};
constexpr IntegerRule clamped(long low, long high)
{
    return {IntegerRule::eClamped, low, high, 0};
}
constexpr IntegerRule twoValues(long low, long high, long above)
{
    return {IntegerRule::eTwoValues, low, high, above};
}

// Rows and columns in the order of `Types`.
constexpr IntegerRule g_integerRules[6][7] = {
    {g_carried, clamped(0, 127), g_carried, clamped(0, 127), g_carried, g_carried, g_carried},
    {clamped(0, 127), g_carried, g_carried, g_carried, g_carried, g_carried, g_carried},
    {clamped(-128, 127), clamped(0, 255), g_carried, clamped(0, 32767), g_carried, g_carried, g_carried},
    {clamped(0, 127), clamped(0, 255), clamped(0, 32767), g_carried, g_carried, g_carried, g_carried},
    {clamped(-128, 127), clamped(0, 255), clamped(-32768, 32767), clamped(0, 65535), g_carried, g_carried, g_carried},
    {twoValues(-128, 127, 4294967168), clamped(0, 255), twoValues(-32768, 32767, 4294934528), clamped(0, 65535),
     twoValues(-2147483648, 2147483647, 2147483648), g_carried, g_carried}};

/// At or below the first limit, above the second, else toward zero.
struct FloatRule
{
    double low;
    double lowGives;
    double high;
    double highGives;
};

constexpr FloatRule g_floatRules[6] = {{-128, -128, 127, 127},
                                       {0, 0, 255, 255},
                                       {-32768, -32768, 32767, 32767},
                                       {0, 0, 65535, 65535},
                                       {-2147483648.0, -2147483648.0, 2147483648.0, 2147483647.0},
                                       {0, 0, 4294967296.0, 4294967295.0}};

template <class TOut>
TOut expectedOf(float value, std::size_t column)
{
    if constexpr (std::is_same_v<TOut, float>) {
        const auto low = std::bit_cast<float>(0xFF7FFFEEU);
        return value <= low ? low : value > FLT_MAX ? FLT_MAX : value;
    } else {
        const FloatRule& rule = g_floatRules[column];
        if (std::isnan(value)) {
            return 0;
        }
        const double given = value <= rule.low   ? rule.lowGives
                             : value > rule.high ? rule.highGives
                                                 : std::min(std::trunc(static_cast<double>(value)), rule.highGives);
        return static_cast<TOut>(static_cast<long>(given));
    }
}

template <class TOut, class TIn>
TOut expectedOf(TIn value, std::size_t row, std::size_t column)
{
    const IntegerRule& rule = g_integerRules[row][column];
    const long wide = value;
    switch (rule.kind) {
    case IntegerRule::eClamped: return static_cast<TOut>(std::min(std::max(wide, rule.low), rule.high));
    case IntegerRule::eTwoValues: return static_cast<TOut>(wide > rule.above ? rule.high : rule.low);
    case IntegerRule::eCarried: break;
    }
    return static_cast<TOut>(wide);
}

constexpr std::size_t g_floatRow = 6;

template <class TIn, class TOut>
void checkConversion(SoftwareGpuLayer& layer, const LauncherInfo& info, std::size_t row, std::size_t column)
{
    const std::vector<TIn> values = interestingValues<TIn>();
    const Plans<TIn> in(layer, values, 1);
    const Plans<TOut> out(layer, std::vector<TOut>(values.size(), 9), 1);
    succeed((ConvertImg_knlLauncher<TIn, TOut>(&info, false, in.constTable(), out.table())));
    const std::vector<TOut> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        TOut expected{};
        if constexpr (std::is_same_v<TIn, float>) {
            expected = expectedOf<TOut>(values[i], column);
        } else {
            expected = expectedOf<TOut>(values[i], row, column);
        }
        ASSERT_TRUE(isSame(result[i], expected))
            << row << " to " << column << ": " << +values[i] << " became " << +result[i] << ", not " << +expected;
    }
    EXPECT_TRUE(layer.isSurroundingIntact());
}

template <class TIn>
constexpr std::size_t rowOf()
{
    if constexpr (std::is_same_v<TIn, float>) {
        return g_floatRow;
    } else {
        return (sizeof(TIn) == 1 ? 0 : sizeof(TIn) == 2 ? 2 : 4) + (std::is_unsigned_v<TIn> ? 1 : 0);
    }
}

TYPED_TEST(GpuLaunchers, conversionsFollowTheDevicesTable)
{
    const LauncherInfo info = this->lineOf(interestingValues<TypeParam>().size());
    constexpr std::size_t row = rowOf<TypeParam>();
    checkConversion<TypeParam, signed char>(this->m_layer, info, row, 0);
    checkConversion<TypeParam, unsigned char>(this->m_layer, info, row, 1);
    checkConversion<TypeParam, short>(this->m_layer, info, row, 2);
    checkConversion<TypeParam, unsigned short>(this->m_layer, info, row, 3);
    checkConversion<TypeParam, int>(this->m_layer, info, row, 4);
    checkConversion<TypeParam, unsigned int>(this->m_layer, info, row, 5);
    checkConversion<TypeParam, float>(this->m_layer, info, row, 6);
    EXPECT_EQ(this->m_layer.getNbAllocations(), 0U);
}

class GpuLaunch : public GpuLaunchers<short>
{
protected:
    CudaResult erase(const LauncherInfo& info, short** table = nullptr)
    {
        m_layer.forgetCalls();
        return EraseImg_knlLauncher<short>(&info, 1, table);
    }
    void expectRefused(const LauncherInfo& info)
    {
        const CudaResult result = erase(info);
        EXPECT_FALSE(result.bSuccess);
        EXPECT_STREQ(result.message, "invalid configuration argument");
    }
    LauncherInfo sized(unsigned long x, unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
    {
        return {4, 2048, 1024, 16, 0, 0, x, y, z, c, t};
    }
};

TEST_F(GpuLaunch, gridAndBlockFollowFromSizesAndTheLow16BitsOfTheSide)
{
    const Plans<short> out(m_layer, std::vector<short>(g_x * g_y), g_nbPlans);
    succeed(erase(g_info, out.table()));
    const hard::GpuLaunch& launch = m_layer.getLastLaunch();
    EXPECT_EQ(launch.grid.x, 3U);
    EXPECT_EQ(launch.grid.y, 2U);
    EXPECT_EQ(launch.grid.z, 12U);
    EXPECT_EQ(launch.block.x, 16U);
    EXPECT_EQ(launch.block.y, 16U);
    EXPECT_EQ(launch.block.z, 1U);
}

TEST_F(GpuLaunch, namesTheKernel)
{
    const LauncherInfo none = sized(0, 0, 1, 1, 1);
    EXPECT_FALSE(erase(none).bSuccess);
    EXPECT_STREQ(m_layer.getLastLaunch().kernel, "EraseImg_knl<short>");
    EXPECT_FALSE(CopyImg_knlLauncher<unsigned int>(&none, nullptr, nullptr).bSuccess);
    EXPECT_STREQ(m_layer.getLastLaunch().kernel, "CopyImg_knl<unsigned int>");
    EXPECT_FALSE(BasicThresholdImg_knlLauncher<signed char>(&none, nullptr, 0, 1, nullptr).bSuccess);
    EXPECT_STREQ(m_layer.getLastLaunch().kernel, "BasicThresholdImg_knl<signed char>");
    EXPECT_FALSE((ConvertImg_knlLauncher<unsigned short, float>(&none, false, nullptr, nullptr).bSuccess));
    EXPECT_STREQ(m_layer.getLastLaunch().kernel, "ConvertImg_knl<unsigned short, float>");
}

TEST_F(GpuLaunch, sizesBeyondTheGridAreRefused)
{
    expectRefused(sized(1, 1, 256, 256, 1));
    expectRefused(sized(1, 1, 65536, 65536, 1));
    expectRefused(sized(1, 1, 641, 6700417, 1));           // 2^32 + 1 plans, 1 in 32 bits
    expectRefused(sized(1, 1, 274177, 67280421310721, 1)); // 2^64 + 1 plans, 1 in 64 bits
    expectRefused(sized(1, 1, 274177, 1, 67280421310721));
    expectRefused(sized(1, 16 * 65536, 1, 1, 1));
    expectRefused(sized((1UL << 36) + 16, 1, 1, 1, 1)); // 2^32 + 1 blocks, 1 in 32 bits
    expectRefused(sized(0, 1, 1, 1, 1));
}

TEST_F(GpuLaunch, failuresComeBackWithTheirTextAfterTheWait)
{
    const Plans<short> out(m_layer, std::vector<short>(g_x * g_y), g_nbPlans);
    for (const eGpuCall call : {eGpuCall::launch, eGpuCall::synchronize, eGpuCall::takeLastError}) {
        m_layer.failCall(call, 0, "unspecified launch failure");
        const CudaResult failed = erase(g_info, out.table());
        EXPECT_FALSE(failed.bSuccess);
        EXPECT_STREQ(failed.message, "unspecified launch failure");
        EXPECT_EQ(m_layer.getCalls(), (std::vector{eGpuCall::launch, eGpuCall::synchronize, eGpuCall::takeLastError}));
        const CudaResult next = erase(g_info, out.table());
        EXPECT_TRUE(next.bSuccess) << "the failure is told once";
        EXPECT_STREQ(next.message, "");
    }
}

} // namespace
} // namespace orlix::imaproc::util::gpu
