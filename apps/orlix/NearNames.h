// Names that somebody who mistyped one may have meant.
#pragma once

#include <string>
#include <vector>

namespace orlix::cli {

/// Those of `names` that hold `given` or are few letters away from it, whatever the case; the nearest first, at most
/// five.
std::vector<std::string> nearNames(const std::string& given, const std::vector<std::string>& names);

/// What a message says of them: "; near it is a", "; near it are a, b", or nothing where there are none.
std::string nearHint(const std::string& given, const std::vector<std::string>& names);

/// "a, b, c"
std::string joinNames(const std::vector<std::string>& names);

} // namespace orlix::cli
