// The images that copies are measured on.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include <array>
#include <string>

namespace orlix::bench {

struct CopyCase
{
    const char* size;
    image::eImageBufferType::domain type;
    unsigned long sizeX, sizeY, sizeZ;
};

/// One call's own costs; a plan in L2; a plan in the last-level cache; an output of 256 MiB; a stack of plans.
inline constexpr std::array<CopyCase, 5> g_copyCases = {{
    {"64x64", image::eImageBufferType::UInt8, 64, 64, 1},
    {"512x512", image::eImageBufferType::UInt8, 512, 512, 1},
    {"4096x4096", image::eImageBufferType::UInt8, 4096, 4096, 1},
    {"16384x8192", image::eImageBufferType::UInt16, 16384, 8192, 1},
    {"512x512x256", image::eImageBufferType::UInt16, 512, 512, 256},
}};

boost::shared_ptr<image::BaseImageGeometry> makeGeometry(const CopyCase& copyCase);

/// Read and written by one copy.
unsigned long getCopyBytes(const CopyCase& copyCase);

/// "copyImg/64x64/UInt8/threads:1".
std::string nameComparison(const CopyCase& copyCase, unsigned long nbThreads);

/// "given/AVX2" and "new/AVX2": a copy into an image of the caller's, and into a new one.
std::string nameGiven(const char* set);
std::string nameNew(const char* set);

} // namespace orlix::bench
