// Builds the text of one catalogue message from its arguments.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <concepts>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace orlix {

class LogMessageManager;

/// `LogMessageFormater f(manager); f.setMsgId(key, id); f % a % b; f.string();`
///
/// `%s` takes anything that can be streamed, and prints of a number the shortest text that gives it back; `%d` takes
/// any integer up to 64-bit unsigned, `%f` a floating number and prints six decimals; `%%` is a percent sign. The text
/// never depends on the program's locale. For use by one thread.
class ORLIXUTIL_API LogMessageFormater
{
public:
    /// Keeps a reference: `manager` has to outlive the formatter.
    explicit LogMessageFormater(const LogMessageManager& manager);
    ~LogMessageFormater();

    /// Chooses the message and drops the arguments given so far.
    void setMsgId(const std::string& key, int id);

    /// Appends the next argument. An exception out of the argument's own stream operator passes through.
    template <class T>
    LogMessageFormater& operator%(const T& argument)
    {
        if constexpr (std::is_convertible_v<const T&, std::string_view>) {
            m_arguments.emplace_back(std::string(std::string_view(argument)));
        } else if constexpr (std::same_as<T, char>) {
            m_arguments.emplace_back(std::string(1, argument));
        } else if constexpr (std::signed_integral<T>) {
            m_arguments.emplace_back(static_cast<long long>(argument));
        } else if constexpr (std::unsigned_integral<T>) {
            m_arguments.emplace_back(static_cast<unsigned long long>(argument));
        } else if constexpr (std::same_as<T, float>) {
            m_arguments.emplace_back(argument);
        } else if constexpr (std::floating_point<T>) {
            m_arguments.emplace_back(static_cast<double>(argument));
        } else {
            appendStreamed(std::addressof(argument),
                           [](std::ostream& stream, const void* value) { stream << *static_cast<const T*>(value); });
        }
        return *this;
    }

    /// The finished text. Raises ORLIXUtilException if the message is unknown or takes another number of arguments.
    std::string string() const;

private:
    using Argument = std::variant<long long, unsigned long long, float, double, std::string>;

    void appendStreamed(const void* value, void (*print)(std::ostream&, const void*));

    const LogMessageManager& m_manager;
    std::string m_key;
    int m_id = 0;
    std::vector<Argument> m_arguments;
};

} // namespace orlix
