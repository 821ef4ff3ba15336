// The work that operators on regions are measured on.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <array>
#include <string>
#include <vector>

namespace orlix::bench {

struct RegionSize
{
    const char* name;
    unsigned long imageX, imageY; ///< of the larger image
    unsigned long sizeX, sizeY;   ///< of the region
    bool bAllThreads;             ///< else one
};

/// One call's own costs, also from a large image; rows of one register; a region in L2; one in the last-level cache;
/// one beyond it. Each region is half as high and wide as its image, or much smaller.
inline constexpr std::array<RegionSize, 7> g_regionSizes = {{
    {"64x64of128x128", 128, 128, 64, 64, false},
    {"64x64of4096x4096", 4096, 4096, 64, 64, false},
    {"16x4096of64x8192", 64, 8192, 16, 4096, false},
    {"512x512of1024x1024", 1024, 1024, 512, 512, false},
    {"256x16384of4096x16384", 4096, 16384, 256, 16384, true},
    {"4096x4096of8192x8192", 8192, 8192, 4096, 4096, true},
    {"16384x16384of32768x16384", 32768, 16384, 16384, 16384, true},
}};

enum class RegionWork { get, put };

struct RegionCase
{
    RegionWork work;
    image::eImageBufferType type;
    RegionSize size;

    unsigned long getBytes() const ///< read and written
    {
        return 2 * size.sizeX * size.sizeY * image::elementSize(type);
    }
};

/// "getROI2dImg/UInt8/64x64of128x128/threads:1".
std::string nameRegion(const RegionCase& work, unsigned long nbThreads);

std::vector<RegionCase> makeRegionCases();

} // namespace orlix::bench
