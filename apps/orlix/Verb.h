// One verb of the command line, and the table of all of them.
#pragma once

#include "CommandContext.h"
#include "OptionList.h"

#include <functional>
#include <span>

namespace orlix::cli {

/// Does a verb's work on arguments that have been parsed. Throws where it fails.
using VerbRun = std::function<void(CommandContext&)>;

/// Constant-initialised in the verb's own file.
struct Verb
{
    const char* name;
    const char* summary; ///< one line, for the list of verbs
    /// Declares the verb's arguments and options ; what it returns runs once they are known.
    VerbRun (*setUp)(OptionList& options);
};

/// In the order of the help text.
std::span<const Verb* const> getVerbs();

} // namespace orlix::cli
