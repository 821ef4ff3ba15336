// From the arguments of the program to its exit code.
#include "CommandLine.h"

#include "CommandMessages.h"
#include "Interruption.h"
#include "NearNames.h"
#include "PlainText.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <algorithm>
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

constexpr const char* g_endOfOptions = "--";

std::vector<std::string> namesOfVerbs()
{
    std::vector<std::string> names;
    for (const Verb* verb : getVerbs()) {
        names.push_back(verb->name);
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
        m_app.get_formatter()->label("Positionals", "Arguments");
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
            app->allow_extras(); // so that a word that is no option can be named
        }
        m_app.require_subcommand(0, 1); // what follows the verb is a name even if a verb is called so
        m_app.allow_extras();           // so that a word that is no verb can be named
        m_app.footer(g_exitCodes);
    }

    void parse(int argc, const char* const* argv)
    {
        try {
            m_app.parse(argc, argv);
        } catch (const CLI::RequiredError&) { // of an option that was misspelt, maybe
            refuseUnknownOptions();
            throw;
        } catch (const CLI::ArgumentMismatch& error) {
            refuseMismatch(error.what());
        }
        refuseUnknownOptions();
        const std::vector<std::string> left = getLeft();
        if (m_app.get_subcommands().empty()) {
            if (left.empty() || m_app.remaining().front() == g_endOfOptions) {
                raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoVerb, joinNames(namesOfVerbs()));
            }
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownVerb, left.front(),
                                   nearHint(left.front(), namesOfVerbs()), joinNames(namesOfVerbs()));
        }
        if (!left.empty()) {
            throw CLI::ExtrasError(std::vector<std::string>{left.front()});
        }
    }

    const VerbRun& getRun() const
    {
        for (const auto& [app, run] : m_runs) {
            if (app->parsed()) {
                return run;
            }
        }
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoVerb, joinNames(namesOfVerbs()));
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
        std::cerr << errorLine(
            formatMessage<eCommandMessage>(eCommandMessage::eBadArguments, error.what(), getCommand()));
        return false;
    }

    const CommonOptions& getOptions() const { return m_options; }

private:
    /// "orlix copy"
    std::string getCommand() const
    {
        std::string command = "orlix";
        for (const CLI::App* app : m_app.get_subcommands()) {
            command += " " + app->get_name();
        }
        return command;
    }

    /// The options of the verb, or of the program where none was given.
    std::vector<const CLI::Option*> getKnownOptions() const
    {
        const CLI::App& app = m_app.get_subcommands().empty() ? m_app : *m_app.get_subcommands().front();
        return app.get_options([](const CLI::Option* option) { return !option->get_lnames().empty(); });
    }

    /// The words that stand for nothing.
    std::vector<std::string> getLeft() const
    {
        std::vector<std::string> left = m_app.remaining(true);
        std::erase(left, g_endOfOptions);
        return left;
    }

    void refuseUnknownOptions() const
    {
        const std::vector<std::string> left = getLeft();
        const auto isOption = [](const std::string& word) { return word.size() > 1 && word.starts_with('-'); };
        const auto found = std::ranges::find_if(left, isOption);
        if (found == left.end()) {
            return;
        }
        const std::string name = found->substr(0, found->find('='));
        std::vector<std::string> names;
        for (const CLI::Option* option : getKnownOptions()) {
            names.push_back(option->get_name());
        }
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownOption, name, getCommand(), nearHint(name, names),
                               getCommand());
    }

    /// Refuses an option with another number of values than it takes. `complaint` is the parser's, which begins with
    /// the name of the option.
    [[noreturn]] void refuseMismatch(const std::string& complaint) const
    {
        std::string name = complaint.substr(0, complaint.find_first_of(": "));
        if (!name.starts_with('-')) { // as it names flags
            name = "--" + name;
        }
        std::vector<const CLI::App*> apps = {&m_app};
        std::ranges::copy(m_app.get_subcommands(), std::back_inserter(apps));
        for (const CLI::App* app : apps) {
            const CLI::Option* const option = app->get_option_no_throw(name);
            if (option != nullptr && option->get_items_expected_max() == 0) {
                raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoValueTaken, name, getCommand());
            }
            if (option != nullptr && static_cast<int>(option->count()) > option->get_items_expected_max()) {
                raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eAssignedTwice, name);
            }
        }
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eValueMissing, name, getCommand());
    }

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
