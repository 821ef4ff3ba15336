// What a comparison found, as Python gets it.
#include "Comparisons.h"

#include "ArrayImages.h"

namespace orlix::python {

nb::object comparisonOf(const imaproc::attr::CompareResult& result, const nb::object& index)
{
    if (!result.hasFirstDifference()) {
        return nb::make_tuple(result.identical, result.nbDifferentPixels, result.nbComparedPixels, nb::none(),
                              nb::none());
    }
    return nb::make_tuple(result.identical, result.nbDifferentPixels, result.nbComparedPixels, index,
                          nb::make_tuple(result.firstValue1, result.firstValue2));
}

nb::tuple indexOf(const imaproc::attr::PixelPosition& position, const std::string& axes)
{
    const std::array<unsigned long, 5> places = {position.x, position.y, position.z, position.c, position.t};
    nb::list index;
    for (const char letter : axes) {
        index.append(places[imageAxisOf(letter)]);
    }
    return nb::tuple(index);
}

} // namespace orlix::python
