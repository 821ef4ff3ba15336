// Comma-separated values as people keep them, record by record.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"

#include <string>
#include <utility>
#include <vector>

namespace orlix::processor {

/// One record, and where it stands, counted from 1.
struct CsvRecord
{
    unsigned long line = 0;
    std::vector<std::string> fields;
    std::vector<unsigned long> columns; ///< of each field, its first character in its line
};

/// RFC 4180: commas between fields, quotes around fields that hold commas, line ends or (doubled) quotes, lines ended
/// by LF or CRLF. Besides, spaces and tabs around a field without quotes don't count, and empty lines and lines that
/// begin with `#` are left out, as is the byte order mark of UTF-8.
class ORLIXBASEPROCESSING_API CsvReader
{
public:
    /// Bytes that a text may have at most.
    static constexpr unsigned long g_maxBytes = 1UL << 28;

    /// The text itself, in which `;` ends a record too.
    static CsvReader ofText(std::string text) { return {std::move(text), "", true}; }
    /// The text of a file. Its flaw is set where the file can't be read, or is larger than `g_maxBytes`.
    static CsvReader ofFile(const std::string& file);

    /// The next record; false at the end, and where the text is flawed.
    bool next(CsvRecord& record);

    /// Why there are no more records; empty where the text was read to its end.
    const std::string& getFlaw() const { return m_flaw; }
    /// "points.csv, line 3, column 7: ", or the same without a file.
    std::string placeOf(const CsvRecord& record, unsigned long field) const;

private:
    CsvReader(std::string text, std::string file, bool bSemicolon)
        : m_text(std::move(text)), m_file(std::move(file)), m_bSemicolon(bSemicolon)
    {}

    bool skipLinesWithoutRecord();
    bool readField(CsvRecord& record);
    bool readQuotedField(CsvRecord& record, std::string& field);
    bool isAtEndOfRecord() const;
    void passEndOfRecord();
    void passLineEnd();
    void skipBlanks();
    std::string place(unsigned long line, unsigned long column) const;
    unsigned long column() const { return m_position - m_lineStart + 1; }

    std::string m_text;
    std::string m_file;
    bool m_bSemicolon;
    std::string m_flaw;
    unsigned long m_position = 0;
    unsigned long m_line = 1;
    unsigned long m_lineStart = 0;
};

} // namespace orlix::processor
