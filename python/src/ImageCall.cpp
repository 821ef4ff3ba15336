// Inputs and outputs of functions for which axes mean something.
#include "ImageCall.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

ImageInput takeInput(nb::handle object, nb::handle axes, const char* what, bool bWritten)
{
    if (const PyImage* const given = findImage(object)) {
        if (!axes.is_none()) {
            throw nb::type_error("axes are for arrays: an orlix.Image knows its own");
        }
        return {bWritten ? imageToWrite(*given) : given->image, given->axes, false, {}};
    }
    const nb::object array = takeArray(object, what);
    const std::string letters = axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array))));
    ArrayImage held = imageOf(array, letters, bWritten);
    return {held.image, letters, true, held};
}

bool goesByOwnOrder(nb::handle object, nb::handle axes, const char* what)
{
    if (findImage(object) != nullptr) {
        return false;
    }
    const nb::object array = takeArray(object, what);
    return !hasImageOrder(asArray(array), axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array)))));
}

namespace {

/// Of as many axes as the input it lies like that, else in the order of an image.
ArrayImage newOutput(const ImageInput& input, const std::vector<npy_intp>& sizes, const std::string& axes,
                     const image::eImageBufferType& type)
{
    PyArrayObject* const array = asArray(input.held.array);
    if (static_cast<std::size_t>(PyArray_NDIM(array)) != sizes.size()) {
        return newImageArray(sizes, axes, type);
    }
    return imageOf(newArray(sizes, axesInMemoryOrder(array), type), axes, true);
}

} // namespace

ImageOutput::ImageOutput(const ImageInput& input, nb::handle out, const std::vector<npy_intp>& sizes,
                         const std::string& imageAxes)
    : m_bArray(input.bArray)
{
    if (!m_bArray) {
        if (!out.is_none()) {
            const PyImage* const given = findImage(out);
            if (given == nullptr) {
                throw nb::type_error("the input is an orlix.Image, so out has to be one too");
            }
            m_given = nb::borrow(out);
            m_image = imageToWrite(*given);
        }
        return;
    }
    const image::eImageBufferType type = input.image->getBufferType();
    if (out.is_none()) {
        m_held = newOutput(input, sizes, imageAxes, type);
    } else {
        const nb::object array = takeArray(out, "out");
        if (elementTypeOf(asArray(array)) != type || sizesOf(asArray(array)) != sizes) {
            const nb::object wanted = nb::tuple(nb::cast<nb::list>([&] {
                nb::list list;
                for (const npy_intp size : sizes) {
                    list.append(size);
                }
                return list;
            }()));
            const std::string text = "out has the shape " + textOf(array.attr("shape")) + " and type " +
                                     textOf(array.attr("dtype")) + ", the result " + textOf(wanted) + " and " +
                                     textOf(dtypeOf(type));
            throw nb::value_error(text.c_str());
        }
        if (mayOverlap(memoryOf(asArray(array)), memoryOf(asArray(input.held.memory))) && !array.is(input.held.array)) {
            throw nb::value_error("out overlaps the input: give an array that shares no memory with it");
        }
        m_held = imageOf(array, imageAxes, true);
    }
    m_image = m_held.image;
}

nb::object ImageOutput::finish(const ImagePtr& image) const
{
    if (!m_bArray) {
        return m_image ? m_given : toPython(image);
    }
    m_held.bringBack();
    return m_held.array;
}

} // namespace orlix::python
