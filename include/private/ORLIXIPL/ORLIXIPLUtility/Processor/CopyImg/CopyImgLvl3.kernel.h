// The copy kernel, once for all element types and instruction sets; included by the files of CopyImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/CacheLine.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(CopyImgLvl3, plain, sse2, avx, avx2, avx512)

/// Copies whole cache lines of the output and leaves what is before and behind them to `memcpy`, which is called also
/// where nothing is left.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> CopyImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const unsigned char* source = static_cast<const unsigned char*>(accessBlock<attr::InYStrip2d>());
    unsigned char* destination = static_cast<unsigned char*>(accessBlock<attr::OutYStrip2d>());
    if (source == destination) {
        return succeed(); // also where a level above has no test for it
    }
    unsigned long nbBytes = info.nbElements * sizeof(T);
    if constexpr (ISA != eInstructionSet::eNone) {
        const simd::eMemoryPlace place = getOutputPlace();
        using Line = simd::CacheLine<ISA>;
        constexpr unsigned long width = Line::s_nbBytes;
        const unsigned long nbBefore = (width - reinterpret_cast<unsigned long>(destination) % width) % width;
        if (nbBefore > 0 && nbBytes >= 16 * width) { // from here on in whole lines of the output
            std::memcpy(destination, source, nbBefore);
            source += nbBefore;
            destination += nbBefore;
            nbBytes -= nbBefore;
        }
        const unsigned long nbWhole = nbBytes - nbBytes % width;
        const bool bOnLine = reinterpret_cast<unsigned long>(destination) % width == 0;
        const bool bStreaming = bOnLine && levelOf(place) >= simd::eMemoryPlace::lastLevelCacheFilled;
        if (bStreaming && isAssisted(place)) {
            simd::forEachPackInterleaved<width, 4>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                simd::prefetch(source + i + 512);
                Line::load(source + i).stream(destination + i);
            });
            simd::streamFence();
        } else if (bStreaming) {
            simd::forEachPack<width, 4>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                simd::prefetch(source + i + 2048);
                Line::load(source + i).stream(destination + i);
            });
            simd::streamFence();
        } else if (isAssisted(place)) {
            simd::forEachPack<width, 4>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                simd::prefetch(source + i + 1024);
                Line::load(source + i).store(destination + i);
            });
        } else {
            // Eight registers are filled before they are stored: processors hold a load back that looks like a store
            // just before it, as it does where both addresses agree in their low 12 bits.
            constexpr unsigned long nbLines = 8 / Line::s_nbRegisters;
            const unsigned long nbBlocks = nbWhole - nbWhole % (nbLines * width);
            simd::forEachPack<nbLines * width>(nbBlocks, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                Line lines[nbLines];
#pragma GCC unroll 8
                for (unsigned long k = 0; k < nbLines; ++k) {
                    lines[k] = Line::load(source + i + k * width);
                }
#pragma GCC unroll 8
                for (unsigned long k = 0; k < nbLines; ++k) {
                    lines[k].store(destination + i + k * width);
                }
            });
            simd::forEachPack<width>(nbWhole - nbBlocks, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
                Line::load(source + nbBlocks + i).store(destination + nbBlocks + i);
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
