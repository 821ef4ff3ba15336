// The one form of every enumeration of the family: a small struct around a nested `domain`.
#pragma once

/// Closes an enumeration struct that has declared its `enum domain`: conversions from and to the domain, so that
/// `eColour::eRed` can stand wherever an `eColour` is asked for. `first` is the value of a default-constructed object.
///
///     struct eColour
///     {
///         enum domain { eRed = 0, eGreen = 1 };
///         ORLIX_ENUMERATION(eColour, eRed);
///     };
#define ORLIX_ENUMERATION(name, first)                                                                                 \
    constexpr name() : m_value(first) {}                                                                               \
    constexpr name(domain value) : m_value(value) {}                                                                   \
    constexpr operator domain() const                                                                                  \
    {                                                                                                                  \
        return m_value;                                                                                                \
    }                                                                                                                  \
                                                                                                                       \
private:                                                                                                               \
    domain m_value
