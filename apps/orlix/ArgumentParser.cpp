#include "ArgumentParser.h"

#include "CommandMessages.h"
#include "NearNames.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <CLI/CLI.hpp>

#include <algorithm>
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

} // namespace

/// CLI11's parser, and what each verb does once it has parsed.
class ArgumentParser::Parser
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

    /// Prints what --help or --version asked for, or throws what is wrong with the arguments.
    void answer(const CLI::ParseError& error) const
    {
        if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadArguments, error.what(), getCommand());
        }
        std::ostringstream answer; // the parser ends it with a flush, which would lose the reason of a failure
        m_app.exit(error, answer, answer);
        std::cout << answer.str();
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

ArgumentParser::ArgumentParser() : m_parser(std::make_unique<Parser>()) {}

ArgumentParser::~ArgumentParser() = default;

bool ArgumentParser::parse(int argc, const char* const* argv)
{
    try {
        m_parser->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        m_parser->answer(error);
        return false;
    }
    return true;
}

const VerbRun& ArgumentParser::getRun() const
{
    return m_parser->getRun();
}

const CommonOptions& ArgumentParser::getOptions() const
{
    return m_parser->getOptions();
}

} // namespace orlix::cli
