// Options whose value is an angle.
#pragma once

#include "GivenValue.h"
#include "OptionList.h"

#include <optional>
#include <string>

namespace orlix::cli {

/// The angle of a text in radians: a number of degrees, or one of radians with "rad" behind it, "30" or "0.5rad". None
/// where it is neither, or no finite number.
std::optional<double> readAngle(const std::string& text);

/// Declares an option whose value is such a text. `angle`, in radians, empty until the option was given, has to outlive
/// the parser.
Option addAngleOption(OptionList& list, const std::string& name, std::optional<GivenValue<double>>& angle,
                      const std::string& description);

} // namespace orlix::cli
