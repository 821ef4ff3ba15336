// What the command line of every benchmark program says beyond Google Benchmark's own flags.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <vector>

namespace orlix::bench {

struct Options
{
    double seconds = 10.0; ///< for each comparison; 0 takes every sample once
    bool bQuick = false;   ///< only the widest kernel set, and 0.4 seconds unless told otherwise

    /// Kernel sets to measure, the widest last.
    std::vector<eInstructionSet> selectInstructionSets() const;
};

/// Takes `--quick` and `--seconds=<number>` out of the arguments and leaves the rest. Throws std::invalid_argument for
/// seconds that are no number or below 0.
Options parseOptions(int& argc, char** argv);

/// One line for each option.
const char* describeOptions();

} // namespace orlix::bench
