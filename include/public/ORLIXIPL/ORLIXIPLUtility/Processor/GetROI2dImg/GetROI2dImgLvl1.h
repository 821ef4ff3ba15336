// Region of an image to an image of its size: hands the plans to GetROI2dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/ROIInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ROICalibration.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GetROI2dImgLvl1 final
    : public PlanLevel<GetROI2dImgLvl1, UtilityLibrary, GetROI2dImgLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d, PlacedFor<attr::OutImg>>,
                       SameForPlans<attr::InInputImg2dOffset>, SameForPlans<attr::InOutputImg2dSize>,
                       ByPlan<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"GetROI2dImgLvl1", eProcessorMessage::eGetROI2dImgLvl1};

    using Rule = GetROI2dImgRule<attr::InImg, attr::OutImg>;
    using Initializers =
        processor::OutputInitializers<CustomOutput<attr::OutImg, OutputROI2d<attr::InImg, attr::InOutputImg2dSize>>>;

    GetROI2dImgLvl1();
    ~GetROI2dImgLvl1() override;

    /// As that of every level, and calibrates the output.
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        ProcessingResult<bool> result = DispatchLevel::runStraight(values);
        if (result) {
            calibrateROI2d(*values.template get<attr::InImg>(), *values.template get<attr::InInputImg2dOffset>(),
                           *values.template get<attr::OutImg>());
        }
        return result;
    }

protected:
    /// Calibrates the output: a position measured in it is that of the input.
    processor::StepResult postProcess() override;
};

} // namespace orlix::imaproc::util
