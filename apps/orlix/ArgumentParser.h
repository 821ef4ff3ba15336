// The parser of the program's arguments.
#pragma once

#include "CommonOptions.h"
#include "Verb.h"

#include <memory>

namespace orlix::cli {

/// The verbs and options of the program, and what its arguments say of them.
class ArgumentParser
{
public:
    ArgumentParser();
    ~ArgumentParser();
    ArgumentParser(const ArgumentParser&) = delete;
    ArgumentParser& operator=(const ArgumentParser&) = delete;

    /// False where the arguments ask for help or the version alone, which is printed then. Throws CommandException for
    /// arguments that are wrong; the text names the word and what it might have been.
    bool parse(int argc, const char* const* argv);

    /// Of the verb that was given, once `parse` has found one.
    const VerbRun& getRun() const;
    const CommonOptions& getOptions() const;

private:
    class Parser;
    std::unique_ptr<Parser> m_parser;
};

} // namespace orlix::cli
