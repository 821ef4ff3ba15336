// Names of length units, and how they convert.
#pragma once

#include <optional>
#include <string>

namespace orlix::image::io {

/// Metres in one `unit` ("µm", "um", "micron", "mm", "inch" and so on); nothing for a unit that is no known length.
std::optional<double> metresIn(const std::string& unit);

/// The name that OME-XML has for `unit`: "µm" for "micron", "pixel" for "px", "reference frame" for what it lacks.
std::string omeUnitOf(const std::string& unit);

} // namespace orlix::image::io
