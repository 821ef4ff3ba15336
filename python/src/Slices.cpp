// Slices of volumes: get_slice, put_slice.
#include "Arguments.h"
#include "ImageCall.h"
#include "Operators.h"
#include "Places.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"

#include <nanobind/stl/string.h>

#include <algorithm>

namespace orlix::python {

namespace {

using namespace imaproc;
using processor::with;

unsigned long sizeAlong(const image::BaseImage& volume, unsigned axis)
{
    return axis == 0 ? volume.getSizeX() : axis == 1 ? volume.getSizeY() : volume.getSizeZ();
}

/// The axes of a slice: those of the volume without one. What remains of x, y and z is x and y of the slice.
struct SliceAxes
{
    std::string ofArray;
    std::string ofImage;
};
SliceAxes sliceAxes(const std::string& axes, unsigned axis)
{
    SliceAxes slice;
    for (const char letter : axes) {
        if (letter == static_cast<char>('X' + axis)) {
            continue;
        }
        slice.ofArray += letter;
        const bool bDown = letter == 'Z' || (letter == 'Y' && axis != 0);
        slice.ofImage += letter == 'Z' || letter == 'Y' ? (bDown ? 'Y' : 'X') : letter;
    }
    return slice;
}

void requireVolume(const ImageInput& input)
{
    if (input.axes.find('Z') == std::string::npos) {
        const std::string text = "the volume has axes " + input.axes + ": a Z axis is needed";
        throw nb::value_error(text.c_str());
    }
}

void require(const ProcessingResult<bool>& result)
{
    if (!result) {
        processor::details::throwRunFailed(result);
    }
}

/// The slice as a view of an array that no image can be laid over; invalid for any other, and where there is none.
nb::object viewOf(nb::handle volume, unsigned across, long index, nb::handle axes)
{
    if (findImage(volume) != nullptr) {
        return {};
    }
    const nb::object array = takeArray(volume, "volume");
    const std::string letters = axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array))));
    const std::size_t place = letters.find(static_cast<char>('X' + across));
    if (letters.find('Z') == std::string::npos || place == std::string::npos || letters.size() < 2 ||
        hasImageOrder(asArray(array), letters)) {
        return {};
    }
    const auto size = static_cast<unsigned long>(PyArray_DIM(asArray(array), static_cast<int>(place)));
    nb::list key;
    for (std::size_t axis = 0; axis < place; ++axis) {
        key.append(nb::steal(PySlice_New(Py_None, Py_None, Py_None)));
    }
    key.append(indexWithin(index, size, "slice"));
    return array[nb::tuple(key)];
}

nb::object getSlice(nb::handle volume, nb::handle axis, nb::handle index, nb::handle axes, nb::handle out,
                    nb::handle progress)
{
    const unsigned across = axisNamed(textOf(axis, "axis"));
    const long place = indexOf(index, "index");
    if (const nb::object view = viewOf(volume, across, place, axes); view.is_valid()) { // the slice alone is gathered
        return copyImage(view, out, progress);
    }
    const ImageInput input = takeInput(volume, axes, "volume");
    requireVolume(input);
    const unsigned long number = indexWithin(place, sizeAlong(*input.image, across), "slice");
    const SliceAxes slice = sliceAxes(input.axes, across);
    const ImageOutput output(input, out, sizesOf(input.image->getGeometry(), slice.ofArray), slice.ofImage);
    const eAxis which = static_cast<eAxis::domain>(across);
    Watch watch(progress, bytesOf(*input.image) / sizeAlong(*input.image, across));
    if (!output.getImage()) {
        return output.finish(runForOutput<util::GetSlice3dImgLvl1, attr::OutImg2d>(
            watch, with<attr::InImg3d>(input.image), with<attr::InAxis>(which), with<attr::InSliceIndex>(number)));
    }
    run<util::GetSlice3dImgLvl1>(watch, with<attr::InImg3d>(input.image), with<attr::InAxis>(which),
                                 with<attr::InSliceIndex>(number), with<attr::OutImg2d>(output.getImage()));
    return output.finish(output.getImage());
}

nb::object putSlice(nb::handle volume, nb::handle plane, nb::handle axis, nb::handle index, nb::handle axes,
                    nb::handle out, nb::handle progress)
{
    if (out.is_none() && goesByOwnOrder(volume, axes, "volume")) {
        const nb::object made = copyImage(volume, nb::none(), nb::none());
        return putSlice(made, plane, axis, index, axes, made, progress);
    }
    const unsigned across = axisNamed(textOf(axis, "axis"));
    const long place = indexOf(index, "index");
    const bool bInPlace = out.is(volume);
    const ImageInput input = takeInput(volume, axes, "volume", bInPlace);
    requireVolume(input);
    const unsigned long number = indexWithin(place, sizeAlong(*input.image, across), "slice");
    const nb::object planeAxes =
        input.bArray ? nb::object(nb::str(sliceAxes(input.axes, across).ofImage.c_str())) : nb::object(nb::none());
    const ImageInput slice = takeInput(plane, planeAxes, "plane");
    if (input.bArray != slice.bArray) {
        throw nb::type_error("volume and plane have to be both arrays or both of orlix.Image");
    }
    const eAxis which = static_cast<eAxis::domain>(across);
    require(util::takesSlice(*input.image, *slice.image, which, number));
    const auto put = [&](const ImagePtr& written) {
        Watch watch(progress, bytesOf(*input.image));
        run<util::PutSlice3dImgLvl1>(watch, with<attr::InImg3d>(input.image), with<attr::InImg2d>(slice.image),
                                     with<attr::InAxis>(which), with<attr::InSliceIndex>(number),
                                     with<attr::OutImg>(written));
        return written;
    };
    if (bInPlace) {
        put(input.image);
        if (input.bArray) {
            input.held.bringBack();
        }
        return nb::borrow(volume);
    }
    const ImageOutput output(input, out, sizesOf(input.image->getGeometry(), input.axes), input.axes);
    if (output.getImage()) {
        return output.finish(put(output.getImage()));
    }
    Watch watch(progress, bytesOf(*input.image));
    return output.finish(runForOutput<util::PutSlice3dImgLvl1, attr::OutImg>(
        watch, with<attr::InImg3d>(input.image), with<attr::InImg2d>(slice.image), with<attr::InAxis>(which),
        with<attr::InSliceIndex>(number)));
}

} // namespace

void bindSlices(nb::module_& module)
{
    module.def("get_slice", &getSlice, nb::arg("volume").none(), nb::arg("axis").none(), nb::arg("index").none(),
               nb::arg("axes").none(), nb::arg("out").none(), nb::arg("progress").none());
    module.def("put_slice", &putSlice, nb::arg("volume").none(), nb::arg("plane").none(), nb::arg("axis").none(),
               nb::arg("index").none(), nb::arg("axes").none(), nb::arg("out").none(), nb::arg("progress").none());
}

} // namespace orlix::python
