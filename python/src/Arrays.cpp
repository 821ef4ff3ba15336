// NumPy arrays as images, and images as arrays.
#include "Arrays.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"

#include <nanobind/stl/string.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <numeric>

namespace orlix::python {

namespace {

using image::eImageBufferType;

/// Below, an array from NumPy is cheaper than one from the pool.
constexpr unsigned long g_pooledBytes = 65536;

constexpr char g_imageAxes[] = "XYZCT";

std::atomic<unsigned long> g_copies{0};

nb::object stealArray(PyObject* array)
{
    if (array == nullptr) {
        throw nb::python_error();
    }
    return nb::steal(array);
}

/// Keeps an image for as long as an array refers to its pixels.
nb::object capsuleOf(const ImagePtr& image)
{
    auto held = std::make_unique<ImagePtr>(image);
    nb::capsule capsule(
        held.get(), [](void* image) noexcept { const std::unique_ptr<ImagePtr> ended(static_cast<ImagePtr*>(image)); });
    static_cast<void>(held.release());
    return capsule;
}

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

bool isOfModule(nb::handle object, const char* prefix)
{
    const nb::object module = nb::getattr(object.type(), "__module__", nb::none());
    return nb::isinstance<nb::str>(module) && nb::cast<std::string>(module).rfind(prefix, 0) == 0;
}

} // namespace

nb::object takeArray(nb::handle object, const char* what)
{
    if (isArray(object)) {
        return nb::borrow(object);
    }
    const std::string type = nb::cast<std::string>(nb::getattr(object.type(), "__name__"));
    if (isOfModule(object, "dask.")) {
        const std::string text = std::string(what) + " is a Dask array, whose elements are not there yet: compute() "
                                                     "it, or hand this function to its map_blocks";
        throw nb::type_error(text.c_str());
    }
    const nb::object numpy = nb::module_::import_("numpy");
    if (nb::hasattr(object, "__dlpack__")) {
        return numpy.attr("from_dlpack")(object);
    }
    if (PyObject_CheckBuffer(object.ptr()) != 0 || nb::hasattr(object, "__array_interface__")) {
        return numpy.attr("asarray")(object);
    }
    const std::string text = std::string(what) + " is of type " + type +
                             ": an orlix.Image, a NumPy array or an object that lends its memory is needed; "
                             "numpy.asarray makes an array of a list";
    throw nb::type_error(text.c_str());
}

ArrayMemory memoryOf(PyArrayObject* array)
{
    const auto nbAxes = static_cast<std::size_t>(PyArray_NDIM(array));
    return {static_cast<std::byte*>(PyArray_DATA(array)),
            {PyArray_DIMS(array), nbAxes},
            {PyArray_STRIDES(array), nbAxes},
            PyArray_ITEMSIZE(array)};
}

void requireWritable(PyArrayObject* array)
{
    if (!PyArray_ISWRITEABLE(array)) {
        throw nb::value_error("the output is read only: give an array that may be written, or no output");
    }
    if (PyArray_ISBYTESWAPPED(array)) {
        throw nb::value_error("the output is in foreign byte order: give an array of the machine's own order");
    }
}

void countCopy()
{
    g_copies.fetch_add(1, std::memory_order_relaxed);
}

unsigned long getCopiesMade()
{
    return g_copies.load(std::memory_order_relaxed);
}

nb::object gather(nb::handle array)
{
    countCopy();
    PyArray_Descr* const descr = PyArray_DescrFromType(PyArray_TYPE(asArray(array)));
    return stealArray(
        PyArray_FromArray(asArray(array), descr,
                          NPY_ARRAY_C_CONTIGUOUS | NPY_ARRAY_ALIGNED | NPY_ARRAY_NOTSWAPPED | NPY_ARRAY_ENSURECOPY));
}

nb::object asNative(nb::handle array)
{
    return PyArray_ISBEHAVED_RO(asArray(array)) ? nb::borrow(array) : gather(array);
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
    const npy_intp* const strides = PyArray_STRIDES(array);
    if (std::find(strides, strides + PyArray_NDIM(array), 0) != strides + PyArray_NDIM(array)) {
        return newArray(sizesOf(array), type); // one element seen several times says nothing of an order
    }
    std::vector<std::size_t> order(static_cast<std::size_t>(PyArray_NDIM(array)));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return std::abs(strides[one]) > std::abs(strides[other]);
    });
    return newArray(sizesOf(array), order, type);
}

std::size_t imageAxisOf(char letter)
{
    return static_cast<std::size_t>(std::strchr(g_imageAxes, letter) - g_imageAxes);
}

std::string axesOf(nb::handle axes, std::size_t nbAxes)
{
    if (axes.is_none()) {
        if (nbAxes == 0 || nbAxes > 5) {
            const std::string text = "an image has 1 to 5 axes, this array has " + std::to_string(nbAxes);
            throw nb::value_error(text.c_str());
        }
        return std::string("TCZYX").substr(5 - nbAxes);
    }
    const std::string letters = nb::cast<std::string>(axes);
    std::string seen;
    for (const char letter : letters) {
        if (letter == '\0' || std::strchr(g_imageAxes, letter) == nullptr || seen.find(letter) != std::string::npos) {
            const std::string text = "axes '" + letters + "': letters of TCZYX are needed, each at most once";
            throw nb::value_error(text.c_str());
        }
        seen += letter;
    }
    if (letters.size() != nbAxes) {
        const std::string text = "axes '" + letters + "' names " + std::to_string(letters.size()) +
                                 " axes, the array has " + std::to_string(nbAxes);
        throw nb::value_error(text.c_str());
    }
    return letters;
}

std::vector<npy_intp> sizesOf(PyArrayObject* array)
{
    return {PyArray_DIMS(array), PyArray_DIMS(array) + PyArray_NDIM(array)};
}

std::vector<npy_intp> sizesOf(const image::BaseImageGeometry& geometry, const std::string& axes)
{
    const std::array<unsigned long, 5> ofImage = {geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(),
                                                  geometry.getSizeC(), geometry.getSizeT()};
    std::vector<npy_intp> sizes;
    for (const char letter : axes) {
        sizes.push_back(static_cast<npy_intp>(ofImage[imageAxisOf(letter)]));
    }
    return sizes;
}

image::BaseImageGeometry geometryOf(const std::vector<npy_intp>& sizes, const std::string& axes,
                                    const eImageBufferType& type)
{
    std::array<unsigned long, 5> ofImage = {1, 1, 1, 1, 1};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        ofImage[imageAxisOf(axes[axis])] = static_cast<unsigned long>(sizes[axis]);
    }
    image::VolumeGeometry volume;
    if (axes.find('Z') != std::string::npos) {
        volume.init3d(ofImage[2]);
    }
    image::ColorGeometry color;
    color.initChannels(ofImage[3]);
    image::TemporalGeometry temporal;
    if (axes.find('T') != std::string::npos) {
        temporal.initSequence(ofImage[4]);
    }
    return {type, ofImage[0], ofImage[1], volume, color, temporal};
}

namespace {

/// Byte distances along the axes of an image; of an axis that the array lacks, as far as the array reaches.
std::array<std::ptrdiff_t, 5> stridesOf(PyArrayObject* array, const std::string& axes)
{
    std::ptrdiff_t reach = PyArray_ITEMSIZE(array);
    std::array<std::ptrdiff_t, 5> strides = {};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        strides[imageAxisOf(axes[axis])] = PyArray_STRIDE(array, static_cast<int>(axis));
        reach =
            std::max(reach, PyArray_STRIDE(array, static_cast<int>(axis)) * PyArray_DIM(array, static_cast<int>(axis)));
    }
    for (std::size_t axis = 0; axis < strides.size(); ++axis) {
        if (axes.find(g_imageAxes[axis]) == std::string::npos) {
            strides[axis] = axis == 0 ? PyArray_ITEMSIZE(array) : reach;
        }
    }
    return strides;
}

ImagePtr wrapArray(PyArrayObject* array, const std::string& axes)
{
    const image::BaseImageGeometry geometry = geometryOf(sizesOf(array), axes, elementTypeOf(array));
    if (geometry.getNbPixels() == 0) {
        return image::createImage(geometry);
    }
    const std::array<unsigned long, 5> sizes = {geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(),
                                                geometry.getSizeC(), geometry.getSizeT()};
    const std::array<std::ptrdiff_t, 5> strides = stridesOf(array, axes);
    if (!isWrappable(sizes, strides, PyArray_ITEMSIZE(array))) {
        return {};
    }
    return wrapMemory(static_cast<std::byte*>(PyArray_DATA(array)), geometry, strides, {});
}

} // namespace

void ArrayImage::bringBack() const
{
    if (!memory.is(array) && PyArray_CopyInto(asArray(array), asArray(memory)) < 0) {
        throw nb::python_error();
    }
}

ArrayImage newImageArray(const std::vector<npy_intp>& sizes, const std::string& axes, const eImageBufferType& type)
{
    std::vector<std::size_t> order(axes.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](std::size_t one, std::size_t other) { return imageAxisOf(axes[one]) > imageAxisOf(axes[other]); });
    const nb::object array = newArray(sizes, order, type);
    return {array, array, wrapArray(asArray(array), axes)};
}

ArrayImage imageOf(nb::handle array, const std::string& axes, bool bWritten)
{
    const nb::object whole = nb::borrow(array);
    const eImageBufferType type = elementTypeOf(asArray(array));
    if (bWritten) {
        requireWritable(asArray(array));
    }
    if (PyArray_ISBEHAVED_RO(asArray(array))) {
        if (const ImagePtr image = wrapArray(asArray(array), axes)) {
            return {whole, whole, image};
        }
    }
    countCopy();
    ArrayImage copy = newImageArray(sizesOf(asArray(array)), axes, type);
    if (PyArray_CopyInto(asArray(copy.memory), asArray(array)) < 0) {
        throw nb::python_error();
    }
    copy.array = bWritten ? whole : copy.memory;
    return copy;
}

nb::object arrayOf(const ImagePtr& image, const std::string& axes)
{
    if (!image->getGeometry().hasUniformBufferType()) {
        throw nb::type_error("the time steps of this image differ in element type, those of an array can't: convert "
                             "the image");
    }
    if (image->getPixelLayout().steps) {
        countCopy();
        return arrayOf(imaproc::util::copyImg(image), axes);
    }
    const image::PixelLayout& layout = image->getPixelLayout();
    const std::array<unsigned long, 5> strides = {image::elementSize(image->getBufferType()), layout.rowBytes,
                                                  layout.planBytes, layout.channelBytes, layout.stepBytes};
    std::vector<npy_intp> ofArray;
    for (const char letter : axes) {
        ofArray.push_back(static_cast<npy_intp>(strides[imageAxisOf(letter)]));
    }
    return arrayOver(layout.first, sizesOf(image->getGeometry(), axes), ofArray, image->getBufferType(), image);
}

} // namespace orlix::python
