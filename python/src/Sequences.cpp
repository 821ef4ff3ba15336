// Sequences: append.
#include "ImageCall.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgLvl1.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

using namespace imaproc;
using processor::with;

/// The array with a T axis in front of its own.
nb::object asSequence(nb::handle array)
{
    return array[nb::make_tuple(nb::none(), nb::ellipsis())];
}

nb::object append(nb::handle first, nb::handle second, nb::handle axes, nb::handle out, nb::handle progress)
{
    if (findImage(first) != nullptr || findImage(second) != nullptr) {
        const ImageInput one = takeInput(first, axes, "first");
        const ImageInput other = takeInput(second, axes, "second");
        if (one.bArray || other.bArray) {
            throw nb::type_error("first and second have to be both arrays or both of orlix.Image");
        }
        const ImageOutput output(one, out, {}, {});
        Watch watch(progress, bytesOf(*one.image) + bytesOf(*other.image));
        if (output.getImage()) {
            run<util::AppendSeqImgLvl1>(watch, with<attr::InImg1>(one.image), with<attr::InImg2>(other.image),
                                        with<attr::OutImg>(output.getImage()));
            return output.finish(output.getImage());
        }
        return output.finish(runForOutput<util::AppendSeqImgLvl1, attr::OutImg>(watch, with<attr::InImg1>(one.image),
                                                                                with<attr::InImg2>(other.image)));
    }
    nb::object array1 = takeArray(first, "first");
    nb::object array2 = takeArray(second, "second");
    if (elementTypeOf(asArray(array1)) != elementTypeOf(asArray(array2))) {
        const std::string text = "first is of type " + textOf(array1.attr("dtype")) + ", second of " +
                                 textOf(array2.attr("dtype")) + ": an array has one type, so convert one of them";
        throw nb::type_error(text.c_str());
    }
    std::string letters = axesOf(axes, static_cast<std::size_t>(PyArray_NDIM(asArray(array1))));
    if (letters.find('T') == std::string::npos) {
        letters = "T" + letters;
        array1 = asSequence(array1);
        array2 = asSequence(array2);
    }
    const nb::str ofBoth(letters.c_str());
    const ImageInput one = takeInput(array1, ofBoth, "first");
    const ImageInput other = takeInput(array2, ofBoth, "second");
    std::vector<npy_intp> sizes = sizesOf(one.image->getGeometry(), letters);
    sizes[letters.find('T')] += static_cast<npy_intp>(other.image->getSizeT());
    const ImageOutput output(one, out, sizes, letters);
    Watch watch(progress, bytesOf(*one.image) + bytesOf(*other.image));
    run<util::AppendSeqImgLvl1>(watch, with<attr::InImg1>(one.image), with<attr::InImg2>(other.image),
                                with<attr::OutImg>(output.getImage()));
    return output.finish(output.getImage());
}

} // namespace

void bindSequences(nb::module_& module)
{
    module.def("append", &append, nb::arg("first").none(), nb::arg("second").none(), nb::arg("axes").none(),
               nb::arg("out").none(), nb::arg("progress").none());
}

} // namespace orlix::python
