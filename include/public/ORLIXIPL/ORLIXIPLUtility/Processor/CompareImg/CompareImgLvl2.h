// Two plans: hands their strips to CompareImgLvl3 and merges what these find.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CompareImgLvl2 final
    : public UtilityProcessor<CompareImgLvl2, processor::BaseAsync1Processor, attr::InSubImg2d1, attr::InSubImg2d2,
                              attr::InImgComparisonTolerance, attr::OutCompareResult>
{
public:
    static constexpr const char* g_name = "CompareImgLvl2";
    static constexpr auto g_toolTip = eProcessorMessage::eCompareImgLvl2;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, same element type.
    processor::RulePtr createRule() const;
    /// Level 1 gives the output.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    void clearIntermediateData() override;

protected:
    using BaseAsync1Processor::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;
    /// Merges the results of the strips in the order of their lines.
    processor::StepResult postProcess() override;

private:
    DynamicDispatch<CompareImgLvl3, processor::DynamicByCreationResultSplit<CompareImgLvl3, attr::OutCompareResult>,
                    processor::DynamicNoSplit<CompareImgLvl3, attr::InImgComparisonTolerance>,
                    ImageYStrip2dSplit<CompareImgLvl3, const image::BaseImage, attr::InYStrip2d1>,
                    ImageYStrip2dSplit<CompareImgLvl3, const image::BaseImage, attr::InYStrip2d2>>
        m_lower;
    processor::CreationResultMap<attr::CompareResult> m_results;
};

} // namespace orlix::imaproc::util
