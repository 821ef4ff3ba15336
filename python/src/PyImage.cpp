// orlix.Image: an image of the libraries with the names of its axes.
#include "PyImage.h"

#include "Arguments.h"
#include "ImageCalibration.h"

#include <nanobind/stl/string.h>

#include <optional>

namespace orlix::python {

namespace {

using image::eImageBufferType;

nb::tuple shapeOf(const PyImage& self)
{
    nb::list sizes;
    for (const npy_intp size : sizesOf(self.image->getGeometry(), self.axes)) {
        sizes.append(size);
    }
    return nb::tuple(sizes);
}

/// Another image over the same pixels, told by a geometry of the same sizes, that keeps `owner`.
ImagePtr wrapAnew(const ImagePtr& image, const image::BaseImageGeometry& geometry, const boost::shared_ptr<void>& owner)
{
    if (geometry.getNbPixels() == 0) {
        return image::createImage(geometry);
    }
    // Whether pixels lie on one another was settled when the first image was laid over the array.
    return boost::const_pointer_cast<image::BaseImage>(
        image::wrapConstImage(geometry, image->getPixelLayout().first, image::elementStrides(*image), owner));
}

/// The same memory with another element type of the same bytes: what NumPy has no type for.
ImagePtr withType(const ImagePtr& image, const eImageBufferType& type)
{
    if (type == image->getBufferType()) {
        return image;
    }
    if (typeNumberOf(type) != typeNumberOf(image->getBufferType())) {
        const std::string text = std::string("element type ") + image::getBufferTypeName(type) +
                                 " doesn't go with an array of " + image::getBufferTypeName(image->getBufferType());
        throw nb::type_error(text.c_str());
    }
    const image::BaseImageGeometry& geometry = image->getGeometry();
    const image::BaseImageGeometry typed(type, geometry.getSizeX(), geometry.getSizeY(), geometry.getVolumeGeometry(),
                                         geometry.getColorGeometry(), geometry.getTemporalGeometry());
    return wrapAnew(image, typed, image);
}

/// Keeps an array for as long as an image lies over its elements, and lets it go under the interpreter's lock.
boost::shared_ptr<void> keep(nb::object array)
{
    return {array.release().ptr(), [](PyObject* held) {
                const nb::gil_scoped_acquire lock;
                Py_DECREF(held);
            }};
}

void initImage(PyImage* self, nb::handle data, nb::handle axes, nb::handle pixelSize, nb::handle unit,
               nb::handle origin, nb::handle elementType)
{
    const nb::object array = takeArray(data, "data");
    std::string letters = axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array))));
    const ArrayImage whole = imageOf(array, letters, false);
    const ImagePtr wrapped = whole.image;
    const ImagePtr owning = wrapAnew(wrapped, wrapped->getGeometry(), keep(whole.memory));
    std::string ordered;
    for (const char letter : std::string("TCZYX")) {
        if (letters.find(letter) != std::string::npos || letter == 'Y' || letter == 'X') {
            ordered += letter;
        }
    }
    const bool bReadOnly = !PyArray_ISWRITEABLE(asArray(whole.memory)) || !isDistinct(asArray(whole.memory));
    PyImage made{elementType.is_none() ? owning : withType(owning, elementTypeNamed(elementType)), ordered, bReadOnly};
    calibrate(made, pixelSize, unit, origin);
    std::construct_at(self, std::move(made));
}

/// A view of the pixels, read only where they are.
nb::object pixelsOf(const PyImage& self)
{
    nb::object array = arrayOf(self.image, self.axes);
    if (self.bReadOnly) {
        PyArray_CLEARFLAGS(asArray(array), NPY_ARRAY_WRITEABLE);
    }
    return array;
}

nb::object arrayOfImage(const PyImage& self, nb::handle dtype, nb::handle copy)
{
    nb::object array = pixelsOf(self);
    if (!dtype.is_none()) {
        array = array.attr("astype")(dtype, nb::arg("copy") = false);
    }
    const bool bCopy = !copy.is_none() && nb::cast<bool>(copy);
    return bCopy ? array.attr("copy")() : array;
}

std::string describe(const PyImage& self)
{
    std::string text = "<orlix.Image " + self.axes + " (";
    const std::vector<npy_intp> sizes = sizesOf(self.image->getGeometry(), self.axes);
    for (std::size_t axis = 0; axis < sizes.size(); ++axis) {
        text += (axis > 0 ? ", " : "") + std::to_string(sizes[axis]);
    }
    return text + ") " + image::getBufferTypeName(self.image->getBufferType()) + ">";
}

} // namespace

void bindImage(nb::module_& module)
{
    nb::class_<PyImage>(module, "Image",
                        R"(An image of up to five axes, with element type and calibration.

Functions of this package take images and arrays alike, and give back what they were given. An image knows more than
an array: the names of its axes, the size of its pixels, and element types that NumPy doesn't have.

Parameters
----------
data : array_like
    The pixels. Memory is shared, whatever the strides; a copy is made of elements in foreign byte order or beside
    their alignment. An image over an array that is read only, or whose elements lie on one another, is read only too.
axes : str, optional
    The axes of `data`, letters of TCZYX. The last ones of TCZYX by default.
pixel_size : sequence of float, optional
    Size of a pixel along (y, x), or (z, y, x) where there is a Z axis.
unit : str, optional
    Of the pixel size, such as "um".
origin : sequence of float, optional
    Position of the corner of the first pixel, in the same order and unit.
element_type : str or dtype, optional
    Name of an element type for the bytes of `data`, such as "UInt16Like".

Raises
------
TypeError
    Elements of another type than the eight, or an element type that doesn't go with them.
ValueError
    Axes that don't fit the data.

See Also
--------
read : Reads one from a file.

Examples
--------
>>> image = orlix.Image(np.zeros((3, 4, 6), np.uint8), "CYX", pixel_size=(0.5, 0.5), unit="um")
>>> image
<orlix.Image CYX (3, 4, 6) UInt8>
>>> orlix.crop(image, (1, 2), (2, 4)).origin
(0.5, 1.0)
>>> np.asarray(image).shape
(3, 4, 6)
)")
        .def("__init__", &initImage, nb::arg("data").none(), nb::arg("axes") = nb::none(), nb::kw_only(),
             nb::arg("pixel_size") = nb::none(), nb::arg("unit") = nb::none(), nb::arg("origin") = nb::none(),
             nb::arg("element_type") = nb::none())
        .def_prop_ro(
            "axes", [](const PyImage& self) { return self.axes; }, "Letters of the axes, in the order of `shape`.")
        .def_prop_ro("shape", &shapeOf, "Number of pixels along each axis.")
        .def_prop_ro(
            "ndim", [](const PyImage& self) { return self.axes.size(); }, "Number of axes.")
        .def_prop_ro(
            "size", [](const PyImage& self) { return self.image->getGeometry().getNbPixels(); }, "Number of elements.")
        .def_prop_ro(
            "dtype", [](const PyImage& self) { return dtypeOf(self.image->getBufferType()); },
            "NumPy's type of the elements; of the first time step where they differ.")
        .def_prop_ro(
            "element_type",
            [](const PyImage& self) { return std::string(image::getBufferTypeName(self.image->getBufferType())); },
            "Name of the element type, also of those that NumPy lacks.")
        .def_prop_ro("pixel_size", nb::overload_cast<const PyImage&>(&pixelSizeOf),
                     "Size of a pixel along (y, x) or (z, y, x); None where nothing is known.")
        .def_prop_ro("origin", &originOf, "Position of the corner of the first pixel, as `pixel_size`.")
        .def_prop_ro("unit", &unitOf, "Unit of `pixel_size` and `origin`; None where nothing is known.")
        .def("__array__", &arrayOfImage, nb::arg("dtype") = nb::none(), nb::kw_only(), nb::arg("copy") = nb::none(),
             "The pixels as an array that shares their memory.")
        .def("__dlpack__", [](const PyImage& self,
                              const nb::kwargs& options) { return pixelsOf(self).attr("__dlpack__")(**options); })
        .def("__dlpack_device__", [](const PyImage&) { return nb::make_tuple(1, 0); })
        .def_prop_ro("__array_interface__",
                     [](const PyImage& self) { return pixelsOf(self).attr("__array_interface__"); })
        .def("__reduce__",
             [](nb::handle_t<PyImage> self) {
                 const PyImage& image = *nb::inst_ptr<PyImage>(self);
                 return nb::make_tuple(nb::module_::import_("orlix._image").attr("restore"),
                                       nb::make_tuple(arrayOf(image.image, image.axes), image.axes, pixelSizeOf(image),
                                                      unitOf(image), originOf(image),
                                                      image::getBufferTypeName(image.image->getBufferType())));
             })
        .def("__repr__", &describe);
}

} // namespace orlix::python
