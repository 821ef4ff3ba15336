// New pixels: random, normal, lines.
#include "Arguments.h"
#include "ImageCall.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"

#include <nanobind/stl/string.h>
#include <nanobind/stl/tuple.h>

namespace orlix::python {

namespace {

using namespace imaproc;
using image::eImageBufferType;
using processor::with;

std::vector<npy_intp> sizesOfShape(nb::handle shape)
{
    const std::vector<npy_intp> sizes = integersOf(shape, "shape");
    for (const npy_intp size : sizes) {
        if (size < 0) {
            throw nb::value_error("a shape has no sizes below 0");
        }
    }
    return sizes;
}

/// A new array of the shape, or `out` where it is given and has shape and type.
ArrayImage targetOf(nb::handle shape, const eImageBufferType& type, nb::handle out)
{
    const std::vector<npy_intp> sizes = sizesOfShape(shape);
    const std::string axes = axesOf(nb::none(), sizes.size());
    if (out.is_none()) {
        return newImageArray(sizes, axes, type);
    }
    const nb::object array = takeArray(out, "out");
    if (sizesOf(asArray(array)) != sizes) {
        throw nb::value_error("out has another shape than the one given");
    }
    if (elementTypeOf(asArray(array)) != type) {
        throw nb::type_error("out has another type than the one given");
    }
    return imageOf(array, axes, true);
}

/// What the bytes of a seeded array depend on. `first` is None, or where it begins in a larger whole: t, c, z, y.
util::RandomRun runOf(unsigned long seed, nb::handle first)
{
    util::RandomRun run;
    run.bSeeded = true;
    run.seed = seed;
    if (!first.is_none()) {
        const auto [t, c, z, y] =
            nb::cast<std::tuple<unsigned long, unsigned long, unsigned long, unsigned long>>(first);
        run.firstPlan = {z, c, t};
        run.firstLine = y;
    }
    return run;
}

nb::object random(nb::handle shape, nb::handle dtype, nb::handle low, nb::handle high, unsigned long seed,
                  nb::handle out, nb::handle progress, nb::handle first)
{
    const eImageBufferType type = elementTypeNamed(dtype);
    const ArrayImage target = targetOf(shape, type, out);
    Watch watch(progress, bytesOf(*target.image));
    const util::RandomRunScope scope(runOf(seed, first));
    if (low.is_none() && high.is_none()) {
        run<util::RandomImgLvl1>(watch, with<attr::OutImg>(target.image));
    } else {
        const auto range = attr::createRange(low.is_none() ? image::getMinValue(type) : numberOf(low, "low"),
                                             high.is_none() ? image::getMaxValue(type) : numberOf(high, "high"));
        if (const std::string flaw = range->findFlaw(); !flaw.empty()) {
            throw nb::value_error(flaw.c_str());
        }
        run<util::RandomImgLvl1>(watch, with<attr::InOptOutputRange>(range), with<attr::OutImg>(target.image));
    }
    target.bringBack();
    return target.array;
}

nb::object normal(nb::handle shape, nb::handle dtype, nb::handle mean, nb::handle deviation, unsigned long seed,
                  nb::handle out, nb::handle progress, nb::handle first)
{
    const ArrayImage target = targetOf(shape, elementTypeNamed(dtype), out);
    const auto parameter = attr::createGaussianParameter(numberOf(mean, "mean"), numberOf(deviation, "deviation"));
    if (const std::string flaw = parameter->findFlaw(); !flaw.empty()) {
        throw nb::value_error(flaw.c_str());
    }
    Watch watch(progress, bytesOf(*target.image));
    const util::RandomRunScope scope(runOf(seed, first));
    run<util::GaussianRandomImgLvl1>(watch, with<attr::InGaussianParameter>(parameter),
                                     with<attr::OutImg>(target.image));
    target.bringBack();
    return target.array;
}

/// Lines of a part of a larger whole, whose first pixel is pixel `first` of one of size `whole`.
void drawPart(const ImagePtr& image, const std::vector<npy_intp>& whole, const std::vector<npy_intp>& first,
              float theta, float phi, float alpha, float spacing)
{
    const auto number = [](npy_intp size) { return static_cast<unsigned long>(size); };
    const LongWork work(bytesOf(*image));
    if (whole.size() == 2) {
        util::buildLines2dImgPart({number(whole[1]), number(whole[0])}, {number(first[1]), number(first[0])}, theta,
                                  spacing, image);
    } else {
        util::buildLines3dImgPart({number(whole[2]), number(whole[1]), number(whole[0])},
                                  {number(first[2]), number(first[1]), number(first[0])}, theta, phi, alpha, spacing,
                                  image);
    }
}

/// `part` is None, or the whole's shape and the place of the first pixel in it.
nb::object lines(nb::handle shape, nb::handle theta, nb::handle spacing, nb::handle phi, nb::handle alpha,
                 nb::handle out, nb::handle progress, nb::handle part)
{
    const std::vector<npy_intp> sizes = sizesOfShape(shape);
    if (sizes.size() != 2 && sizes.size() != 3) {
        throw nb::value_error("lines are drawn in a plan, of shape (y, x), or in a volume, (z, y, x)");
    }
    const auto number = [](nb::handle given, const char* what) { return static_cast<float>(numberOf(given, what)); };
    if (sizes.size() == 2 && !(phi.is_none() && alpha.is_none())) {
        throw nb::value_error("phi and alpha are for volumes");
    }
    const float lean = number(theta, "theta");
    const float turn = phi.is_none() ? 0.F : number(phi, "phi");
    const float latticeTurn = alpha.is_none() ? 0.F : number(alpha, "alpha");
    const float distance = number(spacing, "spacing");
    const ArrayImage target = targetOf(shape, eImageBufferType::eBufferBinary, out);
    if (!part.is_none()) {
        drawPart(target.image, sizesOfShape(part[0]), sizesOfShape(part[1]), lean, turn, latticeTurn, distance);
        target.bringBack();
        return target.array;
    }
    Watch watch(progress, bytesOf(*target.image));
    if (sizes.size() == 2) {
        run<util::BuildLines2dImgLvl1>(
            watch,
            with<attr::InOutputImg2dSize>(attr::createImg2dSize(target.image->getSizeX(), target.image->getSizeY())),
            with<attr::InTheta>(lean), with<attr::InOffset>(distance), with<attr::OutBinImg>(target.image));
    } else {
        run<util::BuildLines3dImgLvl1>(
            watch,
            with<attr::InOutputImg3dSize>(
                attr::createImg3dSize(target.image->getSizeX(), target.image->getSizeY(), target.image->getSizeZ())),
            with<attr::InTheta>(lean), with<attr::InPhi>(turn), with<attr::InAlpha>(latticeTurn),
            with<attr::InOffset>(distance), with<attr::OutBinImg3d>(target.image));
    }
    target.bringBack();
    return target.array;
}

} // namespace

void bindGenerators(nb::module_& module)
{
    module.def("random", &random, nb::arg("shape").none(), nb::arg("dtype").none(), nb::arg("low").none(),
               nb::arg("high").none(), nb::arg("seed"), nb::arg("out").none(), nb::arg("progress").none(),
               nb::arg("first").none());
    module.def("normal", &normal, nb::arg("shape").none(), nb::arg("dtype").none(), nb::arg("mean").none(),
               nb::arg("deviation").none(), nb::arg("seed"), nb::arg("out").none(), nb::arg("progress").none(),
               nb::arg("first").none());
    module.def("lines", &lines, nb::arg("shape").none(), nb::arg("theta").none(), nb::arg("spacing").none(),
               nb::arg("phi").none(), nb::arg("alpha").none(), nb::arg("out").none(), nb::arg("progress").none(),
               nb::arg("part").none());
}

} // namespace orlix::python
