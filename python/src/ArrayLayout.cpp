// How arrays of any number of axes lie in memory, seen as images of five.
#include "ArrayLayout.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace orlix::python {

namespace {

/// Lines of more elements than this are not made longer, and none is made longer than the second: lines are what
/// threads are given.
constexpr unsigned long g_longLine = 4096;
constexpr unsigned long g_longestLine = 65536;

bool isLongEnough(unsigned long size, unsigned long times)
{
    return size >= g_longLine || size * times > g_longestLine;
}

/// Lines that a line of so many elements is cut into, each as long as the others.
unsigned long nbLinesIn(unsigned long size)
{
    unsigned long nbLines = 1;
    while (size > g_longestLine && size % 2 == 0) {
        size /= 2;
        nbLines *= 2;
    }
    return nbLines;
}

/// NumPy's arrays have no more axes.
constexpr std::size_t g_mostAxes = 64;

/// Axes of more than one element, in an order.
struct Axes
{
    std::array<unsigned char, g_mostAxes> axes;
    std::size_t nbAxes = 0;
};

/// That of the smallest distance in the first array first. Sorted by insertion: axes are few, and mostly in order.
Axes axesInMemoryOrder(const ArrayMemory& array)
{
    Axes order;
    for (std::size_t axis = array.sizes.size(); axis-- > 0;) {
        if (array.sizes[axis] == 1) {
            continue;
        }
        std::size_t place = order.nbAxes++;
        while (place > 0 && std::abs(array.strides[order.axes[place - 1]]) > std::abs(array.strides[axis])) {
            order.axes[place] = order.axes[place - 1];
            --place;
        }
        order.axes[place] = static_cast<unsigned char>(axis);
    }
    return order;
}

/// Does `axis` go on where `size` elements of the axis before it end, in all arrays?
bool touches(std::span<const ArrayMemory> arrays, std::size_t axis, unsigned long size,
             const std::array<std::ptrdiff_t, g_mostArrays>& strides)
{
    for (std::size_t array = 0; array < arrays.size(); ++array) {
        if (arrays[array].strides[axis] != strides[array] * static_cast<std::ptrdiff_t>(size)) {
            return false;
        }
    }
    return true;
}

std::pair<std::ptrdiff_t, std::ptrdiff_t> reachOf(const ArrayMemory& array)
{
    std::ptrdiff_t first = 0;
    std::ptrdiff_t end = array.elementBytes;
    for (std::size_t axis = 0; axis < array.sizes.size(); ++axis) {
        if (array.sizes[axis] == 0) {
            return {0, 0};
        }
        const std::ptrdiff_t reach = (array.sizes[axis] - 1) * array.strides[axis];
        (reach < 0 ? first : end) += reach;
    }
    return {first, end};
}

} // namespace

bool isWrappable(const std::array<unsigned long, 5>& sizes, const std::array<std::ptrdiff_t, 5>& strides,
                 std::ptrdiff_t elementBytes)
{
    if (sizes[0] > 1 && strides[0] != elementBytes) {
        return false;
    }
    std::array<std::size_t, 5> order = {0, 1, 2, 3, 4};
    std::sort(order.begin() + 1, order.end(),
              [&](std::size_t one, std::size_t other) { return strides[one] < strides[other]; });
    std::ptrdiff_t reach = static_cast<std::ptrdiff_t>(sizes[0]) * elementBytes;
    for (const std::size_t axis : order) {
        if (axis == 0 || sizes[axis] <= 1) {
            continue;
        }
        if (strides[axis] < reach || strides[axis] % elementBytes != 0) {
            return false;
        }
        reach = strides[axis] * static_cast<std::ptrdiff_t>(sizes[axis] - 1) + reach;
    }
    return true;
}

ImageAxes mergeAxes(std::span<const ArrayMemory> arrays)
{
    ImageAxes merged;
    std::size_t nbAxes = 0;
    std::array<std::ptrdiff_t, g_mostArrays> last = {};
    const Axes order = axesInMemoryOrder(arrays[0]);
    for (std::size_t place = 0; place < order.nbAxes; ++place) {
        const std::size_t axis = order.axes[place];
        const auto size = static_cast<unsigned long>(arrays[0].sizes[axis]);
        const bool bLong = nbAxes == 1 && isLongEnough(merged.sizes[0], size);
        if (nbAxes > 0 && !bLong && touches(arrays, axis, merged.sizes[nbAxes - 1], last)) {
            merged.sizes[nbAxes - 1] *= size;
            continue;
        }
        if (nbAxes == merged.sizes.size()) {
            return merged;
        }
        for (std::size_t array = 0; array < arrays.size(); ++array) {
            last[array] = merged.strides[array][nbAxes] = arrays[array].strides[axis];
        }
        merged.sizes[nbAxes++] = size;
    }
    if (const unsigned long nbLines = nbAxes == 1 ? nbLinesIn(merged.sizes[0]) : 1; nbLines > 1) {
        merged.sizes = {merged.sizes[0] / nbLines, nbLines, 1, 1, 1};
        for (std::size_t array = 0; array < arrays.size(); ++array) {
            merged.strides[array][1] = merged.strides[array][0] * static_cast<std::ptrdiff_t>(merged.sizes[0]);
        }
    }
    for (std::size_t array = 0; array < arrays.size(); ++array) {
        merged.fits[array] = isWrappable(merged.sizes, merged.strides[array], arrays[array].elementBytes);
    }
    return merged;
}

ImageAxes axesOfContiguous(std::span<const std::ptrdiff_t> sizes,
                           const std::array<std::ptrdiff_t, g_mostArrays>& elementBytes)
{
    unsigned long sizeX = 1;
    std::size_t axis = sizes.size();
    while (axis > 0 && (sizeX == 1 || !isLongEnough(sizeX, static_cast<unsigned long>(sizes[axis - 1])))) {
        sizeX *= static_cast<unsigned long>(sizes[--axis]);
    }
    unsigned long sizeY = nbLinesIn(sizeX);
    sizeX /= sizeY;
    while (axis > 0) {
        sizeY *= static_cast<unsigned long>(sizes[--axis]);
    }
    const auto stridesOf = [&](std::ptrdiff_t bytes) {
        return std::array<std::ptrdiff_t, 5>{bytes, sizeY > 1 ? bytes * static_cast<std::ptrdiff_t>(sizeX) : 0};
    };
    return {{sizeX, sizeY, 1, 1, 1}, {stridesOf(elementBytes[0]), stridesOf(elementBytes[1])}, {true, true}};
}

image::BufferStrides elementStridesOf(const std::array<std::ptrdiff_t, 5>& strides, std::ptrdiff_t elementBytes)
{
    // Elements are of 1, 2 or 4 bytes, and four divisions would take as long as all else of a small image.
    const int shift = std::countr_zero(static_cast<std::size_t>(elementBytes));
    const auto elements = [&](std::size_t axis) { return static_cast<unsigned long>(strides[axis] >> shift); };
    return {elements(1), elements(2), elements(3), elements(4)};
}

ImagePtr wrapMemory(std::byte* data, const image::BaseImageGeometry& geometry,
                    const std::array<std::ptrdiff_t, 5>& strides, const boost::shared_ptr<void>& owner)
{
    const auto bytes = static_cast<std::ptrdiff_t>(image::elementSize(geometry.getBufferType()));
    return image::wrapImage(geometry, data, elementStridesOf(strides, bytes), owner);
}

bool mayOverlap(const ArrayMemory& one, const ArrayMemory& other)
{
    const auto [firstOfOne, endOfOne] = reachOf(one);
    const auto [firstOfOther, endOfOther] = reachOf(other);
    return one.data + firstOfOne < other.data + endOfOther && other.data + firstOfOther < one.data + endOfOne;
}

} // namespace orlix::python
