// Names of length units, and how they convert.
#pragma once

#include <optional>
#include <string>

namespace orlix::image::io {

/// Metres in one `unit` ("µm", "um", "micron", "mm", "inch" and so on); nothing for a unit that is no known length.
std::optional<double> metresIn(const std::string& unit);

/// How many `to` one `from` is: 1 for two names of one unit, also of one that is no length; nothing where the two don't
/// convert.
std::optional<double> unitFactor(const std::string& from, const std::string& to);

/// The name that OME-XML has for `unit`: "µm" for "micron", "pixel" for "px", "reference frame" for what it lacks.
std::string omeUnitOf(const std::string& unit);

} // namespace orlix::image::io
