// Where tiles lie: in an array, or as a function of their number tells.
#pragma once

#include <algorithm>

namespace orlix::image {

/// Places that follow from something smaller, such as points, need not lie in memory all at once. Refers to its source,
/// which has to outlive it. May be asked from any thread.
template <class TCoords>
class TilePlaces
{
public:
    /// Writes the places of tiles [first, first + count) that follow from `source`.
    using Tell = void (*)(const void* source, unsigned long first, unsigned long count, TCoords* places);

    /// Those of an array.
    explicit TilePlaces(const TCoords* places) : m_source(places), m_tell(&copyPlaces) {}
    TilePlaces(const void* source, Tell tell) : m_source(source), m_tell(tell) {}

    void tell(unsigned long first, unsigned long count, TCoords* places) const
    {
        m_tell(m_source, first, count, places);
    }

private:
    static void copyPlaces(const void* source, unsigned long first, unsigned long count, TCoords* places)
    {
        std::copy_n(static_cast<const TCoords*>(source) + first, count, places);
    }

    const void* m_source;
    Tell m_tell;
};

} // namespace orlix::image
