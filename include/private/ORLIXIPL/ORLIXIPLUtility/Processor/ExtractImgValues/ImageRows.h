// The rows of a plan or volume as they lie in memory, for those who go from pixel to pixel.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <array>

namespace orlix::imaproc::util {

/// Of an image of one channel and one time step. Refers to its pixels. There is no box in an image whose pixels don't
/// lie side by side: a tile of it is a copy.
class ImageRows
{
public:
    explicit ImageRows(const image::BaseImage& image)
        : m_sizes{image.getSizeX(), image.getSizeY(), image.getSizeZ()},
          m_elementSize(image::elementSize(image.getBufferType()))
    {
        if (image.getGeometry().getNbPixels() == 0) {
            return;
        }
        if (image.getPixelStride(0) != 1) {
            m_sizes = {};
            return;
        }
        m_first = image.accessRow(0, 0, 0, 0);
        m_linePitch = image.accessRow(1, 0, 0, 0) - m_first;
        m_planPitch = image.accessRow(0, 1, 0, 0) - m_first;
    }

    /// The first element of a box of `side` pixels on each axis; null where it is not all within the image.
    template <unsigned long nbAxes>
    const std::byte* find(const std::array<unsigned long, nbAxes>& origin, unsigned long side) const
    {
        for (unsigned long axis = 0; axis < nbAxes; ++axis) {
            if (origin[axis] >= m_sizes[axis] || side > m_sizes[axis] - origin[axis]) {
                return nullptr;
            }
        }
        const std::byte* place = m_first + origin[0] * m_elementSize + static_cast<long>(origin[1]) * m_linePitch;
        if constexpr (nbAxes == 3) {
            place += static_cast<long>(origin[2]) * m_planPitch;
        }
        return place;
    }
    /// Line `line` of plan `plan` from such a box on.
    const std::byte* at(const std::byte* box, unsigned long line, unsigned long plan) const
    {
        return box + static_cast<long>(line) * m_linePitch + static_cast<long>(plan) * m_planPitch;
    }

private:
    std::array<unsigned long, 3> m_sizes;
    unsigned long m_elementSize;
    const std::byte* m_first = nullptr;
    long m_linePitch = 0;
    long m_planPitch = 0;
};

} // namespace orlix::imaproc::util
