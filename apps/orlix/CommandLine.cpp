// From the arguments of the program to its exit code.
#include "CommandLine.h"

#include "CommandMessages.h"
#include "Interruption.h"
#include "PlainText.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <sstream>
#include <vector>

namespace orlix::cli {

namespace {

constexpr const char* g_exitCodes =
    "Exit codes: 0 success, 1 compared images differ, 2 failure, 130 interrupted. On failure one line\n"
    "on the standard error stream tells why.\n"
    "An output file is replaced once it is complete; it is never left half written.";

std::string namesOfVerbs()
{
    std::string names;
    for (const Verb* verb : getVerbs()) {
        names.append(names.empty() ? "" : ", ").append(verb->name);
    }
    return names;
}

/// The parser, and what each verb does once it has parsed.
class Parser
{
public:
    Parser() : m_app("Image operators on TIFF and PNG files of up to five axes (x, y, z, channel, time).", "orlix")
    {
        m_app.set_version_flag("--version", "orlix " ORLIX_VERSION, "Print the version");
        m_app.set_help_flag("-h,--help", "Print this help; `orlix VERB --help` tells about one verb");
        m_app.get_formatter()->column_width(30);
        m_app.get_formatter()->label("SUBCOMMAND", "VERB");
        OptionList options(m_app);
        addCommonOptions(options, m_options);
        for (const Verb* verb : getVerbs()) {
            CLI::App* app = m_app.add_subcommand(verb->name, verb->summary);
            app->group("Verbs");
            app->set_help_flag("-h,--help", "Print this help");
            OptionList optionsOfVerb(*app);
            m_runs.emplace_back(app, verb->setUp(optionsOfVerb));
            addCommonOptions(optionsOfVerb, m_options);
            app->footer(g_exitCodes);
        }
        m_app.require_subcommand(0, 1); // what follows the verb is a name even if a verb is called so
        m_app.allow_extras();           // so that a word that is no verb can be named
        m_app.footer(g_exitCodes);
    }

    void parse(int argc, const char* const* argv)
    {
        m_app.parse(argc, argv);
        const std::vector<std::string> left = m_app.remaining();
        if (m_app.get_subcommands().empty()) {
            if (left.empty()) {
                raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoVerb, namesOfVerbs());
            }
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownVerb, left.front(), namesOfVerbs());
        }
        if (!left.empty()) {
            throw CLI::ExtrasError(left);
        }
    }

    const VerbRun& getRun() const
    {
        for (const auto& [app, run] : m_runs) {
            if (app->parsed()) {
                return run;
            }
        }
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoVerb, namesOfVerbs());
    }

    /// Prints what --help or --version asked for and returns true, or tells what is wrong with the arguments.
    bool answers(const CLI::ParseError& error) const
    {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            std::ostringstream answer; // the parser ends it with a flush, which would lose the reason of a failure
            m_app.exit(error, answer, answer);
            std::cout << answer.str();
            return true;
        }
        std::string command = "orlix";
        for (const CLI::App* app : m_app.get_subcommands()) {
            command += " " + app->get_name();
        }
        std::cerr << errorLine(formatMessage<eCommandMessage>(eCommandMessage::eBadArguments, error.what(), command));
        return false;
    }

    const CommonOptions& getOptions() const { return m_options; }

private:
    CLI::App m_app;
    CommonOptions m_options;
    std::vector<std::pair<const CLI::App*, VerbRun>> m_runs;
};

void flushOutput()
{
    errno = 0;
    std::cout.flush();
    if (!std::cout) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOutputClosed,
                               errno != 0 ? std::strerror(errno) : "the disk is full or the reader has gone");
    }
}

int parseAndRun(int argc, const char* const* argv)
{
    Parser parser;
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (!parser.answers(error)) {
            return eExitCode::eFailure;
        }
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
        const std::string interrupted = errorLine(formatMessage<eCommandMessage>(eCommandMessage::eInterrupted));
        try {
            handleSignals(interrupted);
            return parseAndRun(argc, argv);
        } catch (const Interrupted&) {
            std::cerr << interrupted << std::flush;
            return eExitCode::eInterrupted;
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
