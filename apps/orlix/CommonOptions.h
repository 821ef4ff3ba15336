// Options that every verb has.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace orlix::cli {

struct CommonOptions
{
    unsigned long nbThreads = 0; ///< 0: all that the process may use
    std::string instructionSet;  ///< empty: the best that the processor has
    bool bJson = false;
    bool bQuiet = false;
};

/// Declares the options on a part of the parser. Declared on several parts, the one nearest to the verb's arguments
/// wins.
void addCommonOptions(CLI::App& app, CommonOptions& options);

/// Sets threads and instruction set for the whole process. Throws CommandException for a set that doesn't exist or that
/// this processor lacks.
void applyCommonOptions(const CommonOptions& options);

} // namespace orlix::cli
