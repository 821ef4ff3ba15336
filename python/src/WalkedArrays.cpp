// Arrays that are walked together, element by element, whatever their shape.
#include "WalkedArrays.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace orlix::python {

WalkedArrays::WalkedArrays(std::initializer_list<nb::handle> arrays)
{
    std::array<ArrayMemory, g_mostArrays> memory;
    std::size_t nbArrays = 0;
    for (const nb::handle array : arrays) {
        m_bWrapped = m_bWrapped && PyArray_ISBEHAVED_RO(asArray(array));
        memory[nbArrays] = memoryOf(asArray(array));
        m_arrays[nbArrays++] = asArray(array);
    }
    if (m_bWrapped) {
        m_axes = mergeAxes({memory.data(), nbArrays});
        m_bWrapped = std::all_of(m_axes.fits.begin(), m_axes.fits.begin() + static_cast<std::ptrdiff_t>(nbArrays),
                                 [](bool bFits) { return bFits; });
    }
}

ImagePtr WalkedArrays::imageOf(std::size_t array) const
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
    const image::BaseImageGeometry geometry(elementTypeOf(m_arrays[array]), sizes[0], sizes[1], volume, color,
                                            temporal);
    return wrapMemory(memoryOf(m_arrays[array]).data, geometry, m_axes.strides[array], {});
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
