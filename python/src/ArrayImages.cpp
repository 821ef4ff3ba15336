// Arrays as images whose axes have names, and images as arrays.
#include "ArrayImages.h"

#include "Arguments.h"
#include "StridedCopy.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"

#include <nanobind/stl/string.h>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace orlix::python {

namespace {

using image::eImageBufferType;

constexpr char g_imageAxes[] = "XYZCT";

} // namespace

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
    const std::string letters = textOf(axes, "axes");
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

/// Byte distances along the axes of an image; those of axes that the array lacks say nothing, since they have one
/// element.
std::array<std::ptrdiff_t, 5> stridesOf(PyArrayObject* array, const std::string& axes)
{
    std::array<std::ptrdiff_t, 5> strides = {PyArray_ITEMSIZE(array)};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        strides[imageAxisOf(axes[axis])] = PyArray_STRIDE(array, static_cast<int>(axis));
    }
    return strides;
}

/// Of an array whose elements are as the machine takes them, and of which each has its own place where `bWritten`.
ImagePtr wrapArray(PyArrayObject* array, const std::string& axes, bool bWritten)
{
    const image::BaseImageGeometry geometry = geometryOf(sizesOf(array), axes, elementTypeOf(array));
    if (geometry.getNbPixels() == 0) {
        return image::createImage(geometry);
    }
    const std::array<std::ptrdiff_t, 5> bytes = stridesOf(array, axes);
    const std::ptrdiff_t size = PyArray_ITEMSIZE(array);
    const image::ElementStrides strides(bytes[0] / size, bytes[1] / size, bytes[2] / size, bytes[3] / size,
                                        bytes[4] / size);
    if (bWritten) {
        return image::wrapImage(geometry, PyArray_DATA(array), strides, {});
    }
    return boost::const_pointer_cast<image::BaseImage>(
        image::wrapConstImage(geometry, PyArray_DATA(array), strides, {}));
}

} // namespace

namespace {

/// Names of axes as numbers of those of the array, from the largest distance in an image's memory to the smallest.
std::vector<std::size_t> axesInImageOrder(const std::string& axes)
{
    std::vector<std::size_t> order(axes.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](std::size_t one, std::size_t other) { return imageAxisOf(axes[one]) > imageAxisOf(axes[other]); });
    return order;
}

/// An array with its axes in the order of an image's memory.
struct OrderedMemory
{
    OrderedMemory(PyArrayObject* array, const std::string& axes)
    {
        for (const std::size_t axis : axesInImageOrder(axes)) {
            sizes.push_back(PyArray_DIM(array, static_cast<int>(axis)));
            strides.push_back(PyArray_STRIDE(array, static_cast<int>(axis)));
        }
        memory = {static_cast<std::byte*>(PyArray_DATA(array)), sizes, strides, PyArray_ITEMSIZE(array)};
    }

    std::vector<std::ptrdiff_t> sizes;
    std::vector<std::ptrdiff_t> strides;
    ArrayMemory memory;
};

} // namespace

void ArrayImage::bringBack() const
{
    if (!memory.is(array)) {
        scatterElements(static_cast<const std::byte*>(PyArray_DATA(asArray(memory))),
                        OrderedMemory(asArray(array), axes).memory);
    }
}

ArrayImage newImageArray(const std::vector<npy_intp>& sizes, const std::string& axes, const eImageBufferType& type)
{
    const nb::object array = newArray(sizes, axesInImageOrder(axes), type);
    return {array, array, wrapArray(asArray(array), axes, true), axes};
}

ArrayImage imageOf(nb::handle array, const std::string& axes, bool bWritten)
{
    const nb::object whole = nb::borrow(array);
    const eImageBufferType type = elementTypeOf(asArray(array));
    if (bWritten) {
        requireWritable(asArray(array));
        requireDistinct(asArray(array));
    }
    if (PyArray_ISBEHAVED_RO(asArray(array))) {
        return {whole, whole, wrapArray(asArray(array), axes, bWritten), axes};
    }
    countCopy();
    ArrayImage copy = newImageArray(sizesOf(asArray(array)), axes, type);
    gatherElements(OrderedMemory(asArray(array), axes).memory, PyArray_ISBYTESWAPPED(asArray(array)),
                   static_cast<std::byte*>(PyArray_DATA(asArray(copy.memory))));
    copy.array = bWritten ? whole : copy.memory;
    return copy;
}

bool hasImageOrder(PyArrayObject* array, const std::string& axes)
{
    std::array<unsigned long, 5> sizes = {1, 1, 1, 1, 1};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        sizes[imageAxisOf(axes[axis])] = static_cast<unsigned long>(PyArray_DIM(array, static_cast<int>(axis)));
    }
    return PyArray_ISBEHAVED_RO(array) &&
           (PyArray_SIZE(array) == 0 || isWrappable(sizes, stridesOf(array, axes), PyArray_ITEMSIZE(array)));
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
    const auto elementBytes = static_cast<long>(image::elementSize(image->getBufferType()));
    const std::array<long, 5> strides = {layout.pixelStride * elementBytes, layout.rowBytes, layout.planBytes,
                                         layout.channelBytes, layout.stepBytes};
    std::vector<npy_intp> ofArray;
    for (const char letter : axes) {
        ofArray.push_back(strides[imageAxisOf(letter)]);
    }
    return arrayOver(layout.first, sizesOf(image->getGeometry(), axes), ofArray, image->getBufferType(), image);
}

} // namespace orlix::python
