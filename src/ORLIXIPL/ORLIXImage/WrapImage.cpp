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

namespace orlix::image {

namespace {

struct Axis
{
    const char* name;
    unsigned long size;
    unsigned long stride; ///< in elements
};

// Elements from the first to one past the last. Axes nest where, taken by growing stride, each stride spans what the
// axes before it reach; then no two elements share a place.
unsigned long checkedExtent(const BaseImageGeometry& geometry, const BufferStrides& strides)
{
    std::array<Axis, 4> axes = {{{"y", geometry.getSizeY(), strides.y},
                                 {"z", geometry.getSizeZ(), strides.z},
                                 {"c", geometry.getSizeC(), strides.c},
                                 {"t", geometry.getSizeT(), strides.t}}};
    std::ranges::sort(axes, {}, &Axis::stride);
    CheckedSize extent = geometry.getSizeX();
    for (const Axis& axis : axes) {
        if (axis.size <= 1) {
            continue;
        }
        if (extent.isValid() && axis.stride < extent.getValue()) {
            raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverlap, geometry.toString(), axis.name,
                                      axis.stride, extent.getValue());
        }
        extent = extent + CheckedSize(axis.size - 1) * axis.stride;
    }
    const CheckedSize bytes = extent * elementSize(geometry.getBufferType());
    if (!bytes.isValid()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverflow, geometry.toString());
    }
    return extent.getValue();
}

void checkPointer(const BaseImageGeometry& geometry, const void* data, unsigned long bytes)
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
    if (__builtin_add_overflow(address, bytes, &end)) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapOverflow, geometry.toString());
    }
}

bool hasElements(const BaseImageGeometry& geometry)
{
    return geometry.getSizeX() > 0 && geometry.getSizeY() > 0 && geometry.getSizeZ() > 0 && geometry.getSizeC() > 0 &&
           geometry.getSizeT() > 0;
}

PixelLayout layoutOf(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                     boost::shared_ptr<void> owner, unsigned long bufferBytes)
{
    if (!geometry.hasUniformBufferType()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eWrapSeveralTypes, geometry.toString());
    }
    const unsigned long size = elementSize(geometry.getBufferType());
    if (size == 0) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoBufferType, geometry.toString());
    }
    // An image without elements has no use for its pointer, which may well be that of an empty container.
    alignas(g_planAlignment) static std::byte nothing;
    std::byte* const first = data ? static_cast<std::byte*>(data) : &nothing;
    const unsigned long lineBytes = geometry.getSizeX() * size;
    if (!hasElements(geometry)) {
        return {.first = first,
                .rowBytes = lineBytes,
                .steps = {},
                .imageType = eImageType::eWrappedImage,
                .owner = std::move(owner)};
    }
    checkPointer(geometry, data, checkedExtent(geometry, strides) * size);
    const bool bDense = geometry.getSizeY() == 1 || strides.y == geometry.getSizeX();
    const auto distance = [size](unsigned long axisSize, unsigned long stride) {
        return axisSize > 1 ? stride * size : 0;
    };
    return {.first = first,
            .rowBytes = bDense ? lineBytes : strides.y * size,
            .planBytes = distance(geometry.getSizeZ(), strides.z),
            .channelBytes = distance(geometry.getSizeC(), strides.c),
            .stepBytes = distance(geometry.getSizeT(), strides.t),
            .steps = {},
            .bDense = bDense,
            .place = findMemoryPlace(std::max(geometry.getNbPixels() * size, bufferBytes)), // gaps are not written
            .imageType = eImageType::eWrappedImage,
            .owner = std::move(owner)};
}

} // namespace

ImagePtr wrapImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                   boost::shared_ptr<void> owner)
{
    return boost::make_shared<HostImage>(geometry, layoutOf(geometry, data, strides, std::move(owner), 0));
}

ImagePtr wrapPart(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides,
                  unsigned long bufferBytes, boost::shared_ptr<void> owner)
{
    return boost::make_shared<HostImage>(geometry, layoutOf(geometry, data, strides, std::move(owner), bufferBytes));
}

WrappedImage::WrappedImage(const BaseImageGeometry& geometry, void* data, const BufferStrides& strides)
    : BaseImage(geometry, layoutOf(geometry, data, strides, {}, 0))
{}
WrappedImage::~WrappedImage() = default;

} // namespace orlix::image
