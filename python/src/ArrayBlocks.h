// Arrays that images can't be laid over, block by block.
#pragma once

#include "Arrays.h"

#include <span>
#include <vector>

namespace orlix::python {

/// Goes through arrays of the same sizes in blocks of some hundred thousand elements, each of which is an image: over
/// the array where the block's elements touch, else over memory of its own that they are gathered into. So arrays of
/// any layout are worked on without a copy of them.
class ArrayBlocks
{
public:
    /// The last array is an output where `bOutput`: its elements are what `bringBack` writes. Blocks follow the memory
    /// of the last array then, else the indices, the last axis fastest.
    ArrayBlocks(std::span<const nb::object> arrays, bool bOutput);

    /// Goes to the next block; false after the last one.
    bool next();
    /// Of the block. The same memory is used for the next one.
    const ImagePtr& imageOf(std::size_t array) const { return m_arrays[array].image; }
    /// Writes the block of the output to where it belongs.
    void bringBack() const;

    unsigned long getDone() const { return m_nbDone; } ///< elements, with those of this block
    unsigned long getSize() const { return m_nbElements; }
    /// Bytes of a block of all arrays, at most.
    unsigned long getBlockBytes() const;
    /// The index in the arrays of a pixel of the block, as a tuple.
    nb::object indexOf(unsigned long x, unsigned long y) const;

private:
    struct Array
    {
        std::vector<std::ptrdiff_t> strides; ///< along the axes in the order of the walk
        ArrayMemory block;
        std::byte* data = nullptr; ///< of element 0
        image::eImageBufferType type;
        ImagePtr scratch; ///< null where blocks lie together in the array
        ImagePtr image;
        bool bSwapped = false;
    };

    void orderAxes(std::span<const nb::object> arrays, bool bOutput);
    void chooseBlocks();
    bool isDense(const Array& array) const;
    void setImage(Array& array, unsigned long width, unsigned long height);

    bool m_bOutput;
    std::vector<std::size_t> m_axes;       ///< of the arrays, in the order of the walk
    std::vector<std::ptrdiff_t> m_sizes;   ///< along these
    std::vector<std::ptrdiff_t> m_largest; ///< sizes of a block
    std::vector<std::ptrdiff_t> m_block;   ///< of this one
    std::vector<std::ptrdiff_t> m_first;   ///< where it begins
    std::vector<Array> m_arrays;
    unsigned long m_width = 1;
    unsigned long m_nbElements = 1;
    unsigned long m_nbDone = 0;
};

} // namespace orlix::python
