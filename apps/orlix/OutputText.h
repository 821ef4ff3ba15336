// Values of outputs as people and programs read them.
#pragma once

#include "JsonWriter.h"

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include <optional>
#include <string>

namespace orlix::cli {

/// The text of an output that has one. What a result doesn't have, the place of a difference between images without
/// any, is "none".
std::optional<std::string> outputText(const processor::BaseAttribute& attribute);

/// Writes an output that has a text as a member of that name: a comparison as an object, in which null stands for what
/// it doesn't have, any other as its text. False, with nothing written, for one that has none.
bool writeOutputMember(JsonWriter& json, const processor::BaseAttribute& attribute);

} // namespace orlix::cli
