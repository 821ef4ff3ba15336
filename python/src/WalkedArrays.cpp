// Arrays that are walked together, element by element, whatever their shape.
#include "WalkedArrays.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace orlix::python {

namespace {

/// Those of arrays that can't be taken as they are fit nowhere.
ImageAxes axesOf(std::span<const nb::handle> arrays)
{
    int flags = NPY_ARRAY_ALIGNED | NPY_ARRAY_C_CONTIGUOUS; // of all arrays
    bool bSwapped = false;
    std::array<std::ptrdiff_t, g_mostArrays> elementBytes = {};
    for (std::size_t array = 0; array < arrays.size(); ++array) {
        flags &= PyArray_FLAGS(asArray(arrays[array]));
        bSwapped = bSwapped || PyArray_ISBYTESWAPPED(asArray(arrays[array]));
        elementBytes[array] = PyArray_ITEMSIZE(asArray(arrays[array]));
    }
    if (bSwapped || (flags & NPY_ARRAY_ALIGNED) == 0) {
        return {};
    }
    if ((flags & NPY_ARRAY_C_CONTIGUOUS) != 0) { // most are, and small ones would notice the time that others take
        PyArrayObject* const first = asArray(arrays[0]);
        return axesOfContiguous({PyArray_DIMS(first), static_cast<std::size_t>(PyArray_NDIM(first))}, elementBytes);
    }
    std::array<ArrayMemory, g_mostArrays> memory;
    std::transform(arrays.begin(), arrays.end(), memory.begin(),
                   [](nb::handle array) { return memoryOf(asArray(array)); });
    return mergeAxes({memory.data(), arrays.size()});
}

} // namespace

WalkedArrays::WalkedArrays(std::initializer_list<nb::handle> arrays)
    : m_axes(axesOf({arrays.begin(), arrays.size()})),
      m_bWrapped(
          std::all_of(m_axes.fits.begin(), m_axes.fits.begin() + arrays.size(), [](bool bFits) { return bFits; }))
{
    std::transform(arrays.begin(), arrays.end(), m_arrays.begin(), asArray);
}

image::BaseImageGeometry WalkedArrays::geometryOf(std::size_t array) const
{
    const auto& sizes = m_axes.sizes;
    image::ColorGeometry color;
    image::TemporalGeometry temporal;
    image::VolumeGeometry volume;
    if (sizes[2] > 1) {
        volume.init3d(sizes[2]);
    }
    color.initChannels(sizes[3]);
    if (sizes[4] > 1) {
        temporal.initSequence(sizes[4]);
    }
    return {elementTypeOf(m_arrays[array]), sizes[0], sizes[1], volume, color, temporal};
}

ImagePtr WalkedArrays::imageOf(std::size_t array) const
{
    return image::wrapPart(geometryOf(array), PyArray_DATA(m_arrays[array]),
                           elementStridesOf(m_axes.strides[array], PyArray_ITEMSIZE(m_arrays[array])),
                           bufferBytesOf(m_arrays[array]), {});
}

image::WrappedImage WalkedArrays::wrap(std::size_t array) const
{
    return {geometryOf(array), PyArray_DATA(m_arrays[array]),
            elementStridesOf(m_axes.strides[array], PyArray_ITEMSIZE(m_arrays[array]))};
}

nb::object WalkedArrays::indexOf(std::size_t array, const imaproc::attr::PixelPosition& position) const
{
    const std::array<unsigned long, 5> places = {position.x, position.y, position.z, position.c, position.t};
    std::ptrdiff_t offset = 0;
    for (std::size_t axis = 0; axis < places.size(); ++axis) {
        if (m_axes.sizes[axis] > 1) {
            offset += static_cast<std::ptrdiff_t>(places[axis]) * m_axes.strides[array][axis];
        }
    }
    const ArrayMemory memory = memoryOf(m_arrays[array]);
    std::vector<std::size_t> order(memory.sizes.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t one, std::size_t other) { return memory.strides[one] > memory.strides[other]; });
    std::vector<std::ptrdiff_t> index(order.size(), 0);
    for (const std::size_t axis : order) {
        if (memory.sizes[axis] > 1) {
            index[axis] = offset / memory.strides[axis];
            offset %= memory.strides[axis];
        }
    }
    nb::list listed;
    for (const std::ptrdiff_t place : index) {
        listed.append(place);
    }
    return nb::tuple(listed);
}

} // namespace orlix::python
