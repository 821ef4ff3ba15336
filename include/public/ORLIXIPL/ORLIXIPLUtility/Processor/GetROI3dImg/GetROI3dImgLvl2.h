// Region of a volume to a volume of its size: hands the strips to GetROI3dImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgRule.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

/// The plans of the region. Their numbers are cut to 32 bits, which is what a strip axis counts.
struct GetROI3dImgRange
{
    template <class TValues>
    static StripRange of(const TValues& values)
    {
        const attr::Img3dOffset& offset = *values.template get<attr::InInputImg3dOffset>();
        const attr::Img3dSize& size = *values.template get<attr::InOutputImg3dSize>();
        const unsigned long bytes = image::elementSize(values.template get<attr::InSubImg3d>()->getBufferType());
        return {static_cast<unsigned int>(offset.Z), static_cast<unsigned int>(size.Z), size.X * size.Y * bytes};
    }
};

class ORLIXIPLUTILITY_API GetROI3dImgLvl2 final
    : public StripLevel<GetROI3dImgLvl2, UtilityLibrary, GetROI3dImgLvl3,
                        ByZSubStrip<attr::InSubImg3d, attr::InZStrip3d, GetROI3dImgRange>,
                        SameForStrips<attr::InInputImg3dOffset>, SameForStrips<attr::InOutputImg3dSize>,
                        ByZStrip<attr::OutImg, attr::OutZStrip3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI3dImgLvl2", eProcessorMessage::eGetROI3dImgLvl2};

    using Rule = GetROI3dImgRule<attr::InSubImg3d, attr::OutImg>;
    using Initializers = processor::AllOutputsGiven;

    GetROI3dImgLvl2();
    ~GetROI3dImgLvl2() override;
};

} // namespace orlix::imaproc::util
