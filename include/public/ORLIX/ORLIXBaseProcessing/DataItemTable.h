// Collections of data items as tables: a row each, a column for each leaf.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DataItemText.h"

namespace orlix::processor::details {

/// What the elements of a collection are: values, records, or what shared pointers point to.
template <class TElement>
struct RowOf
{
    using Type = TElement;
    static TElement& add(std::vector<TElement>& rows) { return rows.emplace_back(); }
    static const TElement* get(const TElement& element) { return &element; }
};
template <class TRow>
struct RowOf<boost::shared_ptr<TRow>>
{
    using Type = std::remove_const_t<TRow>;
    static Type& add(std::vector<boost::shared_ptr<TRow>>& rows)
    {
        const auto row = boost::make_shared<Type>();
        rows.push_back(row);
        return *row;
    }
    static const Type* get(const boost::shared_ptr<TRow>& element) { return element.get(); }
};

/// A collection whose rows may have a text.
template <class TColl>
concept TableColl = DataCollection<TColl> &&
    (TextValue<typename RowOf<typename TColl::value_type>::Type> ||
     (DataRecord<typename RowOf<typename TColl::value_type>::Type> &&
      std::default_initializable<typename RowOf<typename TColl::value_type>::Type>));

/// Have its rows one?
template <TableColl TColl>
bool isTextTable()
{
    using Row = typename RowOf<typename TColl::value_type>::Type;
    if constexpr (DataRecord<Row>) {
        return isTextRecord<Row>();
    } else {
        return true;
    }
}

template <class TRow>
std::vector<std::string> columnNames()
{
    if constexpr (DataRecord<TRow>) {
        return leafNames<TRow>();
    } else {
        return {};
    }
}

/// Does a line tell the names of columns, some of them at least?
ORLIXBASEPROCESSING_API bool hasNames(const std::vector<std::string>& fields, const std::vector<std::string>& names);
/// Why these can't be the columns of a table that has `names`, and which field is wrong; empty where they can.
ORLIXBASEPROCESSING_API std::string findColumnFlaw(const std::vector<std::string>& fields,
                                                   const std::vector<std::string>& names, unsigned long& field);

template <class TRow>
std::string readRow(const CsvReader& reader, const CsvRecord& record, const std::vector<std::string>& columns,
                    TRow& row)
{
    const unsigned long nbColumns = DataRecord<TRow> ? columns.size() : 1;
    if (record.fields.size() != nbColumns) {
        return reader.placeOf(record, 0) + "expected " + std::to_string(nbColumns) + " values, found " +
               std::to_string(record.fields.size());
    }
    for (unsigned long i = 0; i < nbColumns; ++i) {
        if constexpr (DataRecord<TRow>) {
            if (const std::string flaw = readLeaf(row, columns[i], record.fields[i]); !flaw.empty()) {
                return reader.placeOf(record, i) + flaw;
            }
        } else if (!ValueText<TRow>::read(record.fields[i], row)) {
            return reader.placeOf(record, i) + "expected " + ValueText<TRow>::kind() + ", found \"" + record.fields[i] +
                   "\"";
        }
    }
    return "";
}

/// All rows; the names of the columns may come first, in any order, and columns that they leave out are left alone.
template <TableColl TColl>
std::string readTable(CsvReader& reader, TColl& rows)
{
    using Rows = RowOf<typename TColl::value_type>;
    std::vector<std::string> columns = columnNames<typename Rows::Type>();
    CsvRecord record;
    for (bool bFirst = true; reader.next(record); bFirst = false) {
        if (bFirst && hasNames(record.fields, columns)) {
            unsigned long field = 0;
            if (const std::string flaw = findColumnFlaw(record.fields, columns, field); !flaw.empty()) {
                return reader.placeOf(record, field) + flaw;
            }
            columns = record.fields;
            continue;
        }
        if (rows.size() == g_maxTableRows) {
            return reader.placeOf(record, 0) + "more than " + std::to_string(g_maxTableRows) +
                   " rows: give less at a time";
        }
        if (std::string flaw = readRow(reader, record, columns, Rows::add(rows)); !flaw.empty()) {
            return flaw;
        }
    }
    return reader.getFlaw();
}

/// "X,Y;1,2;3,4"; without names where rows are plain values. None where a row is a null pointer.
template <TableColl TColl>
std::optional<std::string> tableText(const TColl& rows)
{
    using Rows = RowOf<typename TColl::value_type>;
    using Row = typename Rows::Type;
    std::string text;
    const auto append = [&text](const std::vector<std::string>& fields) {
        text.append(text.empty() ? "" : ";");
        for (unsigned long i = 0; i < fields.size(); ++i) {
            text.append(i == 0 ? "" : ",").append(fields[i]);
        }
    };
    if constexpr (DataRecord<Row>) {
        append(columnNames<Row>());
    }
    for (const auto& element : rows) {
        const Row* const row = Rows::get(element);
        if (row == nullptr) {
            return std::nullopt;
        }
        if constexpr (DataRecord<Row>) {
            append(leafTexts(*row));
        } else {
            append({ValueText<Row>::write(*row)});
        }
    }
    return text;
}

} // namespace orlix::processor::details
