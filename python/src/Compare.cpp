// compare: two images, or two arrays of any shape.
#include "Operators.h"

#include "Arguments.h"
#include "Comparisons.h"
#include "PixelwiseCall.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

namespace {

using namespace imaproc;
using processor::with;

using TolerancePtr = boost::shared_ptr<const attr::ImgComparisonTolerance>;

TolerancePtr toleranceOf(nb::handle absolute, nb::handle relative)
{
    const auto number = [](nb::handle given, const char* what) { return static_cast<float>(numberOf(given, what)); };
    TolerancePtr tolerance;
    if (!absolute.is_none() && !relative.is_none()) {
        tolerance = attr::createImgComparisonTolerance(number(absolute, "absolute"), number(relative, "relative"));
    } else if (!absolute.is_none()) {
        tolerance = attr::createImgComparisonAbsoluteTolerance(number(absolute, "absolute"));
    } else if (!relative.is_none()) {
        tolerance = attr::createImgComparisonRelativeTolerance(number(relative, "relative"));
    } else {
        return attr::createImgComparisonNoTolerance();
    }
    if (const std::string flaw = tolerance->findFlaw(); !flaw.empty()) {
        throw nb::value_error(flaw.c_str());
    }
    return tolerance;
}

using CompareResultPtr = boost::shared_ptr<const attr::CompareResult>;

CompareResultPtr compareImages(const ImagePtr& a, const ImagePtr& b, const TolerancePtr& tolerance, Watch& watch)
{
    return runForOutput<util::CompareImgLvl1, attr::OutCompareResult>(
        watch, with<attr::InImg1>(a), with<attr::InImg2>(b), with<attr::InOptImgComparisonTolerance>(tolerance));
}

/// Compares arrays block by block.
nb::object compareBlocks(const nb::object& one, const nb::object& other, const TolerancePtr& tolerance,
                         nb::handle progress)
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
        const CompareResultPtr result = compareImages(blocks.imageOf(0), blocks.imageOf(1), tolerance, ofBlock);
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

/// Compares arrays that images can be laid over.
nb::object compareWalked(const WalkedArrays& walked, Watch& watch, const TolerancePtr& tolerance)
{
    const auto finish = [&](const attr::CompareResult& result) {
        return comparisonOf(result, result.hasFirstDifference() ? walked.indexOf(0, result.firstDifference)
                                                                : nb::object(nb::none()));
    };
    image::WrappedImage a = walked.wrap(0);
    image::WrappedImage b = walked.wrap(1);
    const auto result = boost::make_shared<attr::CompareResult>();
    if (runStraight<util::CompareImgLvl1>(watch, with<attr::InImg1>(a.lend()), with<attr::InImg2>(b.lend()),
                                          with<attr::InOptImgComparisonTolerance>(tolerance),
                                          with<attr::OutCompareResult>(result))) {
        return finish(*result);
    }
    return finish(*compareImages(walked.imageOf(0), walked.imageOf(1), tolerance, watch));
}

nb::object compare(nb::handle one, nb::handle other, nb::handle absolute, nb::handle relative, nb::handle progress)
{
    const auto tolerance = toleranceOf(absolute, relative);
    const PyImage* const a = isArray(one) ? nullptr : findImage(one);
    const PyImage* const b = isArray(other) ? nullptr : findImage(other);
    if (a != nullptr && b != nullptr) {
        Watch watch(progress, bytesOf(*a->image) + bytesOf(*b->image));
        const CompareResultPtr result = compareImages(a->image, b->image, tolerance, watch);
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
        return compareBlocks(array1, array2, tolerance, progress);
    }
    Watch watch(progress, 2 * static_cast<unsigned long>(PyArray_NBYTES(asArray(array1))));
    return compareWalked(walked, watch, tolerance);
}

} // namespace

void bindCompare(nb::module_& module)
{
    module.def("compare", &compare, nb::arg("a").none(), nb::arg("b").none(), nb::arg("absolute").none(),
               nb::arg("relative").none(), nb::arg("progress").none());
}

} // namespace orlix::python
