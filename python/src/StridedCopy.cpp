// Elements that lie anywhere, to dense memory and back.
#include "StridedCopy.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace orlix::python {

namespace {

/// Calls `visit(data, stride, size)` for each line along the last axis, the axis before it running fastest.
template <class TVisit>
void forEachLine(const ArrayMemory& memory, const TVisit& visit)
{
    if (std::find(memory.sizes.begin(), memory.sizes.end(), 0) != memory.sizes.end()) {
        return;
    }
    const std::size_t nbOuter = memory.sizes.empty() ? 0 : memory.sizes.size() - 1;
    const std::ptrdiff_t size = memory.sizes.empty() ? 1 : memory.sizes.back();
    const std::ptrdiff_t stride = memory.sizes.empty() ? memory.elementBytes : memory.strides.back();
    std::vector<std::ptrdiff_t> index(nbOuter, 0);
    std::byte* line = memory.data;
    for (;;) {
        visit(line, stride, size);
        std::size_t axis = nbOuter;
        while (axis > 0 && index[axis - 1] + 1 == memory.sizes[axis - 1]) {
            --axis;
            line -= index[axis] * memory.strides[axis];
            index[axis] = 0;
        }
        if (axis == 0) {
            return;
        }
        ++index[axis - 1];
        line += memory.strides[axis - 1];
    }
}

/// The size is a constant, so that each copy is one load and one store.
template <std::size_t nbBytes>
void copyLine(const std::byte* from, std::ptrdiff_t fromStride, std::byte* to, std::ptrdiff_t toStride,
              std::ptrdiff_t size)
{
    for (std::ptrdiff_t element = 0; element < size; ++element) {
        std::memcpy(to + element * toStride, from + element * fromStride, nbBytes);
    }
}

void copyElements(const std::byte* from, std::ptrdiff_t fromStride, std::byte* to, std::ptrdiff_t toStride,
                  std::ptrdiff_t size, std::ptrdiff_t elementBytes)
{
    if (fromStride == elementBytes && toStride == elementBytes) {
        std::memcpy(to, from, static_cast<std::size_t>(size * elementBytes));
        return;
    }
    switch (elementBytes) {
    case 1: copyLine<1>(from, fromStride, to, toStride, size); break;
    case 2: copyLine<2>(from, fromStride, to, toStride, size); break;
    default: copyLine<4>(from, fromStride, to, toStride, size); break;
    }
}

void swapBytes(std::byte* elements, std::ptrdiff_t size, std::ptrdiff_t elementBytes)
{
    for (std::ptrdiff_t element = 0; element < size; ++element) {
        std::reverse(elements + element * elementBytes, elements + (element + 1) * elementBytes);
    }
}

} // namespace

void gatherElements(const ArrayMemory& from, bool bSwapped, std::byte* dense)
{
    forEachLine(from, [&](const std::byte* line, std::ptrdiff_t stride, std::ptrdiff_t size) {
        copyElements(line, stride, dense, from.elementBytes, size, from.elementBytes);
        if (bSwapped) {
            swapBytes(dense, size, from.elementBytes);
        }
        dense += size * from.elementBytes;
    });
}

void scatterElements(const std::byte* dense, const ArrayMemory& to)
{
    forEachLine(to, [&](std::byte* line, std::ptrdiff_t stride, std::ptrdiff_t size) {
        copyElements(dense, to.elementBytes, line, stride, size, to.elementBytes);
        dense += size * to.elementBytes;
    });
}

} // namespace orlix::python
