// Values of outputs as people read them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include <optional>
#include <string>

namespace orlix::cli {

/// The text of an output that has one. What a result doesn't have, the place of a difference between images without
/// any, is "none".
std::optional<std::string> outputText(const processor::BaseAttribute& attribute);

} // namespace orlix::cli
