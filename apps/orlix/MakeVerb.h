// What the verbs share that make an image file out of nothing.
#pragma once

#include "CommandContext.h"
#include "JsonWriter.h"
#include "OutputOptions.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <functional>

namespace orlix::cli {

/// Checks the name of the output, writes what `make` gives to OUT, and tells with --json what was written, and what
/// `addMembers` adds to that. Whatever fails, OUT is as it was.
void makeFile(
    const OutputOptions& output, CommandContext& context, const std::function<ImagePtr()>& make,
    const std::function<void(JsonWriter& json)>& addMembers = [](JsonWriter&) {});

} // namespace orlix::cli
