// New arrays, and arrays over the pixels of images.
#pragma once

#include "Arrays.h"

namespace orlix::python {

/// Elements of a new array come from the pool of the libraries, or from NumPy where they are few. `sizes` and the axes
/// of the largest to the smallest distance.
nb::object newArray(const std::vector<npy_intp>& sizes, const std::vector<std::size_t>& order,
                    const image::eImageBufferType& type);
/// In C order.
nb::object newArray(const std::vector<npy_intp>& sizes, const image::eImageBufferType& type);
/// Numbers of the array's axes, from the largest distance to the smallest; in C order where elements are seen several
/// times, which says nothing of an order.
std::vector<std::size_t> axesInMemoryOrder(PyArrayObject* array);
/// With the sizes of `array`, its axes in the same order in memory.
nb::object newArrayLike(PyArrayObject* array, const image::eImageBufferType& type);

/// An array over pixels, in bytes from one to the next along its axes, that keeps their image alive.
nb::object arrayOver(void* data, const std::vector<npy_intp>& sizes, const std::vector<npy_intp>& strides,
                     const image::eImageBufferType& type, const ImagePtr& owner);

} // namespace orlix::python
