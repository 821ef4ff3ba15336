// Ctrl-C and its kin.
#pragma once

#include <cstddef>
#include <string>

namespace orlix::cli {

/// Thrown out of work that stops because a signal asked for it. Carries nothing: what to say is always the same.
struct Interrupted
{};

/// From now on SIGINT, SIGTERM and SIGHUP end the program with `line` on the standard error stream and exit code 130:
/// at once, or, while an InterruptibleWork lives, once that work has seen it and tidied up. A signal that this process
/// was told to ignore stays ignored. Passing a limit of file sizes becomes an error of the write instead of the end of
/// the program, so that it can tidy up. For one call, before threads start.
void handleSignals(const std::string& line);

/// Has a signal come that nobody has obeyed yet? From any thread.
bool isInterrupted() noexcept;
/// Throws Interrupted if so.
void throwIfInterrupted();

/// Lives while there is something to tidy up, a temporary file for example.
class InterruptibleWork
{
public:
    InterruptibleWork() noexcept;
    ~InterruptibleWork();
    InterruptibleWork(const InterruptibleWork&) = delete;
    InterruptibleWork& operator=(const InterruptibleWork&) = delete;
};

/// Lives where there is nothing to tidy up within an InterruptibleWork, while files are read for example: a signal ends
/// the program at once, whatever it is in the middle of. Throws Interrupted where a signal came before.
class NothingToTidyUp
{
public:
    NothingToTidyUp();
    ~NothingToTidyUp();
    NothingToTidyUp(const NothingToTidyUp&) = delete;
    NothingToTidyUp& operator=(const NothingToTidyUp&) = delete;

private:
    int m_nbWorks;
};

/// So many characters of a line on the standard error stream are wiped before a signal ends the program at once.
void setLineToWipe(std::size_t length) noexcept;

} // namespace orlix::cli
