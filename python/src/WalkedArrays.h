// Arrays that are walked together, element by element, whatever their shape.
#pragma once

#include "Arrays.h"

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/PixelPosition.h"

#include <array>
#include <initializer_list>

namespace orlix::python {

/// One array, or two of the same sizes, as images of the same sizes. Arrays that can't be wrapped are copied before the
/// call, and the output is copied back after it.
class WalkedArrays
{
public:
    /// The last array is an output where `bOutput`.
    WalkedArrays(std::initializer_list<nb::handle> arrays, bool bOutput);

    ImagePtr imageOf(std::size_t array) const;
    /// Brings what was written to where the caller sees it.
    void bringBack() const;
    /// Along the array's axes, where an element of its image lies: a tuple.
    nb::object indexOf(std::size_t array, const imaproc::attr::PixelPosition& position) const;

private:
    bool merge();

    std::size_t m_nbArrays;
    bool m_bOutput;
    std::array<nb::object, g_mostArrays> m_arrays;
    std::array<nb::object, g_mostArrays> m_memory; ///< the same, or copies
    ImageAxes m_axes;
};

} // namespace orlix::python
