// Data items as text: how a command line gives their leaves by name, and collections as tables.
#pragma once

#include "ORLIX/ORLIXBaseData/DataValue.h"
#include "ORLIX/ORLIXBaseProcessing/CsvReader.h"
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"

#include <boost/make_shared.hpp>

#include <concepts>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace orlix::processor {

/// Rows that a table may have at most.
inline constexpr unsigned long g_maxTableRows = 1UL << 24;

/// A data item that takes text may say what is wrong with values that a person gave: `std::string findFlaw() const`,
/// empty where nothing is.
template <class TItem>
concept SelfCheckingItem = requires(const TItem& item)
{
    {
        item.findFlaw()
        } -> std::convertible_to<std::string>;
};

namespace details {

/// The two halves of "name=value", without spaces around them.
struct NamedText
{
    std::string name;
    std::string value;
};
/// "A=1, B=2" at its commas; an empty text has no parts. None where a part has no "=".
ORLIXBASEPROCESSING_API std::optional<std::vector<NamedText>> splitNamedTexts(const std::string& text);

template <class TRecord, class TMember>
using MemberType = std::remove_cvref_t<std::invoke_result_t<TMember, TRecord&>>;

/// Has every leaf of the record a text?
template <DataRecord TRecord>
bool isTextRecord()
{
    bool bText = true;
    TRecord::visit(
        [&bText](const char*, auto member) { bText = bText && TextValue<MemberType<TRecord, decltype(member)>>; });
    return bText;
}

/// "Min=<number>,Max=<number>".
template <DataRecord TRecord>
std::string recordKind()
{
    std::string kind;
    TRecord::visit([&kind](const char* name, auto member) {
        using TValue = MemberType<TRecord, decltype(member)>;
        if constexpr (TextValue<TValue>) {
            kind.append(kind.empty() ? "" : ",")
                .append(name)
                .append("=<")
                .append(ValueText<TValue>::kind())
                .append(">");
        }
    });
    return kind;
}

/// Gives leaf `name` the value that `text` stands for; else why it can't.
template <DataRecord TRecord>
std::string readLeaf(TRecord& record, const std::string& name, const std::string& text)
{
    std::string flaw = "there is no " + name + ": give " + recordKind<TRecord>();
    TRecord::visit([&](const char* leaf, auto member) {
        using TValue = MemberType<TRecord, decltype(member)>;
        if constexpr (TextValue<TValue>) {
            if (isSameName(leaf, name)) {
                flaw = ValueText<TValue>::read(text, std::invoke(member, record))
                           ? ""
                           : std::string(leaf) + ": expected " + ValueText<TValue>::kind() + ", found \"" + text + "\"";
            }
        }
    });
    return flaw;
}

template <DataRecord TRecord>
std::vector<std::string> leafNames()
{
    std::vector<std::string> names;
    TRecord::visit([&names](const char* name, auto) { names.emplace_back(name); });
    return names;
}
template <DataRecord TRecord>
std::vector<std::string> leafTexts(const TRecord& record)
{
    std::vector<std::string> texts;
    TRecord::visit([&](const char*, auto member) {
        using TValue = MemberType<TRecord, decltype(member)>;
        if constexpr (TextValue<TValue>) {
            texts.push_back(ValueText<TValue>::write(std::invoke(member, record)));
        }
    });
    return texts;
}

/// Leaves by name, in any order, each once; those that are left out stay as they are.
template <DataRecord TRecord>
std::string readRecordText(const std::string& text, TRecord& record)
{
    const std::optional<std::vector<NamedText>> parts = splitNamedTexts(text);
    if (!parts) {
        return "expected " + recordKind<TRecord>() + ", found \"" + text + "\"";
    }
    for (auto part = parts->begin(); part != parts->end(); ++part) {
        for (auto former = parts->begin(); former != part; ++former) {
            if (isSameName(former->name, part->name)) {
                return part->name + " is given twice: give it once";
            }
        }
        if (std::string flaw = readLeaf(record, part->name, part->value); !flaw.empty()) {
            return flaw;
        }
    }
    return "";
}
template <DataRecord TRecord>
std::string recordText(const TRecord& record)
{
    const std::vector<std::string> names = leafNames<TRecord>();
    const std::vector<std::string> texts = leafTexts(record);
    std::string text;
    for (unsigned long i = 0; i < names.size(); ++i) {
        text.append(i == 0 ? "" : ",").append(names[i]).append("=").append(texts[i]);
    }
    return text;
}

} // namespace details

} // namespace orlix::processor
