// Grey image to binary image on a device, by a launcher chosen by element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgRule.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

namespace orlix::imaproc::util {

/// All images have to lie on one device.
class ORLIXIPLUTILITY_API BasicThresholdImgGpuLvl3 final
    : public GpuLevel<BasicThresholdImgGpuLvl3, UtilityLibrary, TypedBy<attr::InSubGpuImg>, attr::InSubGpuImg,
                      attr::InThresholdMin, attr::InThresholdMax, attr::OutBinImg>
{
public:
    static constexpr processor::ProcessorText g_text{"BasicThresholdImgGpuLvl3",
                                                     eProcessorMessage::eBasicThresholdImgGpuLvl3};

    using Rule = BasicThresholdImgRule<attr::InSubGpuImg, attr::OutBinImg>;

    BasicThresholdImgGpuLvl3();
    ~BasicThresholdImgGpuLvl3() override;

    /// Sets elements of the output to 1 where those of the input, which are of type T, lie between the bounds as
    /// kernels of the processor take them, else to 0.
    template <class T>
    ProcessingResult<bool> genericKernelLauncher();
};

} // namespace orlix::imaproc::util
