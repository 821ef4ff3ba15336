// From the arguments of the program to its exit code.
#pragma once

namespace orlix::cli {

/// What the program returns to whoever started it.
struct eExitCode
{
    enum domain { eSuccess = 0, eDifferent = 1, eFailure = 2, eInterrupted = 130 };
};

/// Parses, runs the verb and tells on the standard error stream, in one line, what went wrong. Throws nothing.
int runCommandLine(int argc, const char* const* argv) noexcept;

} // namespace orlix::cli
