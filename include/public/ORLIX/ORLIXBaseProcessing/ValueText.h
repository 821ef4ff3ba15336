// Values as text: how a command line, a form or a table gives them and shows them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/EnumerationNames.h"
#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"

#include <concepts>
#include <string>
#include <type_traits>

namespace orlix::processor {

namespace details {

/// Takes the whole of `text`; false, with `value` as it was, where it is neither yes nor no.
ORLIXBASEPROCESSING_API bool readText(const std::string& text, bool& value);

ORLIXBASEPROCESSING_API bool isSameName(const std::string& left, const std::string& right);

} // namespace details

/// What is known of the text of a type of value. A type without a specialisation has no text.
///
///     static std::string kind();                                  // what a text has to be: "number"
///     static bool read(const std::string& text, TValue& value);   // false where the text is none, or is out of range
///     static std::string write(const TValue& value);              // what `read` reads back
template <class TValue>
struct ValueText;

template <class TValue>
concept TextValue = requires
{
    {
        ValueText<TValue>::kind()
        } -> std::same_as<std::string>;
};

/// "nan", "inf" and "-inf" are numbers too; rules judge them.
template <std::floating_point TValue>
struct ValueText<TValue>
{
    static std::string kind() { return "number"; }
    static bool read(const std::string& text, TValue& value) { return readNumber(text, value); }
    static std::string write(TValue value) { return numberText(value); }
};

template <std::integral TValue>
struct ValueText<TValue>
{
    static std::string kind()
    {
        return "whole number from " + write(NumericLimits<TValue>::s_min) + " to " +
               write(NumericLimits<TValue>::s_max);
    }
    static bool read(const std::string& text, TValue& value)
    {
        std::conditional_t<std::is_signed_v<TValue>, long long, unsigned long long> wide = 0;
        if (!readNumber(text, wide) || wide < NumericLimits<TValue>::s_min || wide > NumericLimits<TValue>::s_max) {
            return false;
        }
        value = static_cast<TValue>(wide);
        return true;
    }
    static std::string write(TValue value) { return numberText(value); }
};

/// Also "true", "false", "1" and "0".
template <>
struct ValueText<bool>
{
    static std::string kind() { return "yes or no"; }
    static bool read(const std::string& text, bool& value) { return details::readText(text, value); }
    static std::string write(bool value) { return value ? "yes" : "no"; }
};

/// A name in any case, or the number of a value that has a name.
template <NamedEnumeration TValue>
struct ValueText<TValue>
{
    using Names = EnumerationNames<TValue>;

    static std::string kind()
    {
        std::string names;
        for (const TValue value : Names::g_values) {
            names.append(names.empty() ? "one of " : ", ").append(Names::nameOf(value));
        }
        return names;
    }
    static bool read(const std::string& text, TValue& value)
    {
        long long number = 0;
        const bool bNumber = readNumber(text, number);
        for (const TValue candidate : Names::g_values) {
            if (bNumber ? number == static_cast<long long>(candidate)
                        : details::isSameName(text, Names::nameOf(candidate))) {
                value = candidate;
                return true;
            }
        }
        return false;
    }
    static std::string write(const TValue& value) { return Names::nameOf(value); }
};

} // namespace orlix::processor
