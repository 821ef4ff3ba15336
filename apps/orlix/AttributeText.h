// Attributes as users write their values.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include <string>

namespace orlix::cli {

/// `setFromText` of an attribute, which takes NumPy's names of element types too: "float32" and "bool", in any case.
/// The names of integers are the same in both.
ProcessingResult<bool> setFromUserText(processor::BaseAttribute& attribute, const std::string& text);

/// What a message adds on a text that an attribute didn't take: "; near it is UInt8", or nothing.
std::string nearValueHint(const processor::BaseAttribute& attribute, const std::string& text);

} // namespace orlix::cli
