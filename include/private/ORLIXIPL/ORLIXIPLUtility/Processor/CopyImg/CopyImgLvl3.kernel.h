// The copy kernel, once for all element types and instruction sets; included by the files of CopyImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/CacheLine.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <cstring>

ORLIX_DECLARE_KERNEL_TABLE(CopyImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(CopyImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(CopyImgLvl3, avx)
ORLIX_DECLARE_KERNEL_TABLE(CopyImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(CopyImgLvl3, avx512)

namespace orlix::imaproc::util {

/// Copies whole cache lines and leaves the rest to `memcpy`, which is called also where nothing is left.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> CopyImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const Block block = accessKernelBlock();
    const unsigned char* source = static_cast<const unsigned char*>(block.source);
    unsigned char* destination = static_cast<unsigned char*>(block.destination);
    unsigned long nbBytes = info.nbElements * sizeof(T);
    if constexpr (ISA != eInstructionSet::eNone) {
        using Line = simd::CacheLine<ISA>;
        constexpr unsigned long width = Line::s_nbBytes;
        const unsigned long nbWhole = nbBytes - nbBytes % width;
        if (block.place == simd::eMemoryPlace::memory && reinterpret_cast<unsigned long>(destination) % width == 0) {
            simd::forEachPackInterleaved<width, 4>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                simd::prefetch(source + i + 512);
                Line::load(source + i).stream(destination + i);
            });
            simd::streamFence();
        } else if (block.place == simd::eMemoryPlace::secondLevelCache) {
            simd::forEachPack<width, 4>(
                nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA { Line::load(source + i).store(destination + i); });
        } else {
            simd::forEachPack<width, 4>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                simd::prefetch(source + i + 1024);
                Line::load(source + i).store(destination + i);
            });
        }
        source += nbWhole;
        destination += nbWhole;
        nbBytes -= nbWhole;
    }
    std::memcpy(destination, source, nbBytes);
    return succeed();
}

} // namespace orlix::imaproc::util
