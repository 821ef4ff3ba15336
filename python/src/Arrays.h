// NumPy arrays as images, and images as arrays.
#pragma once

#include "ArrayLayout.h"
#include "ElementTypes.h"

#include <string>
#include <vector>

namespace orlix::python {

/// A NumPy array for anything that is one or lends its memory (`__dlpack__`, buffers, `__array_interface__`): never a
/// copy, never `__array__`. Dask arrays and all else raise TypeError that says what to do instead.
nb::object takeArray(nb::handle object, const char* what);

/// Sizes and distances of an array; valid as long as it.
ArrayMemory memoryOf(PyArrayObject* array);

/// Raises ValueError where elements can't be written: read only, foreign byte order.
void requireWritable(PyArrayObject* array);

/// The array itself where its elements are aligned and in the machine's byte order, else a copy in C order, counted.
nb::object asNative(nb::handle array);
/// A copy in C order, counted.
nb::object gather(nb::handle array);
/// Copies made of arrays that could not be used where they lie, since the program started.
unsigned long getCopiesMade();
void countCopy();

/// Elements of a new array come from the pool of the libraries, or from NumPy where they are few. `sizes` and the axes
/// of the largest to the smallest distance.
nb::object newArray(const std::vector<npy_intp>& sizes, const std::vector<std::size_t>& order,
                    const image::eImageBufferType& type);
/// In C order.
nb::object newArray(const std::vector<npy_intp>& sizes, const image::eImageBufferType& type);
/// With the sizes of `array`, its axes in the same order in memory.
nb::object newArrayLike(PyArrayObject* array, const image::eImageBufferType& type);

/// The letters of an array's axes: the last ones of "TCZYX" where `axes` is None. ValueError for other letters, twice
/// the same one, or another number than the array has axes.
std::string axesOf(nb::handle axes, std::size_t nbAxes);
std::size_t imageAxisOf(char letter); ///< 0 for X to 4 for T

/// An array as an image whose axes `axes` names: wrapped, or a copy of it where it can't be, or, where the caller
/// writes to it, a new image that `bring` copies back.
struct ArrayImage
{
    nb::object array;  ///< the caller's
    nb::object memory; ///< what `image` lies over, mostly the same array
    ImagePtr image;

    /// Writes the image's elements into the caller's array where they aren't there.
    void bringBack() const;
};
ArrayImage imageOf(nb::handle array, const std::string& axes, bool bWritten);

/// The geometry of an array of such sizes and axes: a volume where there is a Z, a sequence where there is a T.
image::BaseImageGeometry geometryOf(const std::vector<npy_intp>& sizes, const std::string& axes,
                                    const image::eImageBufferType& type);
std::vector<npy_intp> sizesOf(PyArrayObject* array);
/// Sizes of an image along the axes.
std::vector<npy_intp> sizesOf(const image::BaseImageGeometry& geometry, const std::string& axes);

/// A new array with the image's sizes along `axes`, whose memory is in the order T, C, Z, Y, X, and the image over it.
ArrayImage newImageArray(const std::vector<npy_intp>& sizes, const std::string& axes,
                         const image::eImageBufferType& type);

/// A view of the image's pixels as an array that keeps them alive. A copy where its time steps lie in different memory.
/// TypeError where they differ in type.
nb::object arrayOf(const ImagePtr& image, const std::string& axes);

} // namespace orlix::python
