// Numbers as text, whatever the locale of the program.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <system_error>

namespace orlix {

/// The shortest decimal text that reads back as the same value: "0.1", "4294967295", "1e+30"; "nan", "inf" and "-inf"
/// for what is no finite number. Every text that holds a number is made by it, since streams and `std::to_string` cut
/// digits and follow the locale.
ORLIXUTIL_API std::string numberText(float value);
ORLIXUTIL_API std::string numberText(double value);
template <std::integral T>
std::string numberText(T value)
{
    return std::to_string(value);
}

/// Takes the whole of `text`, as `numberText` writes it or in any other decimal form without a leading plus sign or
/// space. False, with `value` as it was, where it is none, or is out of range.
template <class T>
bool readNumber(std::string_view text, T& value)
{
    T number{};
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) {
        return false;
    }
    value = number;
    return true;
}

} // namespace orlix
