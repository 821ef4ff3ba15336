// What is told of the devices of this computer.
#include "DescribeDevices.h"

#include "PlainText.h"

#include <string>

namespace orlix::cli {

namespace {

std::string capabilityOf(const hard::GpuProperties& device)
{
    return std::to_string(device.computeMajor) + "." + std::to_string(device.computeMinor);
}

} // namespace

void printDevices(std::ostream& out, const hard::GpuDescription& devices)
{
    for (int index = 0; index < devices.getNbDevices(); ++index) {
        const hard::GpuProperties& device = devices.getProperties(index);
        out << "CUDA device " << index << "  " << printable(device.name) << ", compute capability "
            << capabilityOf(device) << ", " << device.nbMultiProcessors << " multiprocessors, "
            << (device.memoryBytes >> 20) << " MiB\n";
    }
    if (!devices.getMissingReason().empty()) {
        out << (devices.getNbDevices() == 0 ? "no CUDA device: " : "no further CUDA device: ")
            << printable(devices.getMissingReason()) << "\n";
    }
}

void writeDevices(JsonWriter& json, const hard::GpuDescription& devices)
{
    json.beginObject();
    json.key("devices");
    json.beginArray();
    for (int index = 0; index < devices.getNbDevices(); ++index) {
        const hard::GpuProperties& device = devices.getProperties(index);
        json.beginObject();
        json.member("index", static_cast<unsigned long>(index));
        json.member("name", device.name);
        json.member("computeCapability", capabilityOf(device));
        json.member("multiProcessors", static_cast<unsigned long>(device.nbMultiProcessors));
        json.member("maxThreadsPerMultiProcessor", static_cast<unsigned long>(device.maxThreadsPerMultiProcessor));
        json.member("maxThreadsPerBlock", static_cast<unsigned long>(device.maxThreadsPerBlock));
        json.member("memoryBytes", device.memoryBytes);
        json.endObject();
    }
    json.endArray();
    json.key("missing");
    devices.getMissingReason().empty() ? json.null() : json.value(devices.getMissingReason());
    json.endObject();
}

} // namespace orlix::cli
