// Prints the members of data items on one line.
#pragma once

#include "ORLIX/ORLIXBaseData/DataValue.h"
#include "ORLIX/ORLIXUtil/NumberText.h"

#include <functional>
#include <ostream>
#include <string>

namespace orlix {

/// How many elements of a collection are printed.
inline constexpr unsigned long g_maxPrintedElements = 16;

/// Records as "{name: value, name: value}", collections as "[value, value]" with their size where they are cut short,
/// pointers as what they point to or "none". Numbers don't follow the stream's locale.
template <class T>
void printData(std::ostream& stream, const T& value)
{
    if constexpr (DataNode<T>) {
        value.print(stream);
    } else if constexpr (DataRecord<T>) {
        const char* separator = "{";
        T::visit([&](const char* name, auto member) {
            stream << separator << name << ": ";
            printData(stream, std::invoke(member, value));
            separator = ", ";
        });
        stream << '}';
    } else if constexpr (DataPointer<T>) {
        if (value != nullptr) {
            printData(stream, *value);
        } else {
            stream << "none";
        }
    } else if constexpr (DataCollection<T>) {
        stream << '[';
        for (unsigned long i = 0; i < value.size() && i < g_maxPrintedElements; ++i) {
            stream << (i == 0 ? "" : ", ");
            printData(stream, value[i]);
        }
        if (value.size() > g_maxPrintedElements) {
            stream << ", ... " << numberText(value.size()) << " in all";
        }
        stream << ']';
    } else if constexpr (std::same_as<T, bool>) {
        stream << (value ? "true" : "false");
    } else if constexpr (std::integral<T> || std::floating_point<T>) {
        stream << numberText(value);
    } else {
        stream << value;
    }
}

} // namespace orlix
