// copy, erase, threshold, convert: on images, and on arrays of any shape.
#include "Operators.h"

#include "Arguments.h"
#include "PixelwiseCall.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

namespace orlix::python {

namespace {

using namespace imaproc;
using image::eImageBufferType;
using processor::with;

nb::object convert(nb::handle image, nb::handle dtype, nb::handle out, nb::handle progress)
{
    const eImageBufferType type = elementTypeNamed(dtype);
    if (!isArray(image) && findImage(image) != nullptr) {
        const ImagePtr output = imageOutput(out);
        if (output && output->getBufferType() != type) {
            throw nb::type_error("out is of another element type than dtype says");
        }
    }
    return applyPixelwise<util::ConvertImgLvl1, attr::InImg, attr::OutImg>(image, out, type, progress,
                                                                           with<attr::InConvertImageBufferType>(type));
}

nb::object threshold(nb::handle image, nb::handle low, nb::handle high, nb::handle out, nb::handle progress)
{
    return applyPixelwise<util::BasicThresholdImgLvl1, attr::InImg, attr::OutBinImg>(
        image, out, eImageBufferType::eBufferBinary, progress, with<attr::InThresholdMin>(numberOf(low, "low")),
        with<attr::InThresholdMax>(numberOf(high, "high")));
}

void eraseArray(const nb::object& array, double value, nb::handle progress)
{
    const auto fill = [&](Watch& watch, const ImagePtr& output) {
        run<util::EraseImgLvl1>(watch, with<attr::InOptEraseValue>(value), with<attr::OutImg>(output));
    };
    const WalkedArrays walked({array});
    if (!walked.isWrapped()) {
        applyToBlocks(std::span(&array, 1), progress,
                      [&](const ArrayBlocks& blocks, Watch& watch) { fill(watch, blocks.imageOf(0)); });
        return;
    }
    Watch watch(progress, static_cast<unsigned long>(PyArray_NBYTES(asArray(array))));
    image::WrappedImage output = walked.wrap(0);
    if (!runStraight<util::EraseImgLvl1>(watch, with<attr::InOptEraseValue>(value),
                                         with<attr::OutImg>(output.lend()))) {
        fill(watch, walked.imageOf(0));
    }
}

nb::object erase(nb::handle image, nb::handle value, nb::handle progress)
{
    const double number = numberOf(value, "value");
    if (const PyImage* const given = isArray(image) ? nullptr : findImage(image)) {
        Watch watch(progress, bytesOf(*given->image));
        run<util::EraseImgLvl1>(watch, with<attr::InOptEraseValue>(number), with<attr::OutImg>(imageToWrite(*given)));
        return nb::borrow(image);
    }
    const nb::object array = takeArray(image, "image");
    elementTypeOf(asArray(array));
    requireWritable(asArray(array));
    if (PyArray_SIZE(asArray(array)) != 0) {
        eraseArray(array, number, progress);
    }
    return nb::borrow(image);
}

} // namespace

nb::object copyImage(nb::handle array, nb::handle out, nb::handle progress)
{
    return applyPixelwise<util::CopyImgLvl1, attr::InImg, attr::OutImg>(array, out, {}, progress);
}

void bindPixelwise(nb::module_& module)
{
    module.def("copy", &copyImage, nb::arg("image").none(), nb::arg("out").none(), nb::arg("progress").none());
    module.def("erase", &erase, nb::arg("image").none(), nb::arg("value").none(), nb::arg("progress").none());
    module.def("threshold", &threshold, nb::arg("image").none(), nb::arg("low").none(), nb::arg("high").none(),
               nb::arg("out").none(), nb::arg("progress").none());
    module.def("convert", &convert, nb::arg("image").none(), nb::arg("dtype").none(), nb::arg("out").none(),
               nb::arg("progress").none());
}

} // namespace orlix::python
