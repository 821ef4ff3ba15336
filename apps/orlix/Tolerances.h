// The tolerances of a comparison, as people give them.
#pragma once

#include "GivenValue.h"
#include "OptionList.h"

#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include <optional>
#include <string>

namespace orlix::cli {

using GivenTolerance = GivenValue<float>;

/// Declares an option for a tolerance: a finite number from 0 on, rounded to single precision. `tolerance`, empty until
/// the option was given, has to outlive the parser.
Option addToleranceOption(OptionList& options, const std::string& name, std::optional<GivenTolerance>& tolerance,
                          const std::string& description);

/// Throws CommandException, with the tolerances that can be had, where comparisons of images of this geometry can't
/// hold the one that `option` gave: on integers they take it as an integer of 16 or 32 bits.
void checkAbsoluteTolerance(const std::string& option, const GivenTolerance& tolerance,
                            const image::BaseImageGeometry& geometry);

} // namespace orlix::cli
