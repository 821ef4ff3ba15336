// The work that pixel-wise operators are measured on: an operator with its element types.
#pragma once

#include "peers/OpenCv.h"

#include <array>
#include <string>
#include <vector>

namespace orlix::bench {

struct PixelwiseCase
{
    std::string name;               ///< "convert UInt8 Real32"
    image::eImageBufferType inType; ///< none for an operator without input
    image::eImageBufferType outType;
    void (*run)(const ImageConstPtr& in, const ImagePtr& out);
    PeerPass (*makePeer)(const image::BaseImage* in, image::BaseImage& out);
    bool bRandom = false; ///< measured beside a generator that works by a counter

    unsigned long getBytesRead() const { return image::elementSize(inType); } ///< a pixel
    unsigned long getBytesWritten() const { return image::elementSize(outType); }
};

struct PixelwiseSize
{
    const char* name;
    unsigned long sizeX, sizeY;
    bool bAllThreads; ///< else one
};

/// One call's own costs; a plan in L2; a plan in the last-level cache; a plan beyond it.
inline constexpr std::array<PixelwiseSize, 4> g_pixelwiseSizes = {{
    {"64x64", 64, 64, false},
    {"512x512", 512, 512, false},
    {"4096x4096", 4096, 4096, true},
    {"8192x8192", 8192, 8192, true},
}};

/// Random values cost a thread more than memory does: large plans on one thread too, and a plan that is beyond most
/// last-level caches at 32 bits.
inline constexpr std::array<PixelwiseSize, 2> g_randomSizes = {{
    {"8192x8192", 8192, 8192, false},
    {"16384x8192", 16384, 8192, false},
}};

/// "erase/UInt8/512x512/threads:1".
std::string namePixelwise(const PixelwiseCase& work, const PixelwiseSize& size, unsigned long nbThreads);

/// Erase and threshold for each storage type, conversion for each pair of them; random values for some; lines of a plan
/// and of a volume.
std::vector<PixelwiseCase> makePixelwiseCases();

} // namespace orlix::bench
