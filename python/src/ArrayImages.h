// Arrays as images whose axes have names, and images as arrays.
#pragma once

#include "NewArrays.h"

#include <string>

namespace orlix::python {

/// The letters of an array's axes: the last ones of "TCZYX" where `axes` is None. ValueError for other letters, twice
/// the same one, or another number than the array has axes.
std::string axesOf(nb::handle axes, std::size_t nbAxes);
std::size_t imageAxisOf(char letter); ///< 0 for X to 4 for T

/// An array as an image whose axes `axes` names, laid over it whatever its strides. Where its elements are in foreign
/// byte order or beside their alignment, a copy of it, or, where the caller writes to it, a new image that `bringBack`
/// copies back.
struct ArrayImage
{
    nb::object array;  ///< the caller's
    nb::object memory; ///< what `image` lies over, mostly the same array
    ImagePtr image;
    std::string axes = {};

    /// Writes the image's elements into the caller's array where they aren't there.
    void bringBack() const;
};
ArrayImage imageOf(nb::handle array, const std::string& axes, bool bWritten);
/// Do the array's elements lie as those of images mostly do: side by side along x, and forwards along all other axes?
bool hasImageOrder(PyArrayObject* array, const std::string& axes);

/// The geometry of an array of such sizes and axes: a volume where there is a Z, a sequence where there is a T.
image::BaseImageGeometry geometryOf(const std::vector<npy_intp>& sizes, const std::string& axes,
                                    const image::eImageBufferType& type);
/// Sizes of an image along the axes.
std::vector<npy_intp> sizesOf(const image::BaseImageGeometry& geometry, const std::string& axes);

/// A new array with the image's sizes along `axes`, whose memory is in the order T, C, Z, Y, X, and the image over it.
ArrayImage newImageArray(const std::vector<npy_intp>& sizes, const std::string& axes,
                         const image::eImageBufferType& type);

/// A view of the image's pixels as an array that keeps them alive. A copy where its time steps lie in different memory.
/// TypeError where they differ in type.
nb::object arrayOf(const ImagePtr& image, const std::string& axes);

} // namespace orlix::python
