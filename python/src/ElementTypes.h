// Element types of the libraries and NumPy's.
#pragma once

#include "Numpy.h"

#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

namespace orlix::python {

/// NumPy's number of the type of the same elements: bool for Binary, uint8 for UInt8 and UInt8Like.
int typeNumberOf(const image::eImageBufferType& type);

/// The element type of an array: bool, int8 to uint32 or float32 in either byte order. Any other raises TypeError that
/// names the eight.
image::eImageBufferType elementTypeOf(PyArrayObject* array);

/// What a person gives as `dtype`: anything that NumPy takes, or an element type by name ("UInt16Like") or number.
/// TypeError as above.
image::eImageBufferType elementTypeNamed(nb::handle dtype);

/// NumPy's dtype object.
nb::object dtypeOf(const image::eImageBufferType& type);

} // namespace orlix::python
