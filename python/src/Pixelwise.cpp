// Operators that look at each pixel by itself: copy, erase, threshold, convert, compare.
#include "Operators.h"

#include "Comparisons.h"
#include "PyImage.h"
#include "WalkedArrays.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"

#include <nanobind/stl/string.h>

#include <optional>

namespace orlix::python {

namespace {

using namespace imaproc;
using image::eImageBufferType;
using processor::with;

bool haveSameSizes(PyArrayObject* one, PyArrayObject* other)
{
    return sizesOf(one) == sizesOf(other);
}

std::string shapeText(nb::handle array)
{
    return textOf(array.attr("shape"));
}

/// The array to write to: `out`, checked against input and type, or a new one.
nb::object outputFor(nb::handle array, nb::handle out, const eImageBufferType& type)
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
    return given->image;
}

/// Runs `operation(in, out, watch)` on an Image, where it makes a null `out` itself, or on an array.
template <class TOperation>
nb::object apply(nb::handle image, nb::handle out, const std::optional<eImageBufferType>& type, nb::handle progress,
                 const TOperation& operation)
{
    if (const PyImage* const given = findImage(image)) {
        Watch watch(progress, bytesOf(*given->image));
        const ImagePtr output = imageOutput(out);
        const ImagePtr made = operation(given->image, output, watch);
        return output ? nb::borrow(out) : toPython(made, given->axes);
    }
    const nb::object array = takeArray(image, "image");
    const nb::object output = outputFor(array, out, type.value_or(elementTypeOf(asArray(array))));
    if (PyArray_SIZE(asArray(array)) == 0) {
        return output;
    }
    const WalkedArrays walked({array, output}, true);
    const ImagePtr in = walked.imageOf(0);
    Watch watch(progress, bytesOf(*in));
    operation(in, walked.imageOf(1), watch);
    walked.bringBack();
    return output;
}

nb::object copy(nb::handle image, nb::handle out, nb::handle progress)
{
    return apply(image, out, {}, progress, [](const ImagePtr& in, const ImagePtr& output, Watch& watch) {
        if (!output) {
            return runForOutput<util::CopyImgLvl1, attr::OutImg>(watch, with<attr::InImg>(in));
        }
        run<util::CopyImgLvl1>(watch, with<attr::InImg>(in), with<attr::OutImg>(output));
        return output;
    });
}

nb::object convert(nb::handle image, nb::handle dtype, nb::handle out, nb::handle progress)
{
    const eImageBufferType type = elementTypeNamed(dtype);
    return apply(image, out, type, progress, [&](const ImagePtr& in, const ImagePtr& output, Watch& watch) {
        if (!output) {
            return runForOutput<util::ConvertImgLvl1, attr::OutImg>(watch, with<attr::InImg>(in),
                                                                    with<attr::InConvertImageBufferType>(type));
        }
        if (output->getBufferType() != type) {
            throw nb::type_error("out is of another element type than dtype says");
        }
        run<util::ConvertImgLvl1>(watch, with<attr::InImg>(in), with<attr::InConvertImageBufferType>(type),
                                  with<attr::OutImg>(output));
        return output;
    });
}

nb::object threshold(nb::handle image, double low, double high, nb::handle out, nb::handle progress)
{
    return apply(image, out, eImageBufferType::eBufferBinary, progress,
                 [&](const ImagePtr& in, const ImagePtr& output, Watch& watch) {
                     if (!output) {
                         return runForOutput<util::BasicThresholdImgLvl1, attr::OutBinImg>(
                             watch, with<attr::InImg>(in), with<attr::InThresholdMin>(low),
                             with<attr::InThresholdMax>(high));
                     }
                     run<util::BasicThresholdImgLvl1>(watch, with<attr::InImg>(in), with<attr::InThresholdMin>(low),
                                                      with<attr::InThresholdMax>(high), with<attr::OutBinImg>(output));
                     return output;
                 });
}

nb::object erase(nb::handle image, double value, nb::handle progress)
{
    const auto fill = [&](const ImagePtr& output) {
        Watch watch(progress, bytesOf(*output));
        run<util::EraseImgLvl1>(watch, with<attr::InOptEraseValue>(value), with<attr::OutImg>(output));
    };
    if (const PyImage* const given = findImage(image)) {
        fill(given->image);
        return nb::borrow(image);
    }
    const nb::object array = takeArray(image, "image");
    elementTypeOf(asArray(array));
    requireWritable(asArray(array));
    if (PyArray_SIZE(asArray(array)) != 0) {
        const WalkedArrays walked({array}, true);
        fill(walked.imageOf(0));
        walked.bringBack();
    }
    return nb::borrow(image);
}

boost::shared_ptr<const attr::ImgComparisonTolerance> toleranceOf(nb::handle absolute, nb::handle relative)
{
    boost::shared_ptr<const attr::ImgComparisonTolerance> tolerance;
    if (!absolute.is_none() && !relative.is_none()) {
        tolerance = attr::createImgComparisonTolerance(nb::cast<float>(absolute), nb::cast<float>(relative));
    } else if (!absolute.is_none()) {
        tolerance = attr::createImgComparisonAbsoluteTolerance(nb::cast<float>(absolute));
    } else if (!relative.is_none()) {
        tolerance = attr::createImgComparisonRelativeTolerance(nb::cast<float>(relative));
    } else {
        return attr::createImgComparisonNoTolerance();
    }
    if (const std::string flaw = tolerance->findFlaw(); !flaw.empty()) {
        throw nb::value_error(flaw.c_str());
    }
    return tolerance;
}

nb::object compare(nb::handle one, nb::handle other, nb::handle absolute, nb::handle relative, nb::handle progress)
{
    const auto tolerance = toleranceOf(absolute, relative);
    const auto compareImages = [&](const ImagePtr& a, const ImagePtr& b) {
        Watch watch(progress, bytesOf(*a) + bytesOf(*b));
        return runForOutput<util::CompareImgLvl1, attr::OutCompareResult>(
            watch, with<attr::InImg1>(a), with<attr::InImg2>(b), with<attr::InOptImgComparisonTolerance>(tolerance));
    };
    const PyImage* const a = findImage(one);
    const PyImage* const b = findImage(other);
    if (a != nullptr && b != nullptr) {
        const auto result = compareImages(a->image, b->image);
        return comparisonOf(*result, indexOf(result->firstDifference, a->axes));
    }
    if (a != nullptr || b != nullptr) {
        throw nb::type_error("an orlix.Image is compared with another one, and an array with an array");
    }
    const nb::object array1 = takeArray(one, "a");
    const nb::object array2 = takeArray(other, "b");
    if (elementTypeOf(asArray(array1)) != elementTypeOf(asArray(array2))) {
        const std::string text = "a is of type " + textOf(array1.attr("dtype")) + ", b of " +
                                 textOf(array2.attr("dtype")) + ": convert one of them";
        throw nb::type_error(text.c_str());
    }
    if (!haveSameSizes(asArray(array1), asArray(array2))) {
        const std::string text = "a has the shape " + shapeText(array1) + ", b " + shapeText(array2);
        throw nb::value_error(text.c_str());
    }
    if (PyArray_SIZE(asArray(array1)) == 0) {
        return nb::make_tuple(true, 0, 0, nb::none(), nb::none());
    }
    const WalkedArrays walked({array1, array2}, false);
    const auto result = compareImages(walked.imageOf(0), walked.imageOf(1));
    return comparisonOf(*result, result->hasFirstDifference() ? walked.indexOf(0, result->firstDifference)
                                                              : nb::object(nb::none()));
}

} // namespace

void bindPixelwise(nb::module_& module)
{
    module.def("copy", &copy, nb::arg("image"), nb::arg("out").none(), nb::arg("progress").none());
    module.def("erase", &erase, nb::arg("image"), nb::arg("value"), nb::arg("progress").none());
    module.def("threshold", &threshold, nb::arg("image"), nb::arg("low"), nb::arg("high"), nb::arg("out").none(),
               nb::arg("progress").none());
    module.def("convert", &convert, nb::arg("image"), nb::arg("dtype").none(), nb::arg("out").none(),
               nb::arg("progress").none());
    module.def("compare", &compare, nb::arg("a"), nb::arg("b"), nb::arg("absolute").none(), nb::arg("relative").none(),
               nb::arg("progress").none());
}

} // namespace orlix::python
