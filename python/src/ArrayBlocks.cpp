// Arrays that images can't be laid over, block by block.
#include "ArrayBlocks.h"

#include "StridedCopy.h"

#include <algorithm>
#include <numeric>

namespace orlix::python {

namespace {

/// Of a block: what stays in a second-level cache, and is worth giving to threads.
constexpr std::ptrdiff_t g_blockElements = 262144;

/// Lines of a block's image are not made longer than by the axis that gets them here.
constexpr unsigned long g_longLine = 1024;

} // namespace

ArrayBlocks::ArrayBlocks(std::span<const nb::object> arrays, bool bOutput) : m_bOutput(bOutput)
{
    orderAxes(arrays, bOutput);
    const ArrayMemory first = memoryOf(asArray(arrays.front()));
    for (const std::size_t axis : m_axes) {
        m_sizes.push_back(first.sizes[axis]);
        m_nbElements *= static_cast<unsigned long>(first.sizes[axis]);
    }
    chooseBlocks();
    for (const nb::object& object : arrays) {
        const ArrayMemory memory = memoryOf(asArray(object));
        Array array;
        for (const std::size_t axis : m_axes) {
            array.strides.push_back(memory.strides[axis]);
        }
        array.data = memory.data;
        array.type = elementTypeOf(asArray(object));
        array.bSwapped = PyArray_ISBYTESWAPPED(asArray(object));
        array.block = {memory.data, {}, {}, memory.elementBytes};
        m_arrays.push_back(std::move(array));
    }
    for (Array& array : m_arrays) {
        const bool bAligned =
            reinterpret_cast<std::uintptr_t>(array.data) % static_cast<std::uintptr_t>(array.block.elementBytes) == 0;
        if (!bAligned || array.bSwapped || !isDense(array)) {
            const auto nbElements = std::accumulate(m_largest.begin(), m_largest.end(), 1UL, std::multiplies<>());
            array.scratch = image::createImage(*image::geometry2d(array.type, nbElements, 1));
        }
    }
}

void ArrayBlocks::orderAxes(std::span<const nb::object> arrays, bool bOutput)
{
    const ArrayMemory last = memoryOf(asArray(arrays.back()));
    m_axes.resize(last.sizes.size());
    std::iota(m_axes.begin(), m_axes.end(), 0);
    if (bOutput) {
        std::stable_sort(m_axes.begin(), m_axes.end(), [&](std::size_t one, std::size_t other) {
            return std::abs(last.strides[one]) > std::abs(last.strides[other]);
        });
    }
}

void ArrayBlocks::chooseBlocks()
{
    m_largest.assign(m_sizes.size(), 1);
    std::ptrdiff_t room = g_blockElements;
    for (std::size_t axis = m_sizes.size(); axis-- > 0 && room > 1;) {
        m_largest[axis] = std::min(m_sizes[axis], room);
        room = m_largest[axis] == m_sizes[axis] ? room / m_sizes[axis] : 1;
    }
    for (std::size_t axis = m_sizes.size(); axis-- > 0 && m_width < g_longLine;) {
        m_width *= static_cast<unsigned long>(m_largest[axis]);
    }
}

bool ArrayBlocks::isDense(const Array& array) const
{
    std::ptrdiff_t distance = array.block.elementBytes;
    for (std::size_t axis = m_sizes.size(); axis-- > 0;) {
        if (m_largest[axis] > 1 && array.strides[axis] != distance) {
            return false;
        }
        distance *= m_largest[axis];
    }
    return true;
}

bool ArrayBlocks::next()
{
    if (m_nbDone == m_nbElements) {
        return false;
    }
    if (m_first.empty()) {
        m_first.assign(m_sizes.size(), 0);
    } else {
        for (std::size_t axis = m_sizes.size(); axis-- > 0;) {
            m_first[axis] += m_largest[axis];
            if (m_first[axis] < m_sizes[axis]) {
                break;
            }
            m_first[axis] = 0;
        }
    }
    m_block.resize(m_sizes.size());
    unsigned long nbElements = 1;
    for (std::size_t axis = 0; axis < m_sizes.size(); ++axis) {
        m_block[axis] = std::min(m_largest[axis], m_sizes[axis] - m_first[axis]);
        nbElements *= static_cast<unsigned long>(m_block[axis]);
    }
    m_nbDone += nbElements;
    const unsigned long width = nbElements % m_width == 0 ? m_width : nbElements;
    for (Array& array : m_arrays) {
        setImage(array, width, nbElements / width);
    }
    return true;
}

void ArrayBlocks::setImage(Array& array, unsigned long width, unsigned long height)
{
    std::byte* data = array.data;
    for (std::size_t axis = 0; axis < m_sizes.size(); ++axis) {
        data += m_first[axis] * array.strides[axis];
    }
    array.block.data = data;
    array.block.sizes = m_block;
    array.block.strides = array.strides;
    if (array.scratch) {
        data = array.scratch->accessRow(0, 0, 0, 0);
        if (!m_bOutput || &array != &m_arrays.back()) {
            gatherElements(array.block, array.bSwapped, data);
        }
    }
    array.image = image::wrapImage(*image::geometry2d(array.type, width, height), data, {width, 0, 0, 0}, {});
}

void ArrayBlocks::bringBack() const
{
    const Array& output = m_arrays.back();
    if (m_bOutput && output.scratch) {
        scatterElements(output.scratch->accessRow(0, 0, 0, 0), output.block);
    }
}

unsigned long ArrayBlocks::getBlockBytes() const
{
    unsigned long bytes = 0;
    for (const Array& array : m_arrays) {
        bytes += static_cast<unsigned long>(g_blockElements * array.block.elementBytes);
    }
    return bytes;
}

nb::object ArrayBlocks::indexOf(unsigned long x, unsigned long y) const
{
    const unsigned long width = m_arrays.front().image->getSizeX();
    auto element = static_cast<std::ptrdiff_t>(y * width + x);
    std::vector<std::ptrdiff_t> index(m_axes.size());
    for (std::size_t axis = m_axes.size(); axis-- > 0;) {
        index[m_axes[axis]] = m_first[axis] + element % m_block[axis];
        element /= m_block[axis];
    }
    nb::list listed;
    for (const std::ptrdiff_t place : index) {
        listed.append(place);
    }
    return nb::tuple(listed);
}

} // namespace orlix::python
