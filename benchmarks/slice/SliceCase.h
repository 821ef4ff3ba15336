// What slices are measured on: axes, element types, directions and volumes.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <array>
#include <string>
#include <vector>

namespace orlix::bench {

struct SliceVolume
{
    const char* name;
    unsigned long sizeX, sizeY, sizeZ;
    bool bAllThreads; ///< else one
};

/// One call's own costs; slices in L2 of a volume in the last-level cache; a volume beyond it.
inline constexpr std::array<SliceVolume, 3> g_sliceVolumes = {{
    {"64x64x64", 64, 64, 64, false},
    {"256x256x256", 256, 256, 256, true},
    {"512x512x1024", 512, 512, 1024, true},
}};

struct SliceCase
{
    bool bPut; ///< putSlice3dImg in situ, else getSlice3dImg into a given image
    imaproc::eAxis::domain axis;
    image::eImageBufferType type;
    SliceVolume volume;

    /// "getSlice3dImg/x/UInt8/512x512x1024/threads:2".
    std::string getName(unsigned long nbThreads) const;
    unsigned long getSizeX() const; ///< of the slice
    unsigned long getSizeY() const;
    unsigned long countSlices() const;
    /// Read and written, cache lines along x as whole lines.
    unsigned long countBytes() const;
};

std::vector<SliceCase> makeSliceCases();

} // namespace orlix::bench
