// Values of an image at points between its pixels.
#include "Arguments.h"
#include "ImageCall.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl1.h"

#include <nanobind/stl/string.h>

#include <algorithm>

namespace orlix::python {

namespace {

using namespace imaproc;
using processor::with;

attr::eInterpolationPolicy policyNamed(const std::string& name)
{
    for (const auto policy : EnumerationNames<attr::eInterpolationPolicy>::g_values) {
        if (name == EnumerationNames<attr::eInterpolationPolicy>::nameOf(policy)) {
            return policy;
        }
    }
    const std::string text = "interpolation '" + name + "': 'nearest', 'linear' or 'cubic' is needed";
    throw nb::value_error(text.c_str());
}

boost::shared_ptr<const attr::ImageValueExtractionMethod> methodNamed(const std::string& name)
{
    using Method = attr::ImageValueExtractionMethod;
    if (name == "auto") {
        return attr::createDefaultImageValueExtractionMethod();
    }
    if (name == "tiled" || name == "striped") {
        return attr::createImageValueExtractionMethod(name == "tiled" ? Method::s_tiledAlways : Method::s_tiledNever);
    }
    const std::string text = "method '" + name + "': 'auto', 'tiled' or 'striped' is needed";
    throw nb::value_error(text.c_str());
}

/// Points as C++ takes them, x first.
std::vector<double> turnedRound(PyArrayObject* points, unsigned nbAxes)
{
    const auto nbPoints = static_cast<std::size_t>(PyArray_DIM(points, 0));
    const auto* const from = static_cast<const double*>(PyArray_DATA(points));
    std::vector<double> turned(nbPoints * nbAxes);
    for (std::size_t point = 0; point < nbPoints; ++point) {
        for (std::size_t axis = 0; axis < nbAxes; ++axis) {
            turned[point * nbAxes + axis] = from[point * nbAxes + (nbAxes - 1 - axis)];
        }
    }
    return turned;
}

nb::object asArrayOfDoubles(const boost::shared_ptr<attr::PlanIndexedDoubles>& values, npy_intp nbPoints)
{
    nb::object array = nb::steal(PyArray_SimpleNew(1, &nbPoints, NPY_DOUBLE));
    const auto ofPlan = values->find(PlanIndex(0, 0, 0));
    const auto span = attr::valuesOf(*ofPlan);
    std::copy(span.begin(), span.end(), static_cast<double*>(PyArray_DATA(asArray(array))));
    return array;
}

template <class TProcessor, class TImage, class TPoints, class TColl>
nb::object extract(const ImageInput& input, const boost::shared_ptr<TColl>& coords, npy_intp nbPoints,
                   const attr::eInterpolationPolicy& policy, const std::string& method, nb::handle progress)
{
    const auto placed = boost::make_shared<PlanIndexedColl<TColl>>();
    placed->insert(PlanIndex(0, 0, 0), coords);
    Watch watch(progress, static_cast<unsigned long>(nbPoints) * 8);
    const auto values = runForOutput<TProcessor, attr::OutPIImgGreyValues>(
        watch, with<TImage>(input.image), with<TPoints>(boost::shared_ptr<const PlanIndexedColl<TColl>>(placed)),
        with<attr::InOptInterpolationPolicy>(policy), with<attr::InOptImageValueExtractionMethod>(methodNamed(method)));
    return asArrayOfDoubles(values, nbPoints);
}

nb::object values(nb::handle image, nb::handle points, nb::handle interpolation, nb::handle method, nb::handle axes,
                  nb::handle progress)
{
    const attr::eInterpolationPolicy policy = policyNamed(textOf(interpolation, "interpolation"));
    const std::string way = textOf(method, "method");
    const ImageInput input = takeInput(image, axes, "image");
    const nb::object table = nb::steal(
        PyArray_FROM_OTF(points.ptr(), NPY_DOUBLE, NPY_ARRAY_C_CONTIGUOUS | NPY_ARRAY_ALIGNED | NPY_ARRAY_NOTSWAPPED));
    if (!table.is_valid()) {
        throw nb::python_error();
    }
    PyArrayObject* const array = asArray(table);
    const npy_intp nbAxes = PyArray_NDIM(array) == 2 ? PyArray_DIM(array, 1) : 0;
    if (nbAxes != 2 && nbAxes != 3) {
        const std::string text = "points have the shape " + textOf(table.attr("shape")) +
                                 ": (n, 2) is needed for a plan, (n, 3) for a volume";
        throw nb::value_error(text.c_str());
    }
    const std::vector<double> coordinates = turnedRound(array, static_cast<unsigned>(nbAxes));
    if (nbAxes == 2) {
        return extract<util::ExtractImg2dValuesLvl1, attr::InImg, attr::InPICoords2dColl>(
            input, attr::createCoords2dColl(coordinates), PyArray_DIM(array, 0), policy, way, progress);
    }
    return extract<util::ExtractImg3dValuesLvl1, attr::InImg3d, attr::InPICoords3dColl>(
        input, attr::createCoords3dColl(coordinates), PyArray_DIM(array, 0), policy, way, progress);
}

} // namespace

void bindValues(nb::module_& module)
{
    module.def("values", &values, nb::arg("image").none(), nb::arg("points").none(), nb::arg("interpolation").none(),
               nb::arg("method").none(), nb::arg("axes").none(), nb::arg("progress").none());
}

} // namespace orlix::python
