// The arguments and options that a verb declares. A thin layer over CLI11, which takes long to compile: only what
// stands behind this and the parser itself includes it.
#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace orlix::cli {

/// A declared argument or option, to be refined where it is declared. Refers to the parser's own, which has to live.
class Option
{
public:
    explicit Option(CLI::Option& option) : m_option(&option) {}

    /// What the help shows in the place of the value.
    Option& valueName(const std::string& text);
    Option& required();
    /// The heading in the help under which the option stands.
    Option& group(const std::string& heading);
    /// A list of which every value needs the name of the option before it.
    Option& oneValueEach();
    /// Called after the value was accepted.
    Option& whenGiven(const std::function<void()>& note);

    /// As the user writes it.
    std::string getName() const;

private:
    CLI::Option* m_option;
};

/// The arguments and options of one verb, or of the program. A name that begins with dashes is an option's, any other
/// an argument's, which is known by its place. Every target has to outlive the parser, and is left as it was where the
/// option wasn't given.
class OptionList
{
public:
    explicit OptionList(CLI::App& app) : m_app(&app) {}

    Option add(const std::string& name, std::string& target, const std::string& description);
    Option add(const std::string& name, std::vector<std::string>& target, const std::string& description);

    /// Tells what is wrong with the text, or returns nothing once it has taken it.
    using Read = std::function<std::optional<std::string>(const std::string& text)>;
    /// A value that is read as `read` does it.
    Option add(const std::string& name, const Read& read, const std::string& description);

    /// A whole number. Multiples of more than 1 are told as such.
    struct Range
    {
        unsigned long smallest = 0;
        unsigned long largest = std::numeric_limits<unsigned long>::max();
        unsigned long multipleOf = 1;
    };
    Option addNumber(const std::string& name, unsigned long& target, const Range& range,
                     const std::string& description);

    /// One of a few words, in any case; `choose` gets the place in `words` of the one that was given.
    Option addChoice(const std::string& name, const std::vector<std::string>& words,
                     const std::function<void(std::size_t index)>& choose, const std::string& description);

    Option addFlag(const std::string& name, bool& target, const std::string& description);
    Option addFlag(const std::string& name, const std::function<void()>& given, const std::string& description);

    /// What follows the options in the help; asked for when the help is printed.
    void setFooter(const std::function<std::string()>& footer);

private:
    CLI::App* m_app;
};

} // namespace orlix::cli
