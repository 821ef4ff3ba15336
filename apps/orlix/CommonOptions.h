// Options that every verb has.
#pragma once

#include "OptionList.h"

#include <optional>
#include <string>

namespace orlix::cli {

struct CommonOptions
{
    unsigned long nbThreads = 0;               ///< 0: all that the process may use
    std::optional<std::string> instructionSet; ///< none: the best that the processor has
    bool bJson = false;
    bool bQuiet = false;
};

/// Declares the options. Declared for the program and for its verb, what stands nearest to the verb's arguments wins.
void addCommonOptions(OptionList& list, CommonOptions& options);

/// Sets threads and instruction set for the whole process. Throws CommandException for a set that doesn't exist or that
/// this processor lacks.
void applyCommonOptions(const CommonOptions& options);

} // namespace orlix::cli
