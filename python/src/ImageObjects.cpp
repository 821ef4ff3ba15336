// Images of the libraries as objects of Python, and back.
#include "PyImage.h"

namespace orlix::python {

std::string axesOf(const image::BaseImageGeometry& geometry)
{
    std::string axes;
    if (geometry.getTemporalGeometry().isSequence()) {
        axes += 'T';
    }
    if (geometry.getSizeC() != 1) {
        axes += 'C';
    }
    if (geometry.getVolumeGeometry().is3d()) {
        axes += 'Z';
    }
    return axes + "YX";
}

nb::object toPython(const ImagePtr& image)
{
    return toPython(image, axesOf(image->getGeometry()));
}

nb::object toPython(const ImagePtr& image, const std::string& axes)
{
    return nb::cast(PyImage{image, axes});
}

const ImagePtr& imageToWrite(const PyImage& output)
{
    if (output.bReadOnly) {
        throw nb::value_error("the output is an orlix.Image over an array that is read only or whose elements lie on "
                              "one another: give one that may be written, or no output");
    }
    return output.image;
}

const PyImage* findImage(nb::handle object)
{
    return nb::isinstance<PyImage>(object) ? nb::inst_ptr<PyImage>(object) : nullptr;
}

} // namespace orlix::python
