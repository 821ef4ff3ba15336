// Arrays that are walked together, element by element, whatever their shape.
#include "WalkedArrays.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace orlix::python {

WalkedArrays::WalkedArrays(std::initializer_list<nb::handle> arrays, bool bOutput)
    : m_nbArrays(arrays.size()), m_bOutput(bOutput)
{
    std::transform(arrays.begin(), arrays.end(), m_arrays.begin(), [](nb::handle array) { return nb::borrow(array); });
    m_memory = m_arrays;
    if (merge()) {
        return;
    }
    for (std::size_t array = 0; array < m_nbArrays; ++array) {
        const ArrayMemory memory = memoryOf(asArray(m_memory[array]));
        if (!PyArray_ISBEHAVED_RO(asArray(m_memory[array])) || !mergeAxes({&memory, 1}).fits[0]) {
            m_memory[array] = gather(m_memory[array]);
        }
    }
    if (!merge()) { // in different orders of axes
        for (std::size_t array = 0; array < m_nbArrays; ++array) {
            m_memory[array] = gather(m_memory[array]);
        }
        merge();
    }
}

bool WalkedArrays::merge()
{
    std::array<ArrayMemory, g_mostArrays> memory;
    for (std::size_t array = 0; array < m_nbArrays; ++array) {
        if (!PyArray_ISBEHAVED_RO(asArray(m_memory[array]))) {
            return false;
        }
        memory[array] = memoryOf(asArray(m_memory[array]));
    }
    m_axes = mergeAxes({memory.data(), m_nbArrays});
    return std::all_of(m_axes.fits.begin(), m_axes.fits.begin() + static_cast<std::ptrdiff_t>(m_nbArrays),
                       [](bool bFits) { return bFits; });
}

ImagePtr WalkedArrays::imageOf(std::size_t array) const
{
    const image::eImageBufferType type = elementTypeOf(asArray(m_memory[array]));
    const auto& sizes = m_axes.sizes;
    const auto geometry = image::geometry5d(type, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]);
    return wrapMemory(memoryOf(asArray(m_memory[array])).data, *geometry, m_axes.strides[array], {});
}

void WalkedArrays::bringBack() const
{
    const std::size_t last = m_nbArrays - 1;
    if (m_bOutput && !m_memory[last].is(m_arrays[last]) &&
        PyArray_CopyInto(asArray(m_arrays[last]), asArray(m_memory[last])) < 0) {
        throw nb::python_error();
    }
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
    const ArrayMemory memory = memoryOf(asArray(m_memory[array]));
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
