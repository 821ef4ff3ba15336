// Operators that look at each pixel by itself: copy, erase, threshold, convert, compare.
#include "Operators.h"

#include "ArrayBlocks.h"
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
    return PyArray_NDIM(one) == PyArray_NDIM(other) &&
           std::equal(PyArray_DIMS(one), PyArray_DIMS(one) + PyArray_NDIM(one), PyArray_DIMS(other));
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
    return imageToWrite(*given);
}

/// Runs `operation(images, watch)` on arrays of the same sizes, the last of which is written.
template <class TOperation>
void applyToArrays(std::initializer_list<nb::object> arrays, nb::handle progress, const TOperation& operation)
{
    const nb::object& output = *(arrays.end() - 1);
    ArrayBlocks blocks(arrays, true);
    requireDistinct(asArray(output));
    Watch watch(progress, blocks.getSize() * static_cast<unsigned long>(PyArray_ITEMSIZE(asArray(output))));
    while (blocks.next()) {
        Watch ofBlock(nb::none(), blocks.getBlockBytes());
        operation(blocks, ofBlock);
        blocks.bringBack();
        watch.lookBetween(blocks.getDone(), blocks.getSize());
    }
}

/// Runs `operation(in, out, watch)` on an Image, where it makes a null `out` itself, or on an array.
template <class TOperation>
nb::object apply(nb::handle image, nb::handle out, const std::optional<eImageBufferType>& type, nb::handle progress,
                 const TOperation& operation)
{
    // Arrays first: they may be so small that asking for an Image takes longer than the work.
    if (const PyImage* const given = isArray(image) ? nullptr : findImage(image)) {
        Watch watch(progress, bytesOf(*given->image));
        const ImagePtr output = imageOutput(out);
        const ImagePtr made = operation(given->image, output, watch);
        return output ? nb::borrow(out) : toPython(made, given->axes);
    }
    const nb::object array = takeArray(image, "image");
    nb::object output = outputFor(array, out, type.value_or(elementTypeOf(asArray(array))));
    if (PyArray_SIZE(asArray(array)) == 0) {
        return output;
    }
    const WalkedArrays walked({array, output});
    if (walked.isWrapped()) {
        Watch watch(progress, static_cast<unsigned long>(PyArray_NBYTES(asArray(array))));
        operation(walked.imageOf(0), walked.imageOf(1), watch);
    } else {
        applyToArrays({array, output}, progress, [&](const ArrayBlocks& blocks, Watch& watch) {
            operation(blocks.imageOf(0), blocks.imageOf(1), watch);
        });
    }
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
    const auto fill = [&](const ImagePtr& output, Watch& watch) {
        run<util::EraseImgLvl1>(watch, with<attr::InOptEraseValue>(value), with<attr::OutImg>(output));
    };
    if (const PyImage* const given = findImage(image)) {
        Watch watch(progress, bytesOf(*given->image));
        fill(imageToWrite(*given), watch);
        return nb::borrow(image);
    }
    const nb::object array = takeArray(image, "image");
    elementTypeOf(asArray(array));
    requireWritable(asArray(array));
    if (PyArray_SIZE(asArray(array)) != 0) {
        const WalkedArrays walked({array});
        if (walked.isWrapped()) {
            Watch watch(progress, static_cast<unsigned long>(PyArray_NBYTES(asArray(array))));
            fill(walked.imageOf(0), watch);
        } else {
            applyToArrays({array}, progress,
                          [&](const ArrayBlocks& blocks, Watch& watch) { fill(blocks.imageOf(0), watch); });
        }
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

using CompareResultPtr = boost::shared_ptr<const attr::CompareResult>;

/// Compares arrays block by block; `compareImages(a, b, watch)` compares the images of a block.
template <class TCompare>
nb::object compareBlocks(const nb::object& one, const nb::object& other, nb::handle progress,
                         const TCompare& compareImages)
{
    const std::array<nb::object, 2> arrays = {one, other};
    ArrayBlocks blocks(arrays, false);
    Watch watch(progress, blocks.getSize() * 2 * static_cast<unsigned long>(PyArray_ITEMSIZE(asArray(one))));
    attr::CompareResult all;
    all.identical = true;
    all.nbDifferentPixels = 0;
    all.nbComparedPixels = blocks.getSize();
    nb::object index = nb::none();
    while (blocks.next()) {
        Watch ofBlock(nb::none(), blocks.getBlockBytes());
        const CompareResultPtr result = compareImages(blocks.imageOf(0), blocks.imageOf(1), ofBlock);
        all.nbDifferentPixels += result->nbDifferentPixels;
        if (all.identical && result->hasFirstDifference()) {
            all.identical = false;
            all.firstDifference = result->firstDifference;
            all.firstValue1 = result->firstValue1;
            all.firstValue2 = result->firstValue2;
            index = blocks.indexOf(result->firstDifference.x, result->firstDifference.y);
        }
        watch.lookBetween(blocks.getDone(), blocks.getSize());
    }
    return comparisonOf(all, index);
}

/// Types and sizes of both have to be the same.
void requireAlike(const nb::object& one, const nb::object& other)
{
    if (elementTypeOf(asArray(one)) != elementTypeOf(asArray(other))) {
        const std::string text = "a is of type " + textOf(one.attr("dtype")) + ", b of " + textOf(other.attr("dtype")) +
                                 ": convert one of them";
        throw nb::type_error(text.c_str());
    }
    if (!haveSameSizes(asArray(one), asArray(other))) {
        const std::string text = "a has the shape " + shapeText(one) + ", b " + shapeText(other);
        throw nb::value_error(text.c_str());
    }
}

nb::object compare(nb::handle one, nb::handle other, nb::handle absolute, nb::handle relative, nb::handle progress)
{
    const auto tolerance = toleranceOf(absolute, relative);
    const auto compareImages = [&](const ImagePtr& a, const ImagePtr& b, Watch& watch) -> CompareResultPtr {
        return runForOutput<util::CompareImgLvl1, attr::OutCompareResult>(
            watch, with<attr::InImg1>(a), with<attr::InImg2>(b), with<attr::InOptImgComparisonTolerance>(tolerance));
    };
    const PyImage* const a = isArray(one) ? nullptr : findImage(one);
    const PyImage* const b = isArray(other) ? nullptr : findImage(other);
    if (a != nullptr && b != nullptr) {
        Watch watch(progress, bytesOf(*a->image) + bytesOf(*b->image));
        const CompareResultPtr result = compareImages(a->image, b->image, watch);
        return comparisonOf(*result, indexOf(result->firstDifference, a->axes));
    }
    if (a != nullptr || b != nullptr) {
        throw nb::type_error("an orlix.Image is compared with another one, and an array with an array");
    }
    const nb::object array1 = takeArray(one, "a");
    const nb::object array2 = takeArray(other, "b");
    requireAlike(array1, array2);
    if (PyArray_SIZE(asArray(array1)) == 0) {
        return nb::make_tuple(true, 0, 0, nb::none(), nb::none());
    }
    const WalkedArrays walked({array1, array2});
    if (!walked.isWrapped()) {
        return compareBlocks(array1, array2, progress, compareImages);
    }
    Watch watch(progress, 2 * static_cast<unsigned long>(PyArray_NBYTES(asArray(array1))));
    const CompareResultPtr result = compareImages(walked.imageOf(0), walked.imageOf(1), watch);
    return comparisonOf(*result, result->hasFirstDifference() ? walked.indexOf(0, result->firstDifference)
                                                              : nb::object(nb::none()));
}

} // namespace

nb::object copyArray(nb::handle array, nb::handle out, nb::handle progress)
{
    return copy(array, out, progress);
}

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
