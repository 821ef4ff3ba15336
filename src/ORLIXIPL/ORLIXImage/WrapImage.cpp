// Images over memory of the caller's.
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/CheckedArithmetic.h"
#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/HostImage.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/WrappedImage.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace orlix::image {

namespace {

struct Axis
{
    const char* name;
    unsigned long size;
    long stride; ///< in elements

    unsigned long getReach() const { return stride < 0 ? -static_cast<unsigned long>(stride) : stride; }
};
using Axes = std::array<Axis, 5>;

Axes axesOf(const BaseImageGeometry& geometry, const ElementStrides& strides)
{
    return {{{"x", geometry.getSizeX(), strides.x},
             {"y", geometry.getSizeY(), strides.y},
             {"z", geometry.getSizeZ(), strides.z},
             {"c", geometry.getSizeC(), strides.c},
             {"t", geometry.getSizeT(), strides.t}}};
}

// Axes nest where, taken by growing stride, each stride spans what the axes before it reach; then no two elements share
// a place. Sorted by insertion, since small images have two axes and notice the time that a general sort takes.
void checkNesting(const BaseImageGeometry& geometry, const Axes& axes)
{
    std::array<const Axis*, 5> sorted{};
    unsigned long nbSorted = 0;
    for (const Axis& axis : axes) {
        if (axis.size > 1) {
            unsigned long place = nbSorted++;
            for (; place > 0 && sorted[place - 1]->getReach() > axis.getReach(); --place) {
                sorted[place] = sorted[place - 1];
            }
            sorted[place] = &axis;
        }
    }
    CheckedSize extent = 1;
    for (unsigned long place = 0; place < nbSorted; ++place) {
        const Axis& axis = *sorted[place];
        if (extent.isValid() && axis.getReach() < extent.getValue()) {
            raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverlap, geometry.toString(), axis.name,
                                      axis.stride, extent.getValue());
        }
        extent = extent + CheckedSize(axis.size - 1) * axis.getReach();
    }
}

/// Bytes from the lowest element to the first, and from there to the end of the highest.
struct Reach
{
    unsigned long before;
    unsigned long behind;
};

Reach checkedReach(const BaseImageGeometry& geometry, const Axes& axes)
{
    CheckedSize before = 0;
    CheckedSize behind = 1;
    for (const Axis& axis : axes) {
        if (axis.size > 1) {
            CheckedSize& side = axis.stride < 0 ? before : behind;
            side = side + CheckedSize(axis.size - 1) * axis.getReach();
        }
    }
    const unsigned long size = elementSize(geometry.getBufferType());
    before = before * size;
    behind = behind * size;
    if (!(before + behind).isValid()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverflow, geometry.toString());
    }
    return {before.getValue(), behind.getValue()};
}

void checkPointer(const BaseImageGeometry& geometry, const void* data, const Reach& reach)
{
    const unsigned long size = elementSize(geometry.getBufferType());
    const auto address = reinterpret_cast<std::uintptr_t>(data);
    std::uintptr_t end = 0;
    if (!data) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapNullPointer, geometry.toString());
    }
    if (address % size != 0) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapMisaligned, geometry.toString(), data, size);
    }
    if (__builtin_add_overflow(address, reach.behind, &end) || reach.before >= address) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverflow, geometry.toString());
    }
}

bool hasElements(const BaseImageGeometry& geometry)
{
    return geometry.getSizeX() > 0 && geometry.getSizeY() > 0 && geometry.getSizeZ() > 0 && geometry.getSizeC() > 0 &&
           geometry.getSizeT() > 0;
}

/// `bWritten`: every element has a place of its own. `bufferBytes`: of what the image is a part of, 0 where it is all.
PixelLayout layoutOf(const BaseImageGeometry& geometry, const void* data, const ElementStrides& strides,
                     boost::shared_ptr<void> owner, bool bWritten, unsigned long bufferBytes)
{
    if (!geometry.hasUniformBufferType()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapSeveralTypes, geometry.toString());
    }
    const auto size = static_cast<long>(elementSize(geometry.getBufferType()));
    if (size == 0) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoBufferType, geometry.toString());
    }
    // An image without elements has no use for its pointer, which may well be that of an empty container.
    alignas(g_planAlignment) static std::byte nothing;
    std::byte* const first = data ? static_cast<std::byte*>(const_cast<void*>(data)) : &nothing;
    // Unsigned, since sizes are checked below.
    const auto lineBytes = static_cast<long>(geometry.getSizeX() * static_cast<unsigned long>(size));
    if (!hasElements(geometry)) {
        return {.first = first,
                .rowBytes = lineBytes,
                .steps = {},
                .imageType = eImageType::eWrappedImage,
                .owner = std::move(owner)};
    }
    const Axes axes = axesOf(geometry, strides);
    const Reach reach = checkedReach(geometry, axes);
    if (bWritten) {
        checkNesting(geometry, axes);
    }
    checkPointer(geometry, data, reach);
    const long pixelStride = geometry.getSizeX() > 1 ? strides.x : 1;
    const bool bRowsTouch = geometry.getSizeY() == 1 || strides.y == static_cast<long>(geometry.getSizeX());
    const auto distance = [size](unsigned long axisSize, long stride) { return axisSize > 1 ? stride * size : 0; };
    return {.first = first,
            .pixelStride = pixelStride,
            .rowBytes = bRowsTouch ? lineBytes : strides.y * size,
            .planBytes = distance(geometry.getSizeZ(), strides.z),
            .channelBytes = distance(geometry.getSizeC(), strides.c),
            .stepBytes = distance(geometry.getSizeT(), strides.t),
            .steps = {},
            .bDense = pixelStride == 1 && bRowsTouch,
            .place = findMemoryPlace(std::max(geometry.getNbPixels() * static_cast<unsigned long>(size),
                                              bufferBytes)), // gaps aren't written
            .imageType = eImageType::eWrappedImage,
            .owner = std::move(owner)};
}

ElementStrides elementStridesOf(const BufferStrides& strides)
{
    // What 63 bits don't hold reaches beyond any address space, and so does the largest number that they do hold.
    const auto along = [](unsigned long stride) {
        return static_cast<long>(std::min<unsigned long>(stride, std::numeric_limits<long>::max()));
    };
    return {1, along(strides.y), along(strides.z), along(strides.c), along(strides.t)};
}

} // namespace

ImagePtr wrapImage(const BaseImageGeometry& geometry, void* data, const ElementStrides& strides,
                   boost::shared_ptr<void> owner)
{
    return boost::make_shared<HostImage>(geometry, layoutOf(geometry, data, strides, std::move(owner), true, 0));
}

ImageConstPtr wrapConstImage(const BaseImageGeometry& geometry, const void* data, const ElementStrides& strides,
                             boost::shared_ptr<void> owner)
{
    return boost::make_shared<HostImage>(geometry, layoutOf(geometry, data, strides, std::move(owner), false, 0));
}

ImagePtr wrapImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                   boost::shared_ptr<void> owner)
{
    return wrapImage(geometry, data, elementStridesOf(strides), std::move(owner));
}

ImagePtr wrapPart(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                  unsigned long bufferBytes, boost::shared_ptr<void> owner)
{
    return boost::make_shared<HostImage>(
        geometry, layoutOf(geometry, data, elementStridesOf(strides), std::move(owner), true, bufferBytes));
}

WrappedImage::WrappedImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides)
    : BaseImage(geometry, layoutOf(geometry, data, elementStridesOf(strides), {}, true, 0))
{}
WrappedImage::~WrappedImage() = default;

} // namespace orlix::image
