// New arrays, and arrays over the pixels of images.
#include "NewArrays.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace orlix::python {

namespace {

using image::eImageBufferType;

/// Below, an array from NumPy is cheaper than one from the pool.
constexpr unsigned long g_pooledBytes = 65536;

/// Keeps an image for as long as an array refers to its pixels.
nb::object capsuleOf(const ImagePtr& image)
{
    auto held = std::make_unique<ImagePtr>(image);
    nb::capsule capsule(
        held.get(), [](void* image) noexcept { const std::unique_ptr<ImagePtr> ended(static_cast<ImagePtr*>(image)); });
    static_cast<void>(held.release());
    return capsule;
}

unsigned long nbElementsOf(const std::vector<npy_intp>& sizes)
{
    unsigned long product = 1;
    for (const npy_intp size : sizes) {
        if (size < 0 || __builtin_mul_overflow(product, static_cast<unsigned long>(size), &product)) {
            throw nb::value_error("the shape has more elements than an array can hold, or a negative size");
        }
    }
    return product;
}

} // namespace

nb::object arrayOver(void* data, const std::vector<npy_intp>& sizes, const std::vector<npy_intp>& strides,
                     const eImageBufferType& type, const ImagePtr& owner)
{
    const int nbAxes = static_cast<int>(sizes.size());
    nb::object array =
        stealArray(PyArray_NewFromDescr(&PyArray_Type, PyArray_DescrFromType(typeNumberOf(type)), nbAxes, sizes.data(),
                                        strides.data(), data, NPY_ARRAY_WRITEABLE, nullptr));
    if (PyArray_SetBaseObject(asArray(array), capsuleOf(owner).release().ptr()) < 0) {
        throw nb::python_error();
    }
    return array;
}

nb::object newArray(const std::vector<npy_intp>& sizes, const std::vector<std::size_t>& order,
                    const eImageBufferType& type)
{
    const unsigned long elementBytes = image::elementSize(type);
    const unsigned long nbElements = nbElementsOf(sizes);
    std::vector<npy_intp> strides(sizes.size());
    auto distance = static_cast<npy_intp>(elementBytes);
    for (std::size_t place = order.size(); place-- > 0;) {
        strides[order[place]] = distance;
        distance *= std::max<npy_intp>(sizes[order[place]], 1);
    }
    if (nbElements < g_pooledBytes / elementBytes) {
        nb::object array = stealArray(PyArray_NewFromDescr(&PyArray_Type, PyArray_DescrFromType(typeNumberOf(type)),
                                                           static_cast<int>(sizes.size()), sizes.data(), nullptr,
                                                           nullptr, 0, nullptr));
        std::copy(strides.begin(), strides.end(), PyArray_STRIDES(asArray(array)));
        PyArray_UpdateFlags(asArray(array), NPY_ARRAY_UPDATE_ALL);
        return array;
    }
    const ImagePtr memory = image::createImage(*image::geometry2d(type, nbElements, 1));
    return arrayOver(memory->accessRow(0, 0, 0, 0), sizes, strides, type, memory);
}

nb::object newArray(const std::vector<npy_intp>& sizes, const eImageBufferType& type)
{
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), 0);
    return newArray(sizes, order, type);
}

nb::object newArrayLike(PyArrayObject* array, const eImageBufferType& type)
{
    const bool bFortran = PyArray_IS_F_CONTIGUOUS(array) && !PyArray_IS_C_CONTIGUOUS(array);
    if ((bFortran || PyArray_IS_C_CONTIGUOUS(array)) &&
        static_cast<unsigned long>(PyArray_SIZE(array)) < g_pooledBytes / image::elementSize(type)) {
        return stealArray(PyArray_NewFromDescr(&PyArray_Type, PyArray_DescrFromType(typeNumberOf(type)),
                                               PyArray_NDIM(array), PyArray_DIMS(array), nullptr, nullptr, bFortran,
                                               nullptr));
    }
    return newArray(sizesOf(array), axesInMemoryOrder(array), type);
}

std::vector<std::size_t> axesInMemoryOrder(PyArrayObject* array)
{
    std::vector<std::size_t> order(static_cast<std::size_t>(PyArray_NDIM(array)));
    std::iota(order.begin(), order.end(), 0);
    const npy_intp* const strides = PyArray_STRIDES(array);
    if (std::find(strides, strides + PyArray_NDIM(array), 0) == strides + PyArray_NDIM(array)) {
        std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
            return std::abs(strides[one]) > std::abs(strides[other]);
        });
    }
    return order;
}

} // namespace orlix::python
