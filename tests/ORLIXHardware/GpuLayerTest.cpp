// Which layer the process has, and that the one made of software does what tests take from it.
#include "ORLIX/ORLIXHardware/GpuLayer.h"

#include "ORLIX/ORLIXHardware/GpuDescription.h"
#include "ORLIX/ORLIXHardware/NoGpuLayer.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlix::hard {
namespace {

using orlix::testing::eGpuCall;
using orlix::testing::SoftwareDeviceMemory;
using orlix::testing::SoftwareGpuLayer;

/// For calls that have to work.
void succeed(const gpu::CudaResult& result)
{
    EXPECT_TRUE(result.bSuccess) << result.message;
    EXPECT_STREQ(result.message, "");
}

void fail(const gpu::CudaResult& result, const char* text)
{
    EXPECT_FALSE(result.bSuccess);
    EXPECT_STREQ(result.message, text);
}

TEST(GpuLayer, withoutCudaCodeEveryCallSaysSo)
{
    constexpr const char* text = "this ORLIX has no CUDA code: install one that was built with a CUDA toolkit";
    GpuLayer& layer = details::accessNoGpuLayer();
    int nbDevices = 0;
    GpuProperties properties;
    void* memory = nullptr;
    fail(layer.countDevices(nbDevices), text);
    fail(layer.describe(0, properties), text);
    fail(layer.selectDevice(0), text);
    fail(layer.allocate(16, memory), text);
    fail(layer.free(memory), text);
    fail(layer.upload(memory, memory, 0), text);
    fail(layer.download(memory, memory, 0), text);
    fail(layer.copy(memory, memory, 0), text);
    layer.launch({});
    layer.synchronize();
    const int error = layer.takeLastError();
    ASSERT_NE(error, 0) << "nothing was launched";
    EXPECT_STREQ(layer.getErrorText(error), text);
    EXPECT_EQ(layer.getDescription().getNbDevices(), 0);
    EXPECT_EQ(layer.getDescription().getMissingReason(), text);
}

TEST(GpuLayer, isThatOfTheInnermostScope)
{
    GpuLayer& outside = accessGpuLayer();
    SoftwareGpuLayer outer, inner;
    {
        const GpuLayerScope outerScope(outer);
        EXPECT_EQ(&accessGpuLayer(), &outer);
        {
            const GpuLayerScope innerScope(inner);
            EXPECT_EQ(&accessGpuLayer(), &inner);
            const GpuLayerScope again(outer);
            EXPECT_EQ(&accessGpuLayer(), &outer);
        }
        EXPECT_EQ(&accessGpuLayer(), &outer);
    }
    EXPECT_EQ(&accessGpuLayer(), &outside);
}

TEST(GpuLayer, withoutAScopeIsCudasWhereThereIsCudaCode)
{
    EXPECT_EQ(&accessGpuLayer() == &details::accessNoGpuLayer(), !ORLIX_HAS_CUDA);
    EXPECT_EQ(&accessGpuLayer(), &accessGpuLayer());
}

TEST(GpuLayer, scopesMayEndInAnyOrder)
{
    SoftwareGpuLayer first, second;
    auto firstScope = std::make_unique<GpuLayerScope>(first);
    const GpuLayerScope secondScope(second);
    firstScope.reset();
    EXPECT_EQ(&accessGpuLayer(), &second);
}

TEST(SoftwareGpuLayer, movesBytesToAndFro)
{
    SoftwareGpuLayer layer;
    const std::vector<unsigned char> sent = {1, 2, 3, 4, 5};
    std::vector<unsigned char> received(5);
    void* first = nullptr;
    void* second = nullptr;
    succeed(layer.allocate(5, first));
    succeed(layer.allocate(7, second));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % 256, 0U);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(second) % 256, 0U);
    succeed(layer.download(received.data(), first, 5));
    EXPECT_EQ(received, std::vector<unsigned char>(5, SoftwareDeviceMemory::g_pattern));
    succeed(layer.upload(first, sent.data(), 5));
    succeed(layer.copy(static_cast<unsigned char*>(second) + 2, first, 5));
    succeed(layer.download(received.data(), static_cast<unsigned char*>(second) + 2, 5));
    EXPECT_EQ(received, sent);
    EXPECT_EQ(layer.getNbAllocations(), 2U);
    EXPECT_TRUE(layer.isSurroundingIntact());
    succeed(layer.free(first));
    succeed(layer.free(second));
    succeed(layer.free(nullptr));
    EXPECT_EQ(layer.getNbAllocations(), 0U);
    using enum eGpuCall;
    EXPECT_EQ(layer.getCalls(), (std::vector{allocate, allocate, download, upload, copy, download, free, free, free}));
}

TEST(SoftwareGpuLayer, refusesMemoryThatIsNotItsOwn)
{
    SoftwareGpuLayer layer;
    unsigned char host[8] = {};
    void* memory = nullptr;
    succeed(layer.allocate(8, memory));
    fail(layer.upload(memory, host, 9), "invalid argument");
    fail(layer.download(host, host, 1), "invalid argument");
    fail(layer.copy(memory, host, 1), "invalid argument");
    fail(layer.copy(host, memory, 1), "invalid argument");
    fail(layer.free(host), "invalid argument");
    succeed(layer.free(memory));
    fail(layer.free(memory), "invalid argument");
}

TEST(SoftwareGpuLayerDeathTest, endsAProgramThatTouchesDeviceMemoryByItself)
{
    SoftwareGpuLayer layer;
    void* memory = nullptr;
    succeed(layer.allocate(8, memory));
    EXPECT_DEATH(*static_cast<volatile unsigned char*>(memory) = 1, "");
    succeed(layer.free(memory));
}

struct Mark
{
    unsigned char* marks;
    unsigned int lineLength;
};

/// Counts the visits of each place of a plane, whose layers lie behind one another.
void markThread(const gpu::ThreadPlace& place, void* const* arguments)
{
    const Mark& mark = *static_cast<const Mark*>(arguments[0]);
    const auto along = [](unsigned index, unsigned size, unsigned thread) { return index * size + thread; };
    const unsigned x = along(place.blockIndex.x, place.blockSize.x, place.threadIndex.x);
    const unsigned y = along(place.blockIndex.y, place.blockSize.y, place.threadIndex.y);
    ++mark.marks[(place.blockIndex.z * 6 + y) * mark.lineLength + x];
}

void writeBehind(const gpu::ThreadPlace&, void* const* arguments)
{
    static_cast<Mark*>(arguments[0])->marks[-1] = 0;
}

class SoftwareLaunch : public ::testing::Test
{
protected:
    SoftwareLaunch()
    {
        succeed(m_layer.allocate(sizeof m_marks, m_memory));
        succeed(m_layer.upload(m_memory, m_marks, sizeof m_marks));
        m_mark = {static_cast<unsigned char*>(m_memory), 8};
    }
    ~SoftwareLaunch() override { succeed(m_layer.free(m_memory)); }

    GpuLaunch launchOf(const gpu::Extent3d& grid, const gpu::Extent3d& block) const
    {
        return {grid, block, nullptr, m_arguments, &markThread};
    }

    SoftwareGpuLayer m_layer{1, 256};
    unsigned char m_marks[2 * 6 * 8] = {};
    void* m_memory = nullptr;
    Mark m_mark{};
    void* m_arguments[1] = {&m_mark};
};

TEST_F(SoftwareLaunch, runsEachThreadOnce)
{
    m_layer.launch(launchOf({2, 3, 2}, {4, 2, 1}));
    m_layer.synchronize();
    EXPECT_EQ(m_layer.takeLastError(), 0);
    succeed(m_layer.download(m_marks, m_memory, sizeof m_marks));
    for (const unsigned char mark : m_marks) {
        EXPECT_EQ(mark, 1);
    }
    EXPECT_TRUE(m_layer.isSurroundingIntact());
}

TEST_F(SoftwareLaunch, refusesWhatADeviceRefuses)
{
    const gpu::Extent3d one = {1, 1, 1};
    const std::pair<gpu::Extent3d, gpu::Extent3d> refused[] = {
        {{0, 1, 1}, one}, {{1, 0, 1}, one},  {{1, 1, 0}, one}, {{1, 65536, 1}, one}, {{1, 1, 65536}, one},
        {one, {0, 1, 1}}, {one, {1, 1, 65}}, {one, {1, 1, 0}}, {one, {257, 1, 1}},   {one, {16, 17, 1}}};
    for (const auto& [grid, block] : refused) {
        m_layer.launch(launchOf(grid, block));
        m_layer.synchronize();
        const int error = m_layer.takeLastError();
        ASSERT_NE(error, 0) << grid.x << " " << grid.y << " " << grid.z;
        EXPECT_STREQ(m_layer.getErrorText(error), "invalid configuration argument");
        EXPECT_EQ(m_layer.takeLastError(), 0) << "told twice";
    }
}

TEST_F(SoftwareLaunch, writesBesideMemoryAreSeen)
{
    GpuLaunch launch = launchOf({1, 1, 1}, {1, 1, 1});
    launch.runThread = &writeBehind;
    m_layer.launch(launch);
    EXPECT_FALSE(m_layer.isSurroundingIntact());
}

TEST(SoftwareGpuLayer, failsTheCallThatItIsToldTo)
{
    SoftwareGpuLayer layer;
    void* memory = nullptr;
    layer.failCall(eGpuCall::allocate, 1, "out of memory");
    succeed(layer.allocate(1, memory));
    void* none = nullptr;
    fail(layer.allocate(1, none), "out of memory");
    EXPECT_EQ(none, nullptr);
    succeed(layer.free(memory));

    layer.failCall(eGpuCall::synchronize, 0, "unspecified launch failure");
    layer.synchronize();
    const int error = layer.takeLastError();
    ASSERT_NE(error, 0);
    EXPECT_STREQ(layer.getErrorText(error), "unspecified launch failure");
    layer.synchronize();
    EXPECT_EQ(layer.takeLastError(), 0);
}

TEST(SoftwareGpuLayer, theSelectedDeviceIsTheThreadsOwn)
{
    SoftwareGpuLayer layer(2);
    succeed(layer.selectDevice(1));
    fail(layer.selectDevice(2), "invalid device ordinal");
    EXPECT_EQ(layer.getSelectedDevice(), 1);
    std::thread([&] { EXPECT_EQ(layer.getSelectedDevice(), 0); }).join();
}

} // namespace
} // namespace orlix::hard
