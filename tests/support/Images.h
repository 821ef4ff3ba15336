// Images for tests: their elements as plain bytes, and images over guarded memory.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/GuardedMemory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace orlix::testing {

/// Calls `action(t, row)` for every row of the image: x fastest, then y, z, c, t.
inline void forEachRow(const image::BaseImage& image,
                       const std::function<void(unsigned long t, std::byte* row)>& action)
{
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                for (unsigned long y = 0; image.getSizeX() > 0 && y < image.getSizeY(); ++y) {
                    action(t, image.accessRow(y, z, c, t));
                }
            }
        }
    }
}

/// The bytes of all elements, without any gaps.
inline std::vector<std::byte> bytesOf(const image::BaseImage& image)
{
    std::vector<std::byte> bytes;
    forEachRow(image, [&](unsigned long t, std::byte* row) {
        const unsigned long elementBytes = image::elementSize(image.getBufferType(t));
        const long stride = image.getPixelStride(t);
        const unsigned long nbRuns = stride == 1 ? 1 : image.getSizeX();
        const unsigned long runBytes = image.getSizeX() / nbRuns * elementBytes;
        for (unsigned long run = 0; run < nbRuns; ++run) {
            const std::byte* const first = row + static_cast<long>(run * elementBytes) * stride;
            bytes.insert(bytes.end(), first, first + runBytes);
        }
    });
    return bytes;
}

/// Bytes of all kinds, for floats also those that are no numbers. The same seed gives the same bytes.
inline void fillRandom(image::BaseImage& image, unsigned long seed)
{
    std::mt19937_64 random(seed);
    forEachRow(image, [&](unsigned long t, std::byte* row) {
        const unsigned long nbBytes = image.getSizeX() * image::elementSize(image.getBufferType(t));
        for (unsigned long i = 0; i < nbBytes; i += 8) {
            const std::uint64_t word = random();
            std::memcpy(row + i, &word, std::min(8UL, nbBytes - i));
        }
    });
}

/// A new image so filled.
inline ImagePtr makeRandom(const image::BaseImageGeometry& geometry, unsigned long seed = 1)
{
    const ImagePtr image = image::createImage(geometry);
    fillRandom(*image, seed);
    return image;
}

/// A new image of the same geometry and elements, made row by row: no operator has a hand in it.
inline ImagePtr plainCopy(const image::BaseImage& image)
{
    const ImagePtr copy = image::createImage(image.getGeometry());
    const std::vector<std::byte> bytes = bytesOf(image);
    const std::byte* next = bytes.data();
    forEachRow(*copy, [&](unsigned long t, std::byte* row) {
        const unsigned long nbBytes = image.getSizeX() * image::elementSize(image.getBufferType(t));
        std::memcpy(row, next, nbBytes);
        next += nbBytes;
    });
    return copy;
}

/// What `make()` gives, an image of the geometry, made where the last image of its size had nothing but wrong elements:
/// memory is used again, and what a former image left in it could pass for a result.
template <class TMake>
ImagePtr makeOnSpoiltMemory(const image::BaseImageGeometry& geometry, const TMake& make)
{
    fillRandom(*image::createImage(geometry), 0xBAD);
    return make();
}

/// How an image lies in memory of the caller's.
struct WrapForm
{
    GuardEdge edge = GuardEdge::eEnd;
    unsigned long rowGap = 0;       ///< elements between rows
    unsigned long planGap = 0;      ///< elements between plans, channels and time steps
    unsigned long misalignment = 0; ///< elements behind a boundary of 64 bytes
    bool bAtPage = true;            ///< exactly at the forbidden page, instead of misaligned
};

/// An image over memory in which every byte that is no element is watched. Its elements are 0 at first.
class WatchedImage
{
public:
    WatchedImage(const image::BaseImageGeometry& geometry, const WrapForm& form)
        : m_strides(stridesOf(geometry, form)), m_memory(makeMemory(geometry, m_strides, form)),
          m_image(image::wrapImage(geometry, m_memory.data(), m_strides, nullptr))
    {
        std::memset(m_memory.data(), g_gap, m_memory.size());
        forEachRow(*m_image, [&](unsigned long t, std::byte* row) {
            std::memset(row, 0, geometry.getSizeX() * image::elementSize(geometry.getBufferType(t)));
        });
    }

    const ImagePtr& get() const { return m_image; }

    /// Is every byte beside the elements as it was made?
    bool isOutsideIntact() const
    {
        std::vector<std::byte> memory(m_memory.data(), m_memory.data() + m_memory.size());
        forEachRow(*m_image, [&](unsigned long t, std::byte* row) {
            std::memset(memory.data() + (row - m_memory.data()), g_gap,
                        m_image->getSizeX() * image::elementSize(m_image->getBufferType(t)));
        });
        const bool bGapsIntact = memory == std::vector<std::byte>(memory.size(), std::byte{g_gap});
        return bGapsIntact && m_memory.isSurroundingIntact();
    }

private:
    static constexpr unsigned char g_gap = 0x5C;

    static image::BufferStrides stridesOf(const image::BaseImageGeometry& geometry, const WrapForm& form)
    {
        image::BufferStrides strides{};
        strides.y = geometry.getSizeX() + form.rowGap;
        strides.z = strides.y * geometry.getSizeY() + form.planGap;
        strides.c = strides.z * geometry.getSizeZ() + form.planGap;
        strides.t = strides.c * geometry.getSizeC() + form.planGap;
        return strides;
    }
    static GuardedMemory makeMemory(const image::BaseImageGeometry& geometry, const image::BufferStrides& strides,
                                    const WrapForm& form)
    {
        const unsigned long size = image::elementSize(geometry.getBufferType());
        unsigned long nbElements = 0;
        if (geometry.getNbPixels() > 0) {
            nbElements = (geometry.getSizeT() - 1) * strides.t + (geometry.getSizeC() - 1) * strides.c +
                         (geometry.getSizeZ() - 1) * strides.z + (geometry.getSizeY() - 1) * strides.y +
                         geometry.getSizeX();
        }
        if (form.bAtPage) {
            return {nbElements * size, form.edge};
        }
        return {nbElements * size, form.edge, form.misalignment * size % 64};
    }

    image::BufferStrides m_strides;
    GuardedMemory m_memory;
    ImagePtr m_image;
};

} // namespace orlix::testing
