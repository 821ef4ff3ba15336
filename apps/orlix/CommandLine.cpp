// From the arguments of the program to its exit code.
#include "CommandLine.h"

#include "ArgumentParser.h"
#include "CommandMessages.h"
#include "Interruption.h"
#include "PlainText.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>

namespace orlix::cli {

namespace {

/// Where writing has failed before, it fails again, and tells why.
void flushOutput()
{
    const bool bComplete = std::cout.good();
    std::cout.clear();
    errno = 0;
    std::cout.flush();
    if (!bComplete || !std::cout) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOutputClosed,
                               errno != 0 ? std::strerror(errno) : "the disk is full or the reader has gone");
    }
}

int parseAndRun(int argc, const char* const* argv)
{
    ArgumentParser parser;
    if (!parser.parse(argc, argv)) {
        flushOutput();
        return eExitCode::eSuccess;
    }
    applyCommonOptions(parser.getOptions());
    ProgressLine progress(!parser.getOptions().bQuiet && ::isatty(STDERR_FILENO) == 1);
    CommandContext context{parser.getOptions(), std::cout, std::cerr, progress};
    parser.getRun()(context);
    progress.wipe();
    flushOutput();
    if (context.bSomeFailed) {
        return eExitCode::eFailure;
    }
    return context.bDifferent ? eExitCode::eDifferent : eExitCode::eSuccess;
}

int fail(const std::string& message)
{
    std::cerr << errorLine(message) << std::flush;
    return eExitCode::eFailure;
}

} // namespace

int runCommandLine(int argc, const char* const* argv) noexcept
{
    try {
        try {
            handleSignals(errorLine(formatMessage<eCommandMessage>(eCommandMessage::eInterrupted)));
            return parseAndRun(argc, argv);
        } catch (const std::bad_alloc&) {
            return fail(formatMessage<eCommandMessage>(eCommandMessage::eNoMemory));
        } catch (const std::exception& error) {
            return fail(error.what());
        } catch (...) {
            return fail(formatMessage<eCommandMessage>(eCommandMessage::eUnknownFailure));
        }
    } catch (...) { // the failure can't even be told
        return eExitCode::eFailure;
    }
}

} // namespace orlix::cli
