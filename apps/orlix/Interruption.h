// Ctrl-C and its kin.
#pragma once

#include <cstddef>
#include <string>

namespace orlix::cli {

/// From now on SIGINT, SIGTERM and SIGHUP end the program at once, whatever it is in the middle of, with `line` on the
/// standard error stream and exit code 130; files that it was writing are removed, and their targets are as they were.
/// A signal that this process was told to ignore stays ignored. Passing a limit of file sizes becomes an error of the
/// write instead of the end of the program, so that it can tidy up. For one call, before threads start.
void handleSignals(const std::string& line);

/// So many characters of a line on the standard error stream are wiped before a signal ends the program.
void setLineToWipe(std::size_t length) noexcept;

} // namespace orlix::cli
