// Regions: crop and paste.
#include "ImageCall.h"
#include "Operators.h"
#include "Places.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl1.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

using namespace imaproc;
using processor::with;

/// Runs the operator into `out`, or into a new image where that is null.
template <class TProcessor, class... TValues>
ImagePtr runInto(const ImagePtr& out, Watch& watch, const TValues&... values)
{
    if (!out) {
        return runForOutput<TProcessor, attr::OutImg>(watch, values...);
    }
    run<TProcessor>(watch, values..., with<attr::OutImg>(out));
    return out;
}

/// Before memory is taken for a region that doesn't lie in the image.
void requireInside(const image::BaseImageGeometry& image, const Place& place, const Place& sizes)
{
    const auto require = [](char axis, unsigned long first, unsigned long size, unsigned long whole) {
        if (first > whole || size > whole - first) {
            const std::string text = std::string("the region of ") + std::to_string(size) + " from " + axis + " = " +
                                     std::to_string(first) + " on reaches beyond the image, which has " +
                                     std::to_string(whole) + " along " + axis;
            throw nb::value_error(text.c_str());
        }
    };
    require('x', place.x, sizes.x, image.getSizeX());
    require('y', place.y, sizes.y, image.getSizeY());
    if (place.b3d) {
        require('z', place.z, sizes.z, image.getSizeZ());
    }
}

/// The region as a view of the array.
nb::object viewOf(nb::handle array, const std::string& axes, const Place& place, const Place& sizes)
{
    nb::list spans;
    for (const char letter : axes) {
        const auto span = [&](unsigned long first, unsigned long size) {
            spans.append(nb::steal(PySlice_New(nb::int_(first).ptr(), nb::int_(first + size).ptr(), Py_None)));
        };
        if (letter == 'X') {
            span(place.x, sizes.x);
        } else if (letter == 'Y') {
            span(place.y, sizes.y);
        } else if (letter == 'Z' && place.b3d) {
            span(place.z, sizes.z);
        } else {
            spans.append(nb::steal(PySlice_New(Py_None, Py_None, Py_None)));
        }
    }
    return array[nb::tuple(spans)];
}

nb::object crop(nb::handle image, nb::handle at, nb::handle size, nb::handle axes, nb::handle out, nb::handle progress)
{
    const Place place = placeOf(at, "at");
    const Place sizes = placeOf(size, "size");
    if (place.b3d != sizes.b3d) {
        throw nb::value_error("at and size have to have as many numbers, 2 or 3");
    }
    if (findImage(image) == nullptr) {
        const nb::object array = takeArray(image, "image");
        const std::string letters = axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array))));
        requireInside(geometryOf(sizesOf(asArray(array)), letters, elementTypeOf(asArray(array))), place, sizes);
        if (!hasImageOrder(asArray(array), letters)) { // the region alone is gathered
            return copyImage(viewOf(array, letters, place, sizes), out, progress);
        }
    }
    const ImageInput input = takeInput(image, axes, "image");
    requireInside(input.image->getGeometry(), place, sizes);
    std::vector<npy_intp> wanted = sizesOf(input.image->getGeometry(), input.axes);
    for (std::size_t axis = 0; axis < wanted.size(); ++axis) {
        const char letter = input.axes[axis];
        if (letter == 'X') {
            wanted[axis] = static_cast<npy_intp>(sizes.x);
        } else if (letter == 'Y') {
            wanted[axis] = static_cast<npy_intp>(sizes.y);
        } else if (letter == 'Z' && place.b3d) {
            wanted[axis] = static_cast<npy_intp>(sizes.z);
        }
    }
    const ImageOutput output(input, out, wanted, input.axes);
    Watch watch(progress, sizes.x * sizes.y * image::elementSize(input.image->getBufferType()) *
                              input.image->getGeometry().getNbPlans());
    if (!place.b3d) {
        return output.finish(
            runInto<util::GetROI2dImgLvl1>(output.getImage(), watch, with<attr::InImg>(input.image),
                                           with<attr::InInputImg2dOffset>(attr::createImg2dOffset(place.x, place.y)),
                                           with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizes.x, sizes.y))));
    }
    return output.finish(runInto<util::GetROI3dImgLvl1>(
        output.getImage(), watch, with<attr::InImg3d>(input.image),
        with<attr::InInputImg3dOffset>(attr::createImg3dOffset(place.x, place.y, place.z)),
        with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizes.x, sizes.y, sizes.z))));
}

nb::object paste(nb::handle image, nb::handle region, nb::handle at, nb::handle axes, nb::handle out,
                 nb::handle progress)
{
    if (out.is_none() && goesByOwnOrder(image, axes, "image")) {
        const nb::object made = copyImage(image, nb::none(), nb::none());
        return paste(made, region, at, axes, made, progress);
    }
    const Place place = placeOf(at, "at");
    const bool bInPlace = out.is(image);
    const ImageInput input = takeInput(image, axes, "image", bInPlace);
    const ImageInput part = takeInput(region, axes, "region");
    if (input.bArray != part.bArray) {
        throw nb::type_error("image and region have to be both arrays or both of orlix.Image");
    }
    const auto put = [&](const ImagePtr& written) {
        Watch watch(progress, bytesOf(*input.image));
        if (!place.b3d) {
            return runInto<util::PutROI2dImgLvl1>(
                written, watch, with<attr::InImg>(input.image), with<attr::InROIImg>(part.image),
                with<attr::InInputImg2dOffset>(attr::createImg2dOffset(place.x, place.y)));
        }
        return runInto<util::PutROI3dImgLvl1>(
            written, watch, with<attr::InImg3d>(input.image), with<attr::InROIImg3d>(part.image),
            with<attr::InInputImg3dOffset>(attr::createImg3dOffset(place.x, place.y, place.z)));
    };
    if (bInPlace) {
        put(input.image);
        if (input.bArray) {
            input.held.bringBack();
        }
        return nb::borrow(image);
    }
    const ImageOutput output(input, out, sizesOf(input.image->getGeometry(), input.axes), input.axes);
    return output.finish(put(output.getImage()));
}

} // namespace

void bindRegions(nb::module_& module)
{
    module.def("crop", &crop, nb::arg("image").none(), nb::arg("at").none(), nb::arg("size").none(),
               nb::arg("axes").none(), nb::arg("out").none(), nb::arg("progress").none());
    module.def("paste", &paste, nb::arg("image").none(), nb::arg("region").none(), nb::arg("at").none(),
               nb::arg("axes").none(), nb::arg("out").none(), nb::arg("progress").none());
}

} // namespace orlix::python
