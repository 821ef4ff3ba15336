// Reading and writing numbers in the C locale, and comparing names.
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"

#include "ORLIX/ORLIXBaseData/DataItemPrinting.h"

#include <algorithm>
#include <charconv>

namespace orlix::processor::details {

namespace {

template <class T>
bool readNumber(const std::string& text, T& value)
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

char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isOneOf(const std::string& text, std::initializer_list<const char*> names)
{
    return std::ranges::any_of(names, [&](const char* name) { return isSameName(text, name); });
}

} // namespace

bool readText(const std::string& text, double& value)
{
    return readNumber(text, value);
}

bool readText(const std::string& text, float& value)
{
    return readNumber(text, value);
}

bool readText(const std::string& text, long long& value)
{
    return readNumber(text, value);
}

bool readText(const std::string& text, unsigned long long& value)
{
    return readNumber(text, value);
}

bool readText(const std::string& text, bool& value)
{
    if (isOneOf(text, {"yes", "true", "1"})) {
        value = true;
        return true;
    }
    if (isOneOf(text, {"no", "false", "0"})) {
        value = false;
        return true;
    }
    return false;
}

std::string writeText(double value)
{
    return printNumber(value);
}

std::string writeText(float value)
{
    return printNumber(value);
}

bool isSameName(const std::string& left, const std::string& right)
{
    return std::ranges::equal(left, right, {}, lowerCase, lowerCase);
}

} // namespace orlix::processor::details
