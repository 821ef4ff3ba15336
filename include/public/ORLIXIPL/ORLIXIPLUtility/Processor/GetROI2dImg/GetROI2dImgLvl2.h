// Region of a plan to a plan of its size: hands the strips to GetROI2dImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgRule.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

/// The lines of the region. Their numbers are cut to 32 bits, which is what a strip axis counts.
struct GetROI2dImgRange
{
    template <class TValues>
    static StripRange of(const TValues& values)
    {
        const attr::Img2dOffset& offset = *values.template get<attr::InInputImg2dOffset>();
        const attr::Img2dSize& size = *values.template get<attr::InOutputImg2dSize>();
        const unsigned long bytes = image::elementSize(values.template get<attr::InSubImg2d>()->getBufferType());
        return {static_cast<unsigned int>(offset.Y), static_cast<unsigned int>(size.Y), size.X * bytes};
    }
};

class ORLIXIPLUTILITY_API GetROI2dImgLvl2 final
    : public StripLevel<GetROI2dImgLvl2, UtilityLibrary, GetROI2dImgLvl3,
                        ByYSubStrip<attr::InSubImg2d, attr::InYStrip2d, GetROI2dImgRange>,
                        SameForStrips<attr::InInputImg2dOffset>, SameForStrips<attr::InOutputImg2dSize>,
                        ByYStrip<attr::OutImg, attr::OutYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI2dImgLvl2", eProcessorMessage::eGetROI2dImgLvl2};

    using Rule = GetROI2dImgRule<attr::InSubImg2d, attr::OutImg>;
    using Initializers = processor::AllOutputsGiven;

    GetROI2dImgLvl2();
    ~GetROI2dImgLvl2() override;
};

} // namespace orlix::imaproc::util
