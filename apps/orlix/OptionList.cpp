// The arguments and options that a verb declares.
#include "OptionList.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>

namespace orlix::cli {

Option& Option::valueName(const std::string& text)
{
    m_option->option_text(text);
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

Option& Option::atMost(unsigned long limit)
{
    m_option->check(CLI::Range(0UL, limit));
    return *this;
}

Option& Option::nonNegative()
{
    m_option->check([](const std::string& text) -> std::string {
        double value = 0; // of text that is no number, which the option itself refuses
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value < 0 ? "expected a number from 0 on, found \"" + text + "\"" : "";
    });
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

Option OptionList::add(const std::string& name, unsigned long& target, const std::string& description)
{
    return Option(*m_app->add_option(name, target, description));
}

Option OptionList::add(const std::string& name, std::optional<float>& target, const std::string& description)
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

Option OptionList::addChoice(const std::string& name, const std::vector<std::string>& words,
                             const std::function<void(std::size_t index)>& choose, const std::string& description)
{
    std::string shown;
    for (const std::string& word : words) {
        shown.append(shown.empty() ? "" : "|").append(word);
    }
    const auto chooseWord = [words, choose](const std::string& given) {
        choose(static_cast<std::size_t>(std::find(words.begin(), words.end(), given) - words.begin()));
    };
    return Option(*m_app->add_option_function<std::string>(name, chooseWord, description)
                       ->option_text(shown)
                       ->transform(CLI::IsMember(words, CLI::ignore_case)));
}

Option OptionList::addFlag(const std::string& name, bool& target, const std::string& description)
{
    return Option(*m_app->add_flag(name, target, description));
}

Option OptionList::addFlag(const std::string& name, const std::function<void()>& given, const std::string& description)
{
    return Option(*m_app->add_flag_callback(name, given, description));
}

void OptionList::setFooter(const std::function<std::string()>& footer)
{
    m_app->footer(footer);
}

} // namespace orlix::cli
