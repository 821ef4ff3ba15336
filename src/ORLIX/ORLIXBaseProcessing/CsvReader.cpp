#include "ORLIX/ORLIXBaseProcessing/CsvReader.h"

#include <algorithm>
#include <fstream>

namespace orlix::processor {

CsvReader CsvReader::ofFile(const std::string& file)
{
    CsvReader reader("", file, false);
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> chunk(1UL << 16);
    bool bTooLarge = false;
    while (stream && !bTooLarge) {
        stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        reader.m_text.append(chunk.data(), static_cast<unsigned long>(stream.gcount()));
        bTooLarge = reader.m_text.size() > g_maxBytes;
    }
    if (bTooLarge) {
        reader.m_flaw = file + " is larger than " + std::to_string(g_maxBytes >> 20) + " MiB: give less at a time";
    } else if (!stream.eof()) {
        reader.m_flaw = file + " can't be read: name a file that exists and may be read";
    }
    constexpr const char* byteOrderMark = "\xEF\xBB\xBF";
    if (reader.m_text.starts_with(byteOrderMark)) {
        reader.m_text.erase(0, 3);
    }
    return reader;
}

bool CsvReader::next(CsvRecord& record)
{
    record.fields.clear();
    record.columns.clear();
    if (!m_flaw.empty() || !skipLinesWithoutRecord()) {
        return false;
    }
    record.line = m_line;
    while (readField(record)) {
        if (isAtEndOfRecord()) {
            passEndOfRecord();
            return true;
        }
        ++m_position; // the comma
    }
    return false;
}

std::string CsvReader::placeOf(const CsvRecord& record, unsigned long field) const
{
    return place(record.line, field < record.columns.size() ? record.columns[field] : 1);
}

bool CsvReader::skipLinesWithoutRecord()
{
    while (true) {
        const unsigned long start = m_position;
        skipBlanks();
        if (m_position == m_text.size()) {
            return false;
        }
        if (m_text[m_position] == '#') {
            m_position = std::min(m_text.find('\n', m_position), m_text.size());
        } else if (!isAtEndOfRecord()) {
            m_position = start;
            return true;
        }
        passEndOfRecord();
    }
}

bool CsvReader::readField(CsvRecord& record)
{
    skipBlanks();
    record.columns.push_back(column());
    std::string& field = record.fields.emplace_back();
    if (m_position < m_text.size() && m_text[m_position] == '"') {
        return readQuotedField(record, field);
    }
    while (!isAtEndOfRecord() && m_text[m_position] != ',') {
        if (m_text[m_position] == '"') {
            m_flaw = place(m_line, column()) + "a quote inside a field: put the whole field into quotes";
            return false;
        }
        field.push_back(m_text[m_position++]);
    }
    field.erase(field.find_last_not_of(" \t") + 1);
    return true;
}

bool CsvReader::readQuotedField(CsvRecord& record, std::string& field)
{
    ++m_position;
    while (m_position < m_text.size()) {
        const char c = m_text[m_position++];
        if (c == '"') {
            if (m_position == m_text.size() || m_text[m_position] != '"') {
                skipBlanks();
                if (isAtEndOfRecord() || m_text[m_position] == ',') {
                    return true;
                }
                m_flaw = place(m_line, column()) + "a field goes on behind its closing quote: double quotes inside it";
                return false;
            }
            ++m_position;
        } else if (c == '\n') {
            ++m_line;
            m_lineStart = m_position;
        }
        field.push_back(c);
    }
    m_flaw = placeOf(record, record.fields.size() - 1) + "a quote that is never closed: close it";
    return false;
}

bool CsvReader::isAtEndOfRecord() const
{
    if (m_position == m_text.size()) {
        return true;
    }
    const char c = m_text[m_position];
    const bool bCrLf = c == '\r' && (m_position + 1 == m_text.size() || m_text[m_position + 1] == '\n');
    return c == '\n' || bCrLf || (m_bSemicolon && c == ';');
}

void CsvReader::passEndOfRecord()
{
    if (m_position < m_text.size() && m_text[m_position] == ';') {
        ++m_position;
        return;
    }
    if (m_position < m_text.size() && m_text[m_position] == '\r') {
        ++m_position;
    }
    passLineEnd();
}

void CsvReader::passLineEnd()
{
    if (m_position < m_text.size()) {
        ++m_position;
        ++m_line;
        m_lineStart = m_position;
    }
}

void CsvReader::skipBlanks()
{
    while (m_position < m_text.size() && (m_text[m_position] == ' ' || m_text[m_position] == '\t')) {
        ++m_position;
    }
}

std::string CsvReader::place(unsigned long line, unsigned long column) const
{
    return (m_file.empty() ? "" : m_file + ", ") + "line " + std::to_string(line) + ", column " +
           std::to_string(column) + ": ";
}

} // namespace orlix::processor
