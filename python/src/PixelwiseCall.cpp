// Outputs of operators that look at each pixel by itself.
#include "PixelwiseCall.h"

#include <nanobind/stl/string.h>

#include <algorithm>

namespace orlix::python {

bool haveSameSizes(PyArrayObject* one, PyArrayObject* other)
{
    return PyArray_NDIM(one) == PyArray_NDIM(other) &&
           std::equal(PyArray_DIMS(one), PyArray_DIMS(one) + PyArray_NDIM(one), PyArray_DIMS(other));
}

std::string shapeText(nb::handle array)
{
    return textOf(array.attr("shape"));
}

nb::object outputFor(nb::handle array, nb::handle out, const image::eImageBufferType& type)
{
    if (out.is_none()) {
        return newArrayLike(asArray(array), type);
    }
    const nb::object output = takeArray(out, "out");
    if (elementTypeOf(asArray(output)) != type) {
        const std::string text =
            "out is of type " + textOf(output.attr("dtype")) + ", the result is " + textOf(dtypeOf(type));
        throw nb::type_error(text.c_str());
    }
    if (!haveSameSizes(asArray(array), asArray(output))) {
        const std::string text = "out has the shape " + shapeText(output) + ", the input " + shapeText(array);
        throw nb::value_error(text.c_str());
    }
    requireWritable(asArray(output));
    const ArrayMemory in = memoryOf(asArray(array));
    const ArrayMemory written = memoryOf(asArray(output));
    const bool bSame = in.data == written.data && in.elementBytes == written.elementBytes &&
                       std::equal(in.strides.begin(), in.strides.end(), written.strides.begin());
    if (!bSame && mayOverlap(in, written)) {
        throw nb::value_error("out overlaps the input: give the same array, or one that shares no memory with it");
    }
    return output;
}

ImagePtr imageOutput(nb::handle out)
{
    if (out.is_none()) {
        return {};
    }
    const PyImage* const given = findImage(out);
    if (given == nullptr) {
        throw nb::type_error("the input is an orlix.Image, so out has to be one too");
    }
    return imageToWrite(*given);
}

} // namespace orlix::python
