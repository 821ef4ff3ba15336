// The erasing kernel, once for all element types and instruction sets; included by the files of EraseImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

ORLIX_DECLARE_KERNEL_TABLE(EraseImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(EraseImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(EraseImgLvl3, avx)
ORLIX_DECLARE_KERNEL_TABLE(EraseImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(EraseImgLvl3, avx512)

namespace orlix::imaproc::util {

/// A round is a pack, and an output register has as many bytes as a pack has elements. The last round is written whole,
/// past the count. Streams go on one after another: several side by side are no faster where nothing is read.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> EraseImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    using Pack = simd::Pack<ISA, T>;
    const Block block = accessKernelBlock();
    T* const destination = static_cast<T*>(block.destination);
    const Pack value = Pack::broadcast(block.value.as<T>());
    if constexpr (ISA == eInstructionSet::eNone) {
        simd::forEachPack<1>(info.nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.store(destination + i); });
    } else {
        constexpr unsigned long round = Pack::s_nbElements;
        constexpr unsigned long nbUnrolled = 4 / Pack::s_nbRegisters;
        if (block.place == simd::eMemoryPlace::memory && reinterpret_cast<unsigned long>(destination) % round == 0) {
            simd::forEachPack<round, nbUnrolled>(
                info.nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.stream(destination + i); });
            simd::streamFence();
        } else {
            simd::forEachPack<round, nbUnrolled>(
                info.nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA { value.store(destination + i); });
        }
    }
    return succeed();
}

} // namespace orlix::imaproc::util
