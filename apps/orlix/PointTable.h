// Tables of points as people and programs keep them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orlix::cli {

/// A table whose first line names its columns, x and y among them and perhaps z, c and t, in any case and order. Fields
/// are separated by commas, semicolons or tabs, whichever the first line has, and may stand in quotes. Numbers have a
/// decimal point. Empty lines, lines that begin with `#` and a byte order mark don't count.
class PointTable
{
public:
    enum class eColumn { x, y, z, c, t };

    /// Throws CommandException for a file that can't be read or is no such table.
    explicit PointTable(const std::string& file);

    const std::string& getFile() const { return m_file; }
    unsigned long getNbRows() const { return m_rows.size(); }
    bool has(eColumn column) const { return m_places[static_cast<unsigned long>(column)].has_value(); }

    /// As they stand in the file.
    std::string_view getHeader() const { return textOf(m_header); }
    std::string_view getRow(unsigned long row) const { return textOf(m_rows[row]); }
    char getSeparator() const { return m_separator; }

    /// The fields of all of x, y, z, c and t that the table has; the others are empty. Throws CommandException for a
    /// row with another number of fields than the header.
    std::array<std::string, 5> readFields(unsigned long row) const;
    /// "points.csv, line 4 (row 3)"
    std::string placeOf(unsigned long row) const;

    /// `text` as a finite number, or as a whole number from 0 on. Throws CommandException that tells where it stands.
    double toNumber(const std::string& text, eColumn column, unsigned long row) const;
    unsigned long toIndex(const std::string& text, eColumn column, unsigned long row) const;

private:
    struct Line
    {
        unsigned long first; ///< of its characters in the text
        unsigned long size;
        unsigned long number; ///< in the file, from 1
    };

    std::string_view textOf(const Line& line) const { return std::string_view(m_text).substr(line.first, line.size); }
    void findLines();
    void findColumns();
    std::vector<std::string> split(const Line& line) const;

    std::string m_file;
    std::string m_text;
    char m_separator = ',';
    Line m_header{0, 0, 1};
    std::vector<Line> m_rows;
    unsigned long m_nbFields = 0;
    std::array<std::optional<unsigned long>, 5> m_places; ///< of each column among the fields
};

} // namespace orlix::cli
