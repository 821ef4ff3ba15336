// What a processor class says of itself in words.
#pragma once

namespace orlix::processor {

/// The name of the class, its tool tip in the catalogue of its library, and the header that it is declared in, which is
/// the one where the text stands.
template <class TToolTip>
struct ProcessorText
{
    const char* name;
    TToolTip toolTip;
    const char* header;

    consteval ProcessorText(const char* ownName, TToolTip ownToolTip, const char* ownHeader = __builtin_FILE())
        : name(ownName), toolTip(ownToolTip), header(ownHeader)
    {}
};

} // namespace orlix::processor
