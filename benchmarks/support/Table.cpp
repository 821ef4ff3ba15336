#include "support/Table.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace orlix::bench {

namespace {

/// Characters as a terminal shows them: UTF-8 has more bytes than those.
std::size_t widthOf(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// Three digits that count.
std::string toShortText(double value)
{
    return toText(value, value < 10 ? 2 : value < 100 ? 1 : 0);
}

} // namespace

void Table::print(std::ostream& stream) const
{
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : m_rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], widthOf(row[column]));
        }
    }
    for (const std::vector<std::string>& row : m_rows) {
        std::string line = "  ";
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string padding(widths[column] - widthOf(row[column]), ' ');
            line += column == 0 ? row[column] + padding : "   " + padding + row[column];
        }
        stream << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

std::string toText(double value, int digits)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

std::string bytesToText(unsigned long bytes)
{
    const bool bMega = bytes >= 1UL << 20;
    return toText(static_cast<double>(bytes) / (bMega ? 1UL << 20 : 1UL << 10), 0) + (bMega ? " MiB" : " KiB");
}

std::string secondsToText(double seconds)
{
    return seconds < 0.9995e-6   ? toShortText(seconds * 1e9) + " ns"
           : seconds < 0.9995e-3 ? toShortText(seconds * 1e6) + " us"
                                 : toShortText(seconds * 1e3) + " ms";
}

} // namespace orlix::bench
