// The erasing kernel, once for all element types and instruction sets; included by the files of EraseImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <cstring>

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(EraseImgLvl3, plain, sse2, avx, avx2, avx512)

/// A round is a pack. The last one is written whole, past the count. Streams go on one after another: several side by
/// side are no faster where nothing is read.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> EraseImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    using Pack = simd::Pack<ISA, T>;
    T* const destination = static_cast<T*>(accessBlock<attr::OutYStrip2d>());
    const Pack value = Pack::broadcast(m_value.as<T>());
    if constexpr (ISA == eInstructionSet::eNone) {
        simd::forEachPack<1>(info.nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.store(destination + i); });
    } else {
        constexpr unsigned long round = Pack::s_nbElements;
        constexpr unsigned long nbUnrolled = 4 / Pack::s_nbRegisters;
        constexpr unsigned long nbOfLine = 64 / sizeof(T);
        const auto store = [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.store(destination + i); };
        const unsigned long nbWritten = (info.nbElements + round - 1) / round * round;
        if constexpr (sizeof(T) == 1 && round < 64) { // the C library's own registers may be wider than these
            if (getOutputPlace() == simd::eMemoryPlace::secondLevelCache) {
                std::memset(destination, static_cast<unsigned char>(m_value.as<T>()), nbWritten);
                return succeed();
            }
        }
        const unsigned long nbIntoLine = reinterpret_cast<unsigned long>(destination) / sizeof(T) % nbOfLine;
        unsigned long nbBefore = 0;
        if (nbIntoLine > 0 && nbWritten >= 16 * round) { // the ends apart, so that the rest begins with a cache line
            nbBefore = nbOfLine - nbIntoLine;
            simd::forEachPack<round>(nbBefore, store);
            store(nbWritten - round);
        }
        T* const lines = destination + nbBefore;
        const unsigned long nbInLines = (nbWritten - nbBefore) / round * round;
        if (levelOf(getOutputPlace()) == simd::eMemoryPlace::memory &&
            reinterpret_cast<unsigned long>(lines) % 64 == 0) {
            simd::forEachPack<round, nbUnrolled>(nbInLines,
                                                 [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.stream(lines + i); });
            simd::streamFence();
        } else {
            simd::forEachPack<round, nbUnrolled>(nbInLines,
                                                 [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.store(lines + i); });
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
