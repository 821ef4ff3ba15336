// Reading yes and no, and comparing names.
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"

#include <algorithm>
#include <initializer_list>

namespace orlix::processor::details {

namespace {

char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isOneOf(const std::string& text, std::initializer_list<const char*> names)
{
    return std::ranges::any_of(names, [&](const char* name) { return isSameName(text, name); });
}

} // namespace

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

bool isSameName(const std::string& left, const std::string& right)
{
    return std::ranges::equal(left, right, {}, lowerCase, lowerCase);
}

} // namespace orlix::processor::details
