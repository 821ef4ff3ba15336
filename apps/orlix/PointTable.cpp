#include "PointTable.h"

#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <system_error>

namespace orlix::cli {

namespace {

constexpr unsigned long g_maxBytes = 1UL << 30;
constexpr const char* g_names[] = {"x", "y", "z", "c", "t"};

const char* nameOf(PointTable::eColumn column)
{
    return g_names[static_cast<unsigned long>(column)];
}

std::string readText(const std::string& file)
{
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::string text;
    std::vector<char> chunk(1UL << 16);
    while (stream && text.size() <= g_maxBytes) {
        stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        text.append(chunk.data(), static_cast<unsigned long>(stream.gcount()));
    }
    if (text.size() > g_maxBytes) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTableTooLarge, file, g_maxBytes >> 20);
    }
    if (!stream.eof()) {
        const std::string reason = std::generic_category().message(errno == 0 ? EIO : errno);
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTableNotRead, file, reason);
    }
    constexpr const char* byteOrderMark = "\xEF\xBB\xBF";
    return text.starts_with(byteOrderMark) ? text.substr(3) : text;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string lower(std::string text)
{
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

} // namespace

PointTable::PointTable(const std::string& file) : m_file(file), m_text(readText(file))
{
    findLines();
    findColumns();
}

void PointTable::findLines()
{
    bool bHeader = false;
    unsigned long number = 1;
    for (unsigned long first = 0; first < m_text.size(); ++number) {
        const unsigned long end = std::min(m_text.find('\n', first), m_text.size());
        Line line{first, end - first, number};
        line.size -= line.size > 0 && m_text[end - 1] == '\r' ? 1 : 0;
        first = end + 1;
        const std::string_view text = trimmed(textOf(line));
        if (text.empty() || text.front() == '#') {
            continue;
        }
        if (bHeader) {
            m_rows.push_back(line);
        } else {
            m_header = line;
            bHeader = true;
        }
    }
}

void PointTable::findColumns()
{
    const std::string_view header = getHeader();
    m_separator = header.find('\t') != std::string_view::npos  ? '\t'
                  : header.find(';') != std::string_view::npos ? ';'
                                                               : ',';
    const std::vector<std::string> fields = split(m_header);
    m_nbFields = fields.size();
    for (unsigned long field = 0; field < fields.size(); ++field) {
        const std::string name = lower(fields[field]);
        if (name == "value") {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTableHasValues, m_file, m_header.number);
        }
        for (unsigned long column = 0; column < m_places.size(); ++column) {
            if (name != g_names[column]) {
                continue;
            }
            if (m_places[column]) {
                raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eColumnTwice, m_file, m_header.number, name);
            }
            m_places[column] = field;
        }
    }
    if (!has(eColumn::x) || !has(eColumn::y)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eColumnsMissing, m_file, m_header.number,
                               std::string(getHeader()));
    }
}

std::vector<std::string> PointTable::split(const Line& line) const
{
    std::vector<std::string> fields(1);
    bool bQuoted = false;
    for (const char c : textOf(line)) {
        if (c == '"') {
            bQuoted = !bQuoted; // a doubled one closes and opens: no number has any
        } else if (c == m_separator && !bQuoted) {
            fields.emplace_back();
        } else {
            fields.back().push_back(c);
        }
    }
    for (std::string& field : fields) {
        field = trimmed(field);
    }
    return fields;
}

std::array<std::string, 5> PointTable::readFields(unsigned long row) const
{
    std::vector<std::string> fields = split(m_rows[row]);
    if (fields.size() != m_nbFields) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eFieldCount, placeOf(row), m_nbFields, fields.size(),
                               std::string(getRow(row)));
    }
    std::array<std::string, 5> found;
    for (unsigned long column = 0; column < m_places.size(); ++column) {
        if (m_places[column]) {
            found[column] = std::move(fields[*m_places[column]]);
        }
    }
    return found;
}

std::string PointTable::placeOf(unsigned long row) const
{
    return m_file + ", line " + std::to_string(m_rows[row].number) + " (row " + std::to_string(row + 1) + ")";
}

double PointTable::toNumber(const std::string& text, eColumn column, unsigned long row) const
{
    double number = 0;
    if (!readNumber(text, number) || !std::isfinite(number)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadField, placeOf(row), nameOf(column),
                               "a number with a decimal point", text);
    }
    return number;
}

unsigned long PointTable::toIndex(const std::string& text, eColumn column, unsigned long row) const
{
    double number = 0; // tables of other programs write 2 as 2.000
    if (!readNumber(text, number) || !(number >= 0 && number < 0x1p53) || number != std::floor(number)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadField, placeOf(row), nameOf(column),
                               "a whole number from 0 on", text);
    }
    return static_cast<unsigned long>(number);
}

} // namespace orlix::cli
