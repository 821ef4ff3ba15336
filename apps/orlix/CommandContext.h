// What a verb works with.
#pragma once

#include "CommonOptions.h"
#include "ProgressLine.h"

#include <iosfwd>

namespace orlix::cli {

struct CommandContext
{
    const CommonOptions& options;
    std::ostream& out;    ///< results go here
    std::ostream& errors; ///< one line a failure
    ProgressLine& progress;
    bool bDifferent = false;  ///< set by a verb that compared and found a difference: exit code 1
    bool bSomeFailed = false; ///< set by a verb that told of a failure itself and went on
};

} // namespace orlix::cli
