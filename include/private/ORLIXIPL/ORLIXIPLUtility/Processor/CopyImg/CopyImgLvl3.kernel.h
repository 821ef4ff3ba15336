// The copy kernel, once for all element types and instruction sets; included by the files of CopyImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Register.h"
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

/// Copies whole registers and leaves the rest to `memcpy`, which is called also where nothing is left.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> CopyImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const Block block = accessKernelBlock();
    const unsigned char* source = static_cast<const unsigned char*>(block.source);
    unsigned char* destination = static_cast<unsigned char*>(block.destination);
    unsigned long nbBytes = info.nbElements * sizeof(T);
    if constexpr (ISA != eInstructionSet::eNone) {
        using Register = simd::Register<ISA>;
        constexpr unsigned long width = Register::s_nbBytes;
        unsigned long nbWhole = nbBytes - nbBytes % width;
        if (block.bStreaming && reinterpret_cast<unsigned long>(destination) % width == 0) {
            for (unsigned long i = 0; i < nbWhole; i += width) {
                Register::load(source + i).stream(destination + i);
            }
            simd::streamFence();
        } else {
            unsigned long i = 0;
            for (; i + 4 * width <= nbWhole; i += 4 * width) { // on small images the loop itself counts
                const Register first = Register::load(source + i);
                const Register second = Register::load(source + i + width);
                const Register third = Register::load(source + i + 2 * width);
                const Register fourth = Register::load(source + i + 3 * width);
                first.store(destination + i);
                second.store(destination + i + width);
                third.store(destination + i + 2 * width);
                fourth.store(destination + i + 3 * width);
            }
            for (; i < nbWhole; i += width) {
                Register::load(source + i).store(destination + i);
            }
        }
        source += nbWhole;
        destination += nbWhole;
        nbBytes -= nbWhole;
    }
    std::memcpy(destination, source, nbBytes);
    return succeed();
}

} // namespace orlix::imaproc::util
