// Numbers as text, whatever the locale of the program.
#include "ORLIX/ORLIXUtil/NumberText.h"

namespace orlix {

namespace {

template <class T>
std::string shortest(T value)
{
    char digits[32]; // the longest double takes 24
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

} // namespace

std::string numberText(float value)
{
    return shortest(value);
}

std::string numberText(double value)
{
    return shortest(value);
}

} // namespace orlix
