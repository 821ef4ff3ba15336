// Lines of an image lengthened by margins that reach beyond its border.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"
#include "ORLIXIPL/ORLIXImage/Margin.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <cstddef>
#include <vector>

namespace orlix::imaproc {

/// Lines that a kernel with this margin looks at across itself. Throws std::bad_alloc for more than can be counted.
ORLIXIMAGEPROCESSING_API unsigned long nbPlacesOf(const image::Margin& across);

/// A fixed number of places, each for one lengthened line, so that a line that several rows of a kernel look at is made
/// once. Keeps its memory for the next use.
class ORLIXIMAGEPROCESSING_API MarginLines
{
public:
    /// Forgets all lines, and makes `nbPlaces` places for lines of `sizeX` elements, at least 1, of rows whose elements
    /// follow one another by `pixelStride` elements. Throws std::bad_alloc.
    void init(unsigned long nbPlaces, unsigned long sizeX, long pixelStride, const image::Margin& margin,
              unsigned long elementSize);
    void forget();

    /// The line at a place, made there from `row` unless `key`, which is not ~0UL, says that it is there already. Its
    /// element 0 is the first of the starting margin. Valid until the place gets another line.
    const std::byte* access(unsigned long place, unsigned long key, const std::byte* row, image::BorderFunction border)
    {
        if (m_keys[place] != key) {
            make(place, row, border);
            m_keys[place] = key;
        }
        return m_lines.data() + place * m_lineBytes;
    }

private:
    void make(unsigned long place, const std::byte* row, image::BorderFunction border);

    unsigned long m_sizeX = 0;
    long m_pixelStride = 1;
    image::Margin m_margin;
    unsigned long m_elementSize = 0;
    unsigned long m_lineBytes = 0;
    std::vector<unsigned long> m_keys; ///< of each place; ~0UL where it is empty
    std::vector<std::byte> m_lines;
};

} // namespace orlix::imaproc
