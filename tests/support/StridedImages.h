// Images over memory in which pixels lie in any order and at any distance, with every byte beside them watched.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/FewUnderThreads.h"
#include "support/GuardedMemory.h"

#include <array>
#include <cstring>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace orlix::testing {

/// How the axes of an image lie in memory. Axes are numbers, 0 for x to 4 for t.
struct StridedForm
{
    std::string name;
    std::array<unsigned, 5> order = {0, 1, 2, 3, 4}; ///< from the axis whose pixels lie closest together on
    /// Along each axis: how many places from a pixel to the next, negative for backwards; 0 where all share one, which
    /// only inputs can.
    std::array<long, 5> steps = {1, 1, 1, 1, 1};
    unsigned long gap = 0; ///< elements between one turn of the innermost axis and the next

    bool isShared() const
    {
        for (const long step : steps) {
            if (step == 0) {
                return true;
            }
        }
        return false;
    }
};
inline std::ostream& operator<<(std::ostream& stream, const StridedForm& form)
{
    return stream << form.name;
}

/// Those that outputs can have.
inline const std::vector<StridedForm> g_stridedForms = {
    {.name = "dense"},
    {.name = "rows apart", .gap = 5},
    {.name = "backwards along x", .steps = {-1, 1, 1, 1, 1}},
    {.name = "backwards along y", .steps = {1, -1, 1, 1, 1}, .gap = 3},
    {.name = "backwards along z", .steps = {1, 1, -1, 1, 1}},
    {.name = "backwards along all axes", .steps = {-1, -1, -1, -1, -1}, .gap = 1},
    {.name = "rows backwards and dense", .steps = {1, -1, -1, -1, -1}},
    {.name = "every second column", .steps = {2, 1, 1, 1, 1}},
    {.name = "every third column, backwards", .steps = {-3, 1, 1, 1, 1}, .gap = 2},
    {.name = "every second row and plan", .steps = {1, 2, 2, 1, 1}},
    {.name = "x and y exchanged", .order = {1, 0, 2, 3, 4}},
    {.name = "channels last", .order = {3, 0, 1, 2, 4}},
    {.name = "channels last, backwards along x", .order = {3, 0, 1, 2, 4}, .steps = {-1, 1, 1, 1, 1}, .gap = 1},
    {.name = "all axes the other way round", .order = {4, 3, 2, 1, 0}},
    {.name = "all axes the other way round, every second pixel backwards",
     .order = {4, 3, 2, 1, 0},
     .steps = {-2, 2, 1, 1, 1}},
};

/// Those in which pixels share memory.
inline const std::vector<StridedForm> g_sharedForms = {
    {.name = "one column for all", .steps = {0, 1, 1, 1, 1}},
    {.name = "one row for all", .steps = {1, 0, 1, 1, 1}},
    {.name = "one plan for all", .steps = {1, 1, 0, 1, 0}},
    {.name = "one pixel for all", .steps = {0, 0, 0, 0, 0}},
    {.name = "one column for all, x and y exchanged", .order = {1, 0, 2, 3, 4}, .steps = {0, -1, 1, 1, 1}},
};

/// Both.
inline std::vector<StridedForm> allStridedForms()
{
    std::vector<StridedForm> forms = g_stridedForms;
    forms.insert(forms.end(), g_sharedForms.begin(), g_sharedForms.end());
    return forms;
}

/// A place in an image: x, y, z, c, t.
using PixelIndex = std::array<unsigned long, 5>;

inline PixelIndex sizesOf(const image::BaseImageGeometry& geometry)
{
    return {geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(), geometry.getSizeC(), geometry.getSizeT()};
}

/// Calls `action(index)` for every pixel, x fastest.
template <class TAction>
void forEachIndex(const PixelIndex& sizes, const TAction& action)
{
    for (unsigned long t = 0; t < sizes[4]; ++t) {
        for (unsigned long c = 0; c < sizes[3]; ++c) {
            for (unsigned long z = 0; z < sizes[2]; ++z) {
                for (unsigned long y = 0; y < sizes[1]; ++y) {
                    for (unsigned long x = 0; x < sizes[0]; ++x) {
                        action(PixelIndex{x, y, z, c, t});
                    }
                }
            }
        }
    }
}

/// An image of one element type in such a form, between forbidden pages. Where its pixels lie is computed here, so that
/// tests don't ask the image for it.
class StridedImage
{
public:
    StridedImage(const image::BaseImageGeometry& geometry, const StridedForm& form, GuardEdge edge = GuardEdge::eEnd)
        : m_sizes(sizesOf(geometry)), m_elementBytes(image::elementSize(geometry.getBufferType())),
          m_bShared(form.isShared()), m_strides(stridesOf(m_sizes, form)),
          m_memory(extentOf(m_sizes, m_strides) * m_elementBytes, edge), m_isElement(m_memory.size(), false)
    {
        std::memset(m_memory.data(), g_gap, m_memory.size());
        m_first = m_memory.data();
        for (unsigned axis = 0; axis < 5; ++axis) {
            if (m_strides[axis] < 0 && m_sizes[axis] > 0) {
                m_first -= static_cast<long>((m_sizes[axis] - 1) * m_elementBytes) * m_strides[axis];
            }
        }
        forEachIndex(m_sizes, [&](const PixelIndex& index) {
            std::byte* const element = at(index);
            std::memset(element, 0, m_elementBytes);
            std::fill_n(m_isElement.begin() + (element - m_memory.data()), m_elementBytes, true);
        });
        const image::ElementStrides strides(m_strides[0], m_strides[1], m_strides[2], m_strides[3], m_strides[4]);
        if (m_bShared) {
            m_const = image::wrapConstImage(geometry, m_first, strides, nullptr);
        } else {
            m_const = m_image = image::wrapImage(geometry, m_first, strides, nullptr);
        }
    }

    /// The image; null where pixels share memory.
    const ImagePtr& get() const { return m_image; }
    const ImageConstPtr& getConst() const { return m_const; }

    /// Bytes of all kinds in all elements.
    void fillRandom(unsigned long seed)
    {
        std::mt19937_64 random(seed);
        forEachIndex(m_sizes, [&](const PixelIndex& index) {
            const std::uint64_t word = random();
            std::memcpy(at(index), &word, m_elementBytes);
        });
    }
    /// The pixels of a dense image of these sizes.
    void take(const image::BaseImage& dense)
    {
        forEachIndex(m_sizes,
                     [&](const PixelIndex& index) { std::memcpy(at(index), elementOf(dense, index), m_elementBytes); });
    }
    /// A new dense image of the same pixels.
    ImagePtr makeDense() const
    {
        const ImagePtr dense = image::createImage(m_const->getGeometry());
        forEachIndex(m_sizes, [&](const PixelIndex& index) {
            std::memcpy(elementOf(*dense, index), at(index), m_elementBytes);
        });
        return dense;
    }
    std::byte* at(const PixelIndex& index) const
    {
        std::byte* element = m_first;
        for (unsigned axis = 0; axis < 5; ++axis) {
            element += static_cast<long>(index[axis] * m_elementBytes) * m_strides[axis];
        }
        return element;
    }

    /// Is every byte beside the elements as it was made?
    bool isOutsideIntact() const
    {
        for (std::size_t byte = 0; byte < m_memory.size(); ++byte) {
            if (!m_isElement[byte] && m_memory.data()[byte] != std::byte{g_gap}) {
                return false;
            }
        }
        return m_memory.isSurroundingIntact();
    }

    static std::byte* elementOf(const image::BaseImage& dense, const PixelIndex& index)
    {
        return dense.accessRow(index[1], index[2], index[3], index[4]) +
               index[0] * image::elementSize(dense.getBufferType(index[4]));
    }

private:
    static constexpr unsigned char g_gap = 0x5C;

    static std::array<long, 5> stridesOf(const PixelIndex& sizes, const StridedForm& form)
    {
        std::array<long, 5> strides{};
        long extent = 1;
        for (unsigned place = 0; place < 5; ++place) {
            const unsigned axis = form.order[place];
            const auto size = static_cast<long>(sizes[axis]);
            strides[axis] = extent * form.steps[axis];
            extent += std::abs(strides[axis]) * (size - 1);
            extent += place == 0 ? static_cast<long>(form.gap) : 0;
        }
        return strides;
    }
    static unsigned long extentOf(const PixelIndex& sizes, const std::array<long, 5>& strides)
    {
        unsigned long extent = 1;
        for (unsigned axis = 0; axis < 5; ++axis) {
            if (sizes[axis] == 0) {
                return 0;
            }
            extent += (sizes[axis] - 1) * static_cast<unsigned long>(std::abs(strides[axis]));
        }
        return extent;
    }

    PixelIndex m_sizes;
    unsigned long m_elementBytes;
    bool m_bShared;
    std::array<long, 5> m_strides;
    GuardedMemory m_memory;
    std::vector<bool> m_isElement;
    std::byte* m_first = nullptr;
    ImagePtr m_image;
    ImageConstPtr m_const;
};

} // namespace orlix::testing
