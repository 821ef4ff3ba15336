// Text for people: safe to print on a terminal, in one line.
#include "PlainText.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <cstdio>

namespace orlix::cli {

std::string printable(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\t') {
            out += "\\t";
        } else if (byte < 0x20 || byte == 0x7f) {
            char escape[5];
            std::snprintf(escape, sizeof(escape), "\\x%02x", static_cast<unsigned>(byte));
            out += escape;
        } else {
            out += c;
        }
    }
    return out;
}

std::string shortest(float value)
{
    return numberText(value);
}

std::string shortest(double value)
{
    return numberText(value);
}

std::string errorLine(std::string_view message)
{
    return "orlix: " + printable(message) + "\n";
}

} // namespace orlix::cli
