// Image to image on a device, by a launcher chosen by element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

namespace orlix::imaproc::util {

/// All images have to lie on one device.
class ORLIXIPLUTILITY_API CopyImgGpuLvl3 final
    : public GpuLevel<CopyImgGpuLvl3, UtilityLibrary, TypedBy<attr::InSubGpuImg>, attr::InSubGpuImg, attr::OutImg>
{
public:
    static constexpr processor::ProcessorText g_text{"CopyImgGpuLvl3", eProcessorMessage::eCopyImgGpuLvl3};

    using Rule = MatchSizeAndType<attr::InSubGpuImg, attr::OutImg>;

    CopyImgGpuLvl3();
    ~CopyImgGpuLvl3() override;

    /// Copies all plans of elements of type T, bit for bit.
    template <class T>
    ProcessingResult<bool> genericKernelLauncher();
};

} // namespace orlix::imaproc::util
