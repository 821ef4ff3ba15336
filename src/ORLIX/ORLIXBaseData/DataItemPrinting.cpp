// Prints the members of data items on one line.
#include "ORLIX/ORLIXBaseData/DataItemPrinting.h"

#include <charconv>

namespace orlix {

namespace {

template <class T>
std::string print(T value)
{
    char text[64];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

} // namespace

std::string printNumber(double value)
{
    return print(value);
}

std::string printNumber(float value)
{
    return print(value);
}

} // namespace orlix
