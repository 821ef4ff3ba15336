// What the elements of a split touch, and whether that lies anywhere in particular.
#pragma once

#include "ORLIX/ORLIXBaseData/ElementsRange.h"

#include <utility>
#include <vector>

namespace orlix::processor {

/// Ranges of elements, each with the bytes that all of its elements together touch.
class ElementsLocationInfo
{
public:
    /// Data that lies nowhere in particular, so that it draws its elements to no processor core.
    void insertNonLocalized(const ElementsRange& range, unsigned long bytes)
    {
        m_nonLocalized.emplace_back(range, bytes);
        m_bytes += bytes;
    }

    const std::vector<std::pair<ElementsRange, unsigned long>>& getNonLocalized() const { return m_nonLocalized; }
    unsigned long getBytes() const { return m_bytes; } ///< of all ranges

private:
    std::vector<std::pair<ElementsRange, unsigned long>> m_nonLocalized;
    unsigned long m_bytes = 0;
};

} // namespace orlix::processor
