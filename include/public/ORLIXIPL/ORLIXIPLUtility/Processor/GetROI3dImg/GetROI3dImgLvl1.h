// Region of an image to an image of its size: hands the volumes to GetROI3dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/ROIInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ROICalibration.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GetROI3dImgLvl1 final
    : public PlanLevel<GetROI3dImgLvl1, UtilityLibrary, GetROI3dImgLvl2,
                       ByVolume<attr::InImg3d, attr::InSubImg3d, PlacedFor<attr::OutImg>>,
                       SameForPlans<attr::InInputImg3dOffset>, SameForPlans<attr::InOutputImg3dSize>,
                       ByVolume<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI3dImgLvl1", eProcessorMessage::eGetROI3dImgLvl1};

    using Rule = GetROI3dImgRule<attr::InImg3d, attr::OutImg>;
    using Initializers =
        processor::OutputInitializers<CustomOutput<attr::OutImg, OutputROI3d<attr::InImg3d, attr::InOutputImg3dSize>>>;

    GetROI3dImgLvl1();
    ~GetROI3dImgLvl1() override;

    /// As that of every level, and calibrates the output.
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        ProcessingResult<bool> result = DispatchLevel::runStraight(values);
        if (result) {
            calibrateROI3d(*values.template get<attr::InImg3d>(), *values.template get<attr::InInputImg3dOffset>(),
                           *values.template get<attr::OutImg>());
        }
        return result;
    }

protected:
    /// Calibrates the output: a position measured in it is that of the input.
    processor::StepResult postProcess() override;
};

} // namespace orlix::imaproc::util
