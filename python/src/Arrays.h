// NumPy arrays: taking them from callers, and copying those that can't be used where they lie.
#pragma once

#include "ArrayLayout.h"
#include "ElementTypes.h"

#include <vector>

namespace orlix::python {

/// A NumPy array for anything that is one or lends its memory (`__dlpack__`, buffers, `__array_interface__`): never a
/// copy, never `__array__`. Dask arrays and all else raise TypeError that says what to do instead.
nb::object takeArray(nb::handle object, const char* what);

/// Takes over what NumPy made; raises its exception where that is null.
nb::object stealArray(PyObject* array);

/// Sizes and distances of an array; valid as long as it.
ArrayMemory memoryOf(PyArrayObject* array);
std::vector<npy_intp> sizesOf(PyArrayObject* array);
/// Bytes of the array that this one is a part of, where it is one piece of it; its own elsewhere.
unsigned long bufferBytesOf(PyArrayObject* array);

/// Raises ValueError where elements can't be written: read only, foreign byte order.
void requireWritable(PyArrayObject* array);

/// Has every element memory of its own? Broadcast arrays and windows that overlap share it.
bool isDistinct(PyArrayObject* array);
/// Raises ValueError where they don't.
void requireDistinct(PyArrayObject* array);

/// Copies made of arrays that could not be used where they lie, since the program started.
unsigned long getCopiesMade();
void countCopy();

} // namespace orlix::python
