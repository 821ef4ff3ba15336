// One verb of the command line, and the table of all of them.
#pragma once

#include "CommandContext.h"
#include "OptionList.h"

#include <boost/make_shared.hpp>

#include <functional>
#include <span>

namespace orlix::cli {

/// A verb as its file states it, row by row. `TArguments` takes what the user gives.
template <class TArguments>
struct VerbRow
{
    const char* name;
    const char* summary; ///< one line, for the list of verbs
    /// Declares what is known by its place, in that order.
    void (*operands)(OptionList& list, TArguments& arguments);
    /// Declares what is known by its name; null where the verb has no options of its own.
    void (*options)(OptionList& list, TArguments& arguments) = nullptr;
    /// Does the work, on arguments that have been parsed. Throws where it fails.
    void (*run)(const TArguments& arguments, CommandContext& context);
};

using VerbRun = std::function<void(CommandContext&)>;

/// A verb as the parser takes it.
struct Verb
{
    const char* name;
    const char* summary;
    /// Declares all that the verb takes; what it returns keeps the arguments, and runs once they are known.
    VerbRun (*setUp)(OptionList& list);
};

namespace details {

template <const auto& row, class TArguments>
VerbRun setUpVerb(OptionList& list, const VerbRow<TArguments>&)
{
    const auto arguments = boost::make_shared<TArguments>();
    row.operands(list, *arguments);
    if constexpr (row.options != nullptr) {
        row.options(list, *arguments);
    }
    return [arguments](CommandContext& context) { row.run(*arguments, context); };
}

constexpr bool isText(const char* text)
{
    return text != nullptr && *text != '\0';
}

} // namespace details

/// The verb of a row that is a constant of its file.
template <const auto& row>
constexpr Verb verbOf()
{
    static_assert(details::isText(row.name), "a verb has a name, by which it is called");
    static_assert(details::isText(row.summary), "a verb has a summary, for the list of verbs");
    static_assert(row.operands != nullptr, "a verb says what it works on");
    static_assert(row.run != nullptr, "a verb does something");
    return {row.name, row.summary, [](OptionList& list) { return details::setUpVerb<row>(list, row); }};
}

/// In the order of the help text.
std::span<const Verb* const> getVerbs();

} // namespace orlix::cli
