// The kernel of PutROI3dImgLvl3, once for all element types and instruction sets; included by its files only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(PutROI3dImgLvl3, plain, sse2, avx, avx2, avx512)

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> PutROI3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo&)
{
    copyBox<ISA>(m_box);
    return succeed();
}

} // namespace orlix::imaproc::util
