// orlix.Image: an image of the libraries with the names of its axes.
#pragma once

#include "ArrayImages.h"

namespace orlix::python {

/// Binds the class `Image`.
void bindImage(nb::module_& module);

/// What Python holds. `axes` are the letters in the order of Python's indices, always in the order TCZYX.
struct PyImage
{
    ImagePtr image;
    std::string axes;
    bool bReadOnly = false; ///< over an array that is, or whose elements lie on one another
};
/// The image of an output; ValueError where it is read only.
const ImagePtr& imageToWrite(const PyImage& output);

/// The axes of an image: Y and X always, T of a sequence, Z of a volume, C of several channels.
std::string axesOf(const image::BaseImageGeometry& geometry);
nb::object toPython(const ImagePtr& image);
nb::object toPython(const ImagePtr& image, const std::string& axes);
/// Null where `object` is no Image.
const PyImage* findImage(nb::handle object);

} // namespace orlix::python
