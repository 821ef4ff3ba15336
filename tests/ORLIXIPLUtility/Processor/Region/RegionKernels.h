// The kernels that every operator on regions has.
#pragma once

#include "ORLIXIPLUtility/KernelChecks.h"

namespace orlix::imaproc::util {

/// AVX moves floats, and AVX2 leaves them to it.
inline const testing::KernelTable g_regionKernels{
    {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX, eInstructionSet::eAVX2,
     eInstructionSet::eAVX512},
    [](testing::Set set, testing::BufferType type) {
        const bool bReal = type == image::eImageBufferType::Real32;
        return set == eInstructionSet::eAVX ? bReal : set != eInstructionSet::eAVX2 || !bReal;
    }};

} // namespace orlix::imaproc::util
