#include "ORLIXIPL/ORLIXImage/PixelBlock.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace orlix::image {

namespace {

/// An axis of a block, in bytes.
struct BlockAxis
{
    unsigned long size;
    long toStep;
    long fromStep;
};

/// `first` is the axis of the inner loop, `second` of the one around it.
struct BlockAxes
{
    BlockAxis first;
    BlockAxis second;
    BlockAxis outer;
};

BlockAxes orderedAxes(const ByteSteps& to, const ByteSteps& from, const BlockSize& size)
{
    std::array<BlockAxis, 3> axes = {{{size.x, to.x, from.x}, {size.y, to.y, from.y}, {size.z, to.z, from.z}}};
    const auto isLong = [](const BlockAxis& axis) { return axis.size > 1; };
    // Stores cost more than loads, so the destination has the inner axis; one of a single pixel says nothing.
    const auto isBefore = [&](const BlockAxis& one, const BlockAxis& other) {
        return isLong(one) != isLong(other) ? isLong(one) : std::abs(one.toStep) < std::abs(other.toStep);
    };
    for (const unsigned place : {0, 1, 0}) {
        if (isBefore(axes[place + 1], axes[place])) {
            std::swap(axes[place], axes[place + 1]);
        }
    }
    if (isLong(axes[1]) && axes[1].toStep == static_cast<long>(axes[0].size) * axes[0].toStep &&
        axes[1].fromStep == static_cast<long>(axes[0].size) * axes[0].fromStep) {
        axes[0].size *= axes[1].size;
        axes[1] = axes[2];
        axes[2].size = 1;
    }
    // The other axis of a tile is the source's own.
    if (isLong(axes[2]) && std::abs(axes[2].fromStep) < std::abs(axes[1].fromStep)) {
        std::swap(axes[1], axes[2]);
    }
    // A loop of a few turns costs more to begin than steps over memory do.
    constexpr unsigned long few = 8;
    if (axes[0].size < few && axes[0].size < axes[1].size) {
        std::swap(axes[0], axes[1]);
    }
    return {axes[0], axes[1], axes[2]};
}

template <class T>
void copyLine(std::byte* to, const std::byte* from, const BlockAxis& axis, unsigned long count)
{
    if (axis.toStep == sizeof(T) && axis.fromStep == sizeof(T)) {
        std::memcpy(to, from, count * sizeof(T));
        return;
    }
    if (axis.toStep == sizeof(T)) {
        for (unsigned long i = 0; i < count; ++i, from += axis.fromStep) {
            std::memcpy(to + i * sizeof(T), from, sizeof(T));
        }
        return;
    }
    for (unsigned long i = 0; i < count; ++i, to += axis.toStep, from += axis.fromStep) {
        std::memcpy(to, from, sizeof(T));
    }
}

template <class T>
void copyPlan(std::byte* to, const std::byte* from, const BlockAxis& first, const BlockAxis& second)
{
    // Where the source's lines run along the other axis, some of them are kept in the first cache while they are read.
    constexpr unsigned long tile = 32;
    const bool bCrossed = std::abs(second.fromStep) < std::abs(first.fromStep);
    const unsigned long most = bCrossed ? tile : first.size;
    for (unsigned long start = 0; start < first.size; start += most) {
        const unsigned long count = std::min(most, first.size - start);
        std::byte* toLine = to + static_cast<long>(start) * first.toStep;
        const std::byte* fromLine = from + static_cast<long>(start) * first.fromStep;
        for (unsigned long i = 0; i < second.size; ++i, toLine += second.toStep, fromLine += second.fromStep) {
            copyLine<T>(toLine, fromLine, first, count);
        }
    }
}

template <class T>
void copyAxes(std::byte* to, const std::byte* from, const BlockAxes& axes)
{
    for (unsigned long i = 0; i < axes.outer.size; ++i, to += axes.outer.toStep, from += axes.outer.fromStep) {
        copyPlan<T>(to, from, axes.first, axes.second);
    }
}

} // namespace

void copyBlock(std::byte* to, const ByteSteps& toSteps, const std::byte* from, const ByteSteps& fromSteps,
               const BlockSize& size, unsigned long elementBytes)
{
    if (size.x == 0 || size.y == 0 || size.z == 0) {
        return;
    }
    const BlockAxes axes = orderedAxes(toSteps, fromSteps, size);
    if (elementBytes == 1) {
        copyAxes<std::uint8_t>(to, from, axes);
    } else if (elementBytes == 2) {
        copyAxes<std::uint16_t>(to, from, axes);
    } else {
        copyAxes<std::uint32_t>(to, from, axes);
    }
}

} // namespace orlix::image
