// orlix info --devices.
#include "DescribeDevices.h"

#include "orlix/support/JsonDocument.h"
#include "orlix/support/Program.h"
#include "support/SoftwareGpuLayer.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orlix::test {
namespace {

using testing::eGpuCall;
using testing::SoftwareGpuLayer;

std::string printed(SoftwareGpuLayer& layer)
{
    std::ostringstream out;
    cli::printDevices(out, layer.getDescription());
    return out.str();
}

JsonDocument written(SoftwareGpuLayer& layer)
{
    std::ostringstream out;
    cli::JsonWriter json(out);
    cli::writeDevices(json, layer.getDescription());
    return parseJson(out.str());
}

TEST(DevicesTest, TellsEachDevice)
{
    SoftwareGpuLayer layer(2);
    EXPECT_EQ(printed(layer), "CUDA device 0  software 0, compute capability 9.0, 4 multiprocessors, 1024 MiB\n"
                              "CUDA device 1  software 1, compute capability 9.0, 4 multiprocessors, 1024 MiB\n");
    const JsonDocument json = written(layer);
    ASSERT_EQ(json["devices"].elements.size(), 2U);
    const JsonDocument& device = json["devices"][1];
    EXPECT_EQ(device["index"].number, 1);
    EXPECT_EQ(device["name"].text, "software 1");
    EXPECT_EQ(device["computeCapability"].text, "9.0");
    EXPECT_EQ(device["multiProcessors"].number, 4);
    EXPECT_EQ(device["maxThreadsPerMultiProcessor"].number, 2048);
    EXPECT_EQ(device["maxThreadsPerBlock"].number, 1024);
    EXPECT_EQ(device["memoryBytes"].number, 1073741824);
    EXPECT_TRUE(json["missing"].isNull());
}

TEST(DevicesTest, TellsWhyThereIsNoneOrNoMore)
{
    SoftwareGpuLayer none;
    none.failCall(eGpuCall::countDevices, 0, "the driver is too old");
    EXPECT_EQ(printed(none), "no CUDA device: the driver is too old\n");
    EXPECT_EQ(written(none)["devices"].elements.size(), 0U);
    EXPECT_EQ(written(none)["missing"].text, "the driver is too old");

    SoftwareGpuLayer one(2);
    one.failCall(eGpuCall::describe, 1, "device lost");
    EXPECT_NE(printed(one).find("\nno further CUDA device: device lost\n"), std::string::npos);
}

TEST(DevicesTest, TheProgramSucceedsWithDevicesAndWithout)
{
    const ProgramResult result = runOrlix({"info", "--devices"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("CUDA device"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find("has no CUDA code") == std::string::npos, ORLIX_HAS_CUDA) << result.out;
    const ProgramResult json = runOrlix({"info", "--devices", "--json"});
    EXPECT_EQ(json.exitCode, 0);
    const JsonDocument devices = parseJson(json.out);
    EXPECT_EQ(devices["missing"].isNull(), !devices["devices"].elements.empty());
}

} // namespace
} // namespace orlix::test
