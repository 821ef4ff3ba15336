// A range of neighbouring elements: lines of a plan, or entries of a collection.
#pragma once

#include <compare>

namespace orlix {

/// [start, start + size). Ordered by start, then by size, so that results filed under ranges merge in element order.
struct ElementsRange
{
    unsigned long start = 0;
    unsigned long size = 0;

    constexpr ElementsRange() = default;
    constexpr ElementsRange(unsigned long firstElement, unsigned long nbElements)
        : start(firstElement), size(nbElements)
    {}

    friend constexpr auto operator<=>(const ElementsRange&, const ElementsRange&) = default;
};

} // namespace orlix
