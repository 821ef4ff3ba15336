// The names that people know an enumeration's values by.
#pragma once

#include <concepts>
#include <string>

namespace orlix {

/// Specialise beside an enumeration of the family to let its values be told and given as text:
///
///     // in the order in which they are listed
///     static constexpr std::array<eColour::domain, 2> g_values = {eColour::eRed, eColour::eGreen};
///     static const char* nameOf(const eColour& value); // "red", "green"
///
/// Names are unique whatever their case.
template <class TEnum>
struct EnumerationNames;

template <class TEnum>
concept NamedEnumeration = requires(const TEnum& value)
{
    {
        EnumerationNames<TEnum>::nameOf(value)
        } -> std::convertible_to<std::string>;
    {TEnum(*EnumerationNames<TEnum>::g_values.begin())};
};

} // namespace orlix
