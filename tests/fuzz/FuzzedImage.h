// Images of any geometry, types, layout and contents out of the bytes of a fuzz input, in memory that is watched.
#pragma once

#include "ByteReader.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/PlacedImage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace orlix::fuzz {

using image::eImageBufferType;

/// Ends the process where the law doesn't hold: what a fuzzer takes for a find.
inline void require(bool bHolds)
{
    if (!bHolds) {
        std::abort();
    }
}

/// Sizes x, y, z, c, t, and the element type of each time step.
struct Shape
{
    std::array<unsigned long, 5> sizes;
    std::vector<eImageBufferType> types; ///< one where all steps have the same

    eImageBufferType typeOf(unsigned long t) const { return types[types.size() == 1 ? 0 : t]; }
    unsigned long elementBytes(unsigned long t) const
    {
        switch (static_cast<eImageBufferType::domain>(typeOf(t))) {
        case eImageBufferType::Int8:
        case eImageBufferType::UInt8:
        case eImageBufferType::eBufferBinary:
        case eImageBufferType::eBufferUInt8Like: return 1;
        case eImageBufferType::Int16:
        case eImageBufferType::UInt16:
        case eImageBufferType::eBufferUInt16Like: return 2;
        default: return 4;
        }
    }
    image::BaseImageGeometry geometry() const
    {
        image::VolumeGeometry volume;
        image::ColorGeometry color;
        image::TemporalGeometry temporal;
        volume.init3d(sizes[2]);
        color.initChannels(sizes[3]);
        temporal.initSequence(sizes[4]);
        if (types.size() == 1) {
            return {types[0], sizes[0], sizes[1], volume, color, temporal};
        }
        return {types, sizes[0], sizes[1], volume, color, temporal};
    }
    /// Calls `action(y, z, c, t)` for every row that has elements.
    template <class TAction>
    void forEachRow(const TAction& action) const
    {
        for (unsigned long t = 0; t < sizes[4]; ++t) {
            for (unsigned long c = 0; c < sizes[3]; ++c) {
                for (unsigned long z = 0; z < sizes[2]; ++z) {
                    for (unsigned long y = 0; sizes[0] > 0 && y < sizes[1]; ++y) {
                        action(y, z, c, t);
                    }
                }
            }
        }
    }
};

inline eImageBufferType readType(ByteReader& bytes)
{
    return static_cast<eImageBufferType::domain>(1 + bytes.below(11));
}

/// Most are small, of long rows or of several plans; now and then one is large enough for several strips.
inline Shape readShape(ByteReader& bytes)
{
    const unsigned long kind = bytes.byte();
    Shape shape{};
    shape.sizes = {bytes.below(100), bytes.below(9), bytes.below(3), bytes.below(3), bytes.below(3)};
    if (kind % 4 == 0) { // turns of the longest loops
        shape.sizes = {shape.sizes[0] * 17, shape.sizes[1] % 3, 1, 1, 1};
    }
    if (kind == 255) { // from 64 to 280 KiB of bytes
        shape.sizes = {1021 + shape.sizes[0], 64 + 24 * shape.sizes[1], 1, 1, 1};
    } else if (kind < 200) { // empty axes are worth less than the others
        for (unsigned long& size : shape.sizes) {
            size += size < 2 ? 1 : 0;
        }
    }
    const bool bMixed = kind % 8 == 5 && shape.sizes[4] > 1;
    for (unsigned long t = 0; t < (bMixed ? shape.sizes[4] : 1); ++t) {
        shape.types.push_back(readType(bytes));
    }
    return shape;
}

/// Another shape by one on one axis, or by the type of its first step.
inline Shape readOther(Shape shape, ByteReader& bytes)
{
    const unsigned long what = bytes.below(6);
    if (what == 5) {
        const unsigned type = static_cast<unsigned>(static_cast<eImageBufferType::domain>(shape.types[0]));
        shape.types[0] = static_cast<eImageBufferType::domain>(1 + type % 11);
    } else {
        if (what == 4) { // as many types as steps
            shape.types.resize(1, shape.types[0]);
        }
        ++shape.sizes[what];
    }
    return shape;
}

/// An image of its own, or one over memory with gaps, axes in any order and a beginning anywhere in a cache line. What
/// it holds at first follows from the input.
class FuzzedImage
{
public:
    FuzzedImage(const Shape& shape, ByteReader& bytes) : m_shape(shape)
    {
        const unsigned long kind = bytes.below(4);
        const auto place = static_cast<simd::eMemoryPlace>(bytes.below(8));
        if (kind == 0 || shape.types.size() > 1) {
            m_image = image::createImage(shape.geometry());
        } else {
            wrap(bytes);
        }
        m_image = testing::placedIn(place, *m_image);
        fill(bytes);
    }
    /// An image that somebody else made.
    FuzzedImage(const Shape& shape, const ImagePtr& image) : m_shape(shape), m_image(image)
    {
        const image::BaseImageGeometry& geometry = image->getGeometry();
        require(std::array{geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(), geometry.getSizeC(),
                           geometry.getSizeT()} == shape.sizes);
        for (unsigned long t = 0; t < shape.sizes[4]; ++t) {
            require(image->getBufferType(t) == shape.typeOf(t));
        }
    }

    const ImagePtr& get() const { return m_image; }
    const Shape& shape() const { return m_shape; }

    /// First byte of a row.
    unsigned char* row(unsigned long y, unsigned long z, unsigned long c, unsigned long t)
    {
        if (!m_memory.empty()) {
            return m_memory.data() + placeOf(y, z, c, t);
        }
        unsigned char* first = nullptr;
        image::visitStorageType(m_shape.typeOf(t), [&]<class T>() {
            first =
                reinterpret_cast<unsigned char*>(image::planData<T>(*m_image, z, c, t) + y * image::rowPitch(*m_image));
        });
        return first;
    }

    /// Everything that must not change by itself: all memory where it is the caller's, else the elements alone.
    std::vector<unsigned char> watched()
    {
        if (!m_memory.empty()) {
            return m_memory;
        }
        std::vector<unsigned char> elements;
        m_shape.forEachRow([&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
            const unsigned char* const first = row(y, z, c, t);
            elements.insert(elements.end(), first, first + m_shape.sizes[0] * m_shape.elementBytes(t));
        });
        return elements;
    }
    /// Is all as in `before`, but for the elements, which are what `expect(y, z, c, t, first)` writes, row by row?
    template <class TExpect>
    bool holds(std::vector<unsigned char> before, const TExpect& expect)
    {
        unsigned long nbBefore = 0;
        m_shape.forEachRow([&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
            expect(y, z, c, t, before.data() + (m_memory.empty() ? nbBefore : placeOf(y, z, c, t)));
            nbBefore += m_shape.sizes[0] * m_shape.elementBytes(t);
        });
        return watched() == before;
    }

private:
    static constexpr unsigned long g_guard = 256; // bytes before and behind

    unsigned long placeOf(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
    {
        return m_first +
               (y * m_strides.y + z * m_strides.z + c * m_strides.c + t * m_strides.t) * m_shape.elementBytes(0);
    }

    void wrap(ByteReader& bytes)
    {
        unsigned long* const axes[] = {&m_strides.y, &m_strides.z, &m_strides.c, &m_strides.t};
        std::array<unsigned, 4> order = {0, 1, 2, 3};
        for (unsigned long turns = bytes.below(24); turns > 0; --turns) {
            std::next_permutation(order.begin(), order.end());
        }
        const bool bGaps = bytes.flag();
        unsigned long extent = m_shape.sizes[0];
        for (const unsigned axis : order) {
            *axes[axis] = extent + (bGaps ? bytes.below(20) : 0);
            extent += (std::max(m_shape.sizes[axis + 1], 1UL) - 1) * *axes[axis];
        }
        const unsigned long size = m_shape.elementBytes(0);
        m_memory.assign(extent * size + 2 * g_guard + 64, 0xC9);
        const unsigned long start = reinterpret_cast<std::uintptr_t>(m_memory.data()) % 64;
        m_first = g_guard - start + bytes.below(64) / size * size;
        m_image = image::wrapImage(m_shape.geometry(), m_memory.data() + m_first, m_strides, nullptr);
    }

    void fill(ByteReader& bytes)
    {
        std::uint32_t state = bytes.byte();
        const unsigned char mask = bytes.below(4) == 0 ? 0x07 : 0xFF;
        m_shape.forEachRow([&](unsigned long y, unsigned long z, unsigned long c, unsigned long t) {
            unsigned char* const first = row(y, z, c, t);
            for (unsigned long i = 0; i < m_shape.sizes[0] * m_shape.elementBytes(t); ++i) {
                state = state * 1664525U + 1013904223U;
                first[i] = static_cast<unsigned char>(state >> 24) & mask;
            }
        });
        if (m_shape.sizes[0] == 0 || m_shape.sizes[1] == 0 || m_shape.sizes[2] == 0 || m_shape.sizes[3] == 0 ||
            m_shape.sizes[4] == 0) {
            return;
        }
        for (unsigned long nbValues = bytes.below(8); nbValues > 0; --nbValues) { // a few of the input's own
            const unsigned long t = bytes.below(m_shape.sizes[4]);
            const unsigned long size = m_shape.elementBytes(t);
            unsigned char* const element = row(bytes.below(std::min(m_shape.sizes[1], 256UL)),
                                               bytes.below(m_shape.sizes[2]), bytes.below(m_shape.sizes[3]), t) +
                                           bytes.below(std::min(m_shape.sizes[0], 256UL)) * size;
            for (unsigned long i = 0; i < size; ++i) {
                element[i] = bytes.byte();
            }
        }
    }

    Shape m_shape;
    image::BufferStrides m_strides{};
    std::vector<unsigned char> m_memory; ///< empty where the image has its own
    unsigned long m_first = 0;           ///< of the first element in it, in bytes
    ImagePtr m_image;
};

} // namespace orlix::fuzz
