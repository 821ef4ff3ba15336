// The launchers and what their kernels compute, on devices made of software.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

#include "support/GpuOracle.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util::gpu {
namespace {

using testing::convertedOnDevice;
using testing::eGpuCall;
using testing::interestingElements;
using testing::isSameElement;
using testing::madeBinaryOnDevice;
using testing::SoftwareGpuLayer;
using testing::thresholdedOnDevice;

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
    std::vector<TypeParam> values = interestingElements<TypeParam>();
    values.resize(g_x * g_y, 7);
    {
        const Plans<TypeParam> in(this->m_layer, values, g_nbPlans);
        const Plans<TypeParam> out(this->m_layer, std::vector<TypeParam>(g_x * g_y), g_nbPlans);
        this->m_layer.forgetCalls();
        succeed(CopyImg_knlLauncher<TypeParam>(&g_info, in.constTable(), out.table()));
        EXPECT_EQ(this->m_layer.getCalls(),
                  (std::vector{eGpuCall::launch, eGpuCall::synchronize, eGpuCall::takeLastError}));
        for (std::size_t p = 0; p < g_nbPlans; ++p) {
            EXPECT_TRUE(std::ranges::equal(out.download(p), in.host(p), isSameElement<TypeParam>)) << p;
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
    const std::vector<TypeParam> values = interestingElements<TypeParam>();
    const LauncherInfo info = this->lineOf(values.size());
    const Plans<TypeParam> in(this->m_layer, values, 1);
    const Plans<unsigned char> out(this->m_layer, std::vector<unsigned char>(values.size(), 9), 1);
    succeed(BasicThresholdImg_knlLauncher<TypeParam>(&info, in.constTable(), 1, 127, out.table()));
    const std::vector<unsigned char> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(result[i], thresholdedOnDevice<TypeParam>(values[i], 1, 127)) << +values[i];
    }
}

TYPED_TEST(GpuLaunchers, binaryOutputIsTrueForAllButZero)
{
    const std::vector<TypeParam> values = interestingElements<TypeParam>();
    const LauncherInfo info = this->lineOf(values.size());
    const Plans<TypeParam> in(this->m_layer, values, 1);
    const Plans<unsigned char> out(this->m_layer, std::vector<unsigned char>(values.size(), 9), 1);
    succeed((ConvertImg_knlLauncher<TypeParam, unsigned char>(&info, true, in.constTable(), out.table())));
    const std::vector<unsigned char> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(result[i], madeBinaryOnDevice(values[i])) << +values[i];
    }
}

template <class TIn, class TOut>
void checkConversion(SoftwareGpuLayer& layer, const LauncherInfo& info)
{
    const std::vector<TIn> values = interestingElements<TIn>();
    const Plans<TIn> in(layer, values, 1);
    const Plans<TOut> out(layer, std::vector<TOut>(values.size(), 9), 1);
    succeed((ConvertImg_knlLauncher<TIn, TOut>(&info, false, in.constTable(), out.table())));
    const std::vector<TOut> result = out.download(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const TOut expected = convertedOnDevice<TOut>(values[i]);
        ASSERT_TRUE(isSameElement(result[i], expected))
            << layer.getLastLaunch().kernel << ": " << +values[i] << " became " << +result[i] << ", not " << +expected;
    }
    EXPECT_TRUE(layer.isSurroundingIntact());
}

TYPED_TEST(GpuLaunchers, conversionsFollowTheDevicesTable)
{
    const LauncherInfo info = this->lineOf(interestingElements<TypeParam>().size());
    checkConversion<TypeParam, signed char>(this->m_layer, info);
    checkConversion<TypeParam, unsigned char>(this->m_layer, info);
    checkConversion<TypeParam, short>(this->m_layer, info);
    checkConversion<TypeParam, unsigned short>(this->m_layer, info);
    checkConversion<TypeParam, int>(this->m_layer, info);
    checkConversion<TypeParam, unsigned int>(this->m_layer, info);
    checkConversion<TypeParam, float>(this->m_layer, info);
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
