// The closing table of programs that measure many cases: one row a comparison.
#pragma once

#include "support/Suite.h"

namespace orlix::bench {

/// For every comparison of `names` that was measured: time and rate of the widest set, its share of the best ordinary
/// loop, of the best loop and of OpenCV, and any set that is slower than plain code by more than the spread.
void printSetTable(std::ostream& stream, const Suite& suite, const std::vector<std::string>& names);

} // namespace orlix::bench
