// The arguments and options that a verb declares.
#include "OptionList.h"

#include "CommandMessages.h"
#include "NearNames.h"

#include <boost/algorithm/string/predicate.hpp>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <locale>

namespace orlix::cli {

namespace {

/// What a message says was expected.
std::string describe(const OptionList::Range& range)
{
    std::string text = range.multipleOf == 1 ? "a whole number" : "a multiple of " + std::to_string(range.multipleOf);
    text += " from " + std::to_string(range.smallest);
    return range.largest == std::numeric_limits<unsigned long>::max() ? text + " on"
                                                                      : text + " to " + std::to_string(range.largest);
}

} // namespace

Option& Option::valueName(const std::string& text)
{
    m_option->option_text(text)->type_name(text); // of the help, and of what a message says is missing
    return *this;
}

Option& Option::required()
{
    m_option->required();
    return *this;
}

Option& Option::group(const std::string& heading)
{
    m_option->group(heading);
    return *this;
}

Option& Option::oneValueEach()
{
    m_option->allow_extra_args(false);
    return *this;
}

Option& Option::whenGiven(const std::function<void()>& note)
{
    m_option->each([note](const std::string&) { note(); });
    return *this;
}

std::string Option::getName() const
{
    return m_option->get_name();
}

Option OptionList::add(const std::string& name, std::string& target, const std::string& description)
{
    return Option(*m_app->add_option(name, target, description));
}

Option OptionList::add(const std::string& name, std::vector<std::string>& target, const std::string& description)
{
    return Option(*m_app->add_option(name, target, description));
}

Option OptionList::add(const std::string& name, const Read& read, const std::string& description)
{
    const auto readOrThrow = [name, read](const std::string& text) {
        if (const std::optional<std::string> complaint = read(text)) {
            throw CLI::ValidationError(name, *complaint);
        }
    };
    return Option(*m_app->add_option_function<std::string>(name, readOrThrow, description));
}

Option OptionList::addNumber(const std::string& name, unsigned long& target, const Range& range,
                             const std::string& description)
{
    const auto readNumber = [&target, range](const std::string& text) -> std::optional<std::string> {
        unsigned long number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        if (error != std::errc() || stop != end || number < range.smallest || number > range.largest ||
            number % range.multipleOf != 0) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, describe(range), text, "");
        }
        target = number;
        return std::nullopt;
    };
    return add(name, readNumber, description);
}

Option OptionList::addChoice(const std::string& name, const std::vector<std::string>& words,
                             const std::function<void(std::size_t index)>& choose, const std::string& description)
{
    std::string shown;
    for (const std::string& word : words) {
        shown.append(shown.empty() ? "" : "|").append(word);
    }
    const auto chooseWord = [words, choose](const std::string& given) -> std::optional<std::string> {
        const auto isGiven = [&given](const std::string& word) {
            return boost::algorithm::iequals(word, given, std::locale::classic());
        };
        const auto found = std::ranges::find_if(words, isGiven);
        if (found == words.end()) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, "one of " + joinNames(words), given,
                                                  nearHint(given, words));
        }
        choose(static_cast<std::size_t>(found - words.begin()));
        return std::nullopt;
    };
    return add(name, chooseWord, description).valueName(shown);
}

Option OptionList::addFlag(const std::string& name, bool& target, const std::string& description)
{
    return Option(*m_app->add_flag(name, target, description)->disable_flag_override());
}

Option OptionList::addFlag(const std::string& name, const std::function<void()>& given, const std::string& description)
{
    return Option(*m_app->add_flag_callback(name, given, description)->disable_flag_override());
}

void OptionList::setFooter(const std::function<std::string()>& footer)
{
    m_app->footer(footer);
}

} // namespace orlix::cli
