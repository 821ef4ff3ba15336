// Text for people: safe to print on a terminal, in one line.
#pragma once

#include <string>
#include <string_view>

namespace orlix::cli {

/// `text` with line ends, escapes and other control characters written as \n, \t or \x1b.
std::string printable(std::string_view text);

/// The shortest decimal number that reads back as `value`; "nan", "inf" and "-inf" for what is no number.
std::string shortest(float value);
std::string shortest(double value);

/// "orlix: ", the message made printable, and a line end.
std::string errorLine(std::string_view message);

} // namespace orlix::cli
