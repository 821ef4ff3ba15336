// Columns of text that line up.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orlix::bench {

class Table
{
public:
    explicit Table(std::vector<std::string> header) { addRow(std::move(header)); }

    void addRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
    /// The first column starts at the left, the others end at the right.
    void print(std::ostream& stream) const;

private:
    std::vector<std::vector<std::string>> m_rows;
};

/// A number with so many digits behind the point.
std::string toText(double value, int digits);
/// "4.0 KiB", "512 MiB".
std::string bytesToText(unsigned long bytes);
/// "850 ns", "1.52 us", "23.1 ms".
std::string secondsToText(double seconds);

} // namespace orlix::bench
