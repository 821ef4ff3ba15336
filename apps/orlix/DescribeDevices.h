// What is told of the devices of this computer.
#pragma once

#include "JsonWriter.h"

#include "ORLIX/ORLIXHardware/GpuDescription.h"

namespace orlix::cli {

/// A line per CUDA device, or one that says why there is none.
void printDevices(std::ostream& out, const hard::GpuDescription& devices);

/// The same as an object: the list `devices`, and `missing`, why there are none or no more, or null.
void writeDevices(JsonWriter& json, const hard::GpuDescription& devices);

} // namespace orlix::cli
