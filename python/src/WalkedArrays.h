// Arrays that are walked together, element by element, whatever their shape.
#pragma once

#include "Arrays.h"

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/PixelPosition.h"
#include "ORLIXIPL/ORLIXImage/WrappedImage.h"

#include <array>
#include <initializer_list>

namespace orlix::python {

/// One array, or two of the same sizes, as images of the same sizes that lie over them: where all are as the machine
/// takes them and their axes lie in the same order. Else see ArrayBlocks.
class WalkedArrays
{
public:
    WalkedArrays(std::initializer_list<nb::handle> arrays);

    bool isWrapped() const { return m_bWrapped; }
    ImagePtr imageOf(std::size_t array) const;
    image::WrappedImage wrap(std::size_t array) const; ///< the same as a value
    /// Along the array's axes, where an element of its image lies: a tuple.
    nb::object indexOf(std::size_t array, const imaproc::attr::PixelPosition& position) const;

private:
    image::BaseImageGeometry geometryOf(std::size_t array) const;

    std::array<PyArrayObject*, g_mostArrays> m_arrays = {}; ///< the caller's
    ImageAxes m_axes;
    bool m_bWrapped;
};

} // namespace orlix::python
