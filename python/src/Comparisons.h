// What a comparison found, as Python gets it.
#pragma once

#include "Numpy.h"

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CompareResult.h"

namespace orlix::python {

/// Identical, differing, compared, index or None, values or None: what `orlix.Comparison` holds.
nb::object comparisonOf(const imaproc::attr::CompareResult& result, const nb::object& index);

/// A place in an image as an index along the axes that `axes` names.
nb::tuple indexOf(const imaproc::attr::PixelPosition& position, const std::string& axes);

} // namespace orlix::python
