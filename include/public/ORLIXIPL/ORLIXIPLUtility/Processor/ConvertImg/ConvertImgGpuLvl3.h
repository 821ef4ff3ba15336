// Image to image of another element type on a device, by rules of its own, by a launcher chosen by element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

namespace orlix::imaproc::util {

/// All images have to lie on one device.
class ORLIXIPLUTILITY_API ConvertImgGpuLvl3 final
    : public GpuLevel<ConvertImgGpuLvl3, UtilityLibrary, TypedBy<attr::InSubGpuImg, attr::OutImg>, attr::InSubGpuImg,
                      attr::OutImg>
{
public:
    static constexpr processor::ProcessorText g_text{"ConvertImgGpuLvl3", eProcessorMessage::eConvertImgGpuLvl3};

    using Rule = MatchSize<attr::InSubGpuImg, attr::OutImg>;

    ConvertImgGpuLvl3();
    ~ConvertImgGpuLvl3() override;

    /// Converts all elements of type TIn to TOut as devices do: values are clamped where kernels of the processor wrap,
    /// and all but 0 becomes 1 in a binary output.
    template <class TIn, class TOut>
    ProcessingResult<bool> genericKernelLauncher();
};

} // namespace orlix::imaproc::util
