// What is told of devices, and what of those that can't be told of.
#include "ORLIX/ORLIXHardware/GpuDescription.h"

#include "ORLIX/ORLIXHardware/ORLIXHardwareException.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::hard {
namespace {

using orlix::testing::eGpuCall;
using orlix::testing::SoftwareGpuLayer;

TEST(GpuDescription, tellsWhatTheLayerTells)
{
    SoftwareGpuLayer layer(2);
    const GpuDescription description(layer);
    ASSERT_EQ(description.getNbDevices(), 2);
    EXPECT_EQ(description.getMissingReason(), "");
    EXPECT_EQ(description.getProperties(1).name, "software 1");
    EXPECT_EQ(description.getProperties(0).memoryBytes, 1UL << 30);
    EXPECT_EQ(description.getNbMultiProcessors(1), 4U);
    EXPECT_EQ(description.getMaxThreadsPerMultiProcessor(1), 2048U);
    EXPECT_EQ(description.getMaxThreadsPerBlock(1), 1024U);
}

TEST(GpuDescription, blocksHaveTheLargestSideThatTheyMay)
{
    const std::pair<unsigned, unsigned> sides[] = {{2048, 32}, {1024, 32}, {1023, 16}, {256, 16},
                                                   {255, 8},   {3, 1},     {1, 1},     {0, 1}};
    for (const auto& [maxThreads, side] : sides) {
        SoftwareGpuLayer layer(1, maxThreads);
        EXPECT_EQ(GpuDescription(layer).getBlockSize2d(0), side) << maxThreads;
    }
}

TEST(GpuDescription, noDeviceHasAReason)
{
    SoftwareGpuLayer none(0);
    const GpuDescription description(none);
    EXPECT_EQ(description.getNbDevices(), 0);
    EXPECT_NE(description.getMissingReason().find("knows no device"), std::string::npos);

    SoftwareGpuLayer broken(2);
    broken.failCall(eGpuCall::countDevices, 0, "the driver is too old");
    EXPECT_EQ(GpuDescription(broken).getMissingReason(), "the driver is too old");
}

TEST(GpuDescription, devicesFromTheFirstThatCantBeDescribedOnAreLeftOut)
{
    SoftwareGpuLayer layer(3);
    layer.failCall(eGpuCall::describe, 1, "device lost");
    const GpuDescription description(layer);
    EXPECT_EQ(description.getNbDevices(), 1);
    EXPECT_EQ(description.getMissingReason(), "device lost");
}

TEST(GpuDescription, aDeviceThatIsNotThereIsMisuse)
{
    SoftwareGpuLayer layer(2);
    const GpuDescription description(layer);
    for (const int device : {-1, 2}) {
        try {
            static_cast<void>(description.getBlockSize2d(device));
            FAIL() << device;
        } catch (const ORLIXHardwareException& error) {
            EXPECT_EQ(std::string(error.what()),
                      "There is no CUDA device " + std::to_string(device) + ": they count from 0, and there are 2");
        }
    }
}

TEST(GpuDescription, aLayerIsAskedOnce)
{
    SoftwareGpuLayer layer(2);
    EXPECT_EQ(&layer.getDescription(), &layer.getDescription());
    EXPECT_EQ(layer.countCalls(eGpuCall::countDevices), 1U);
    EXPECT_EQ(layer.countCalls(eGpuCall::describe), 2U);
}

} // namespace
} // namespace orlix::hard
