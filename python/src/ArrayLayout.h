// How arrays of any number of axes lie in memory, seen as images of five.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <array>
#include <cstddef>
#include <span>

namespace orlix::python {

/// Where the elements of an array lie. Sizes and byte distances of its axes, the last one running fastest in an array
/// in C order.
struct ArrayMemory
{
    std::byte* data = nullptr;
    std::span<const std::ptrdiff_t> sizes = {};
    std::span<const std::ptrdiff_t> strides = {};
    std::ptrdiff_t elementBytes = 0;
};

/// The most arrays that are walked together.
constexpr std::size_t g_mostArrays = 2;

/// Axes of an image: sizes, and byte distances for each of the arrays that are walked together. No vectors, since most
/// calls on small arrays would take longer to make them than to do the work.
struct ImageAxes
{
    std::array<unsigned long, 5> sizes = {1, 1, 1, 1, 1};                 ///< x, y, z, c, t
    std::array<std::array<std::ptrdiff_t, 5>, g_mostArrays> strides = {}; ///< of each array
    std::array<bool, g_mostArrays> fits = {};                             ///< can the array be wrapped so?
};

/// Axes along which all arrays, which have the same sizes, can be walked together element by element: axes of one
/// element dropped, the others in the order of the first array's memory, merged where they touch in every array. Lines
/// of several thousand elements stay lines, and a single long one is cut where it can be, so that there is something to
/// give to threads. An array doesn't fit that has no axis of touching elements first, one that steps backwards or on
/// the spot, overlapping elements, or more axes than an image; a contiguous array always fits by itself.
ImageAxes mergeAxes(std::span<const ArrayMemory> arrays);

/// The same for arrays without gaps that all run fastest along the last of the sizes.
ImageAxes axesOfContiguous(std::span<const std::ptrdiff_t> sizes,
                           const std::array<std::ptrdiff_t, g_mostArrays>& elementBytes);

/// Can an image of these axes, in bytes, be laid over the array? Elements of a line touch and the others nest.
bool isWrappable(const std::array<unsigned long, 5>& sizes, const std::array<std::ptrdiff_t, 5>& strides,
                 std::ptrdiff_t elementBytes);

/// Distances in bytes as distances in elements.
image::BufferStrides elementStridesOf(const std::array<std::ptrdiff_t, 5>& strides, std::ptrdiff_t elementBytes);

/// The image over the memory, which the caller keeps alive.
ImagePtr wrapMemory(std::byte* data, const image::BaseImageGeometry& geometry,
                    const std::array<std::ptrdiff_t, 5>& strides, const boost::shared_ptr<void>& owner);

/// Do the bytes from the first to the last element of one reach into those of the other?
bool mayOverlap(const ArrayMemory& one, const ArrayMemory& other);

} // namespace orlix::python
