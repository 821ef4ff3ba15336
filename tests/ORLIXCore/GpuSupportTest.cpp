// The switch of GPU support, and the way to what devices are.
#include "ORLIX/ORLIXCore/GpuSupport.h"

#include "ORLIX/ORLIXCore/ComputerInfoPool.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

namespace orlix::core {
namespace {

using orlix::testing::eGpuCall;
using orlix::testing::SoftwareGpuLayer;

const ComputerDescription& localDescription()
{
    return ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription();
}

TEST(GpuSupport, isOffUntilItIsSwitchedOn)
{
    EXPECT_FALSE(isGpuSupportActivated());
    SoftwareGpuLayer layer;
    const hard::GpuLayerScope scope(layer);
    EXPECT_FALSE(isGpuSupportActivated());
    EXPECT_TRUE(setGpuSupportActivated(true));
    EXPECT_TRUE(isGpuSupportActivated());
    EXPECT_TRUE(setGpuSupportActivated(false));
    EXPECT_FALSE(isGpuSupportActivated());
}

TEST(GpuSupport, staysOffWhereThereIsNoDevice)
{
    SoftwareGpuLayer layer;
    layer.failCall(eGpuCall::countDevices, 0, "the driver is too old");
    const hard::GpuLayerScope scope(layer);
    const ProcessingResult<bool> result = setGpuSupportActivated(true);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "GPU support stays off: the driver is too old");
    EXPECT_FALSE(isGpuSupportActivated());
    EXPECT_TRUE(setGpuSupportActivated(false)) << "nothing is missing for that";
}

TEST(GpuSupport, aFailureSwitchesItOff)
{
    SoftwareGpuLayer layer, none(0);
    const hard::GpuLayerScope scope(layer);
    ASSERT_TRUE(setGpuSupportActivated(true));
    const hard::GpuLayerScope without(none);
    EXPECT_FALSE(setGpuSupportActivated(true));
    EXPECT_FALSE(isGpuSupportActivated());
}

TEST(ComputerInfoPool, leadsToProcessorAndDevicesOfThisComputer)
{
    EXPECT_EQ(&localDescription().getProcessorInfo(), &hard::getProcessorInfo());
    SoftwareGpuLayer layer(3);
    const hard::GpuLayerScope scope(layer);
    EXPECT_EQ(&localDescription().getGpuDescription(), &layer.getDescription());
    EXPECT_EQ(localDescription().getGpuDescription().getNbDevices(), 3);
}

} // namespace
} // namespace orlix::core
