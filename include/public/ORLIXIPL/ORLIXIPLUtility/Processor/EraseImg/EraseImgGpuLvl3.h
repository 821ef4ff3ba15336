// One value into an image on a device, by a launcher chosen by element type.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/GpuLevel.h"

namespace orlix::imaproc::util {

/// All images have to lie on one device.
class ORLIXIPLUTILITY_API EraseImgGpuLvl3 final
    : public GpuLevel<EraseImgGpuLvl3, UtilityLibrary, TypedBy<attr::OutImg>, attr::InOptEraseValue, attr::OutImg>
{
public:
    static constexpr processor::ProcessorText g_text{"EraseImgGpuLvl3", eProcessorMessage::eEraseImgGpuLvl3};

    using Rule = processor::NoRule;

    EraseImgGpuLvl3();
    ~EraseImgGpuLvl3() override;

    /// Sets all elements, which are of type T, to the value as kernels of the processor take it.
    template <class T>
    ProcessingResult<bool> genericKernelLauncher();
};

} // namespace orlix::imaproc::util
