// What copyImg is meant to reach, and where it stands.
#pragma once

#include <iosfwd>

namespace orlix::bench {

class Suite;

/// A line for each goal: wanted, found, and whether it is met. Goals whose comparison has not run say so.
void printCopyGoals(std::ostream& stream, const Suite& suite);

} // namespace orlix::bench
