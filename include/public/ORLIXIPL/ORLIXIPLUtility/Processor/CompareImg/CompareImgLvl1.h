// Two whole images: hands their plans to CompareImgLvl2 and merges what these find.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityProcessor.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CompareImgLvl1 final
    : public UtilityProcessor<CompareImgLvl1, processor::BaseAsync1Processor, attr::InImg1, attr::InImg2,
                              attr::InOptImgComparisonTolerance, attr::OutCompareResult>
{
public:
    static constexpr const char* g_name = "CompareImgLvl1";
    static constexpr auto g_toolTip = eProcessorMessage::eCompareImgLvl1;
    static constexpr const char* g_header = __FILE__;

    /// Same sizes, same element type.
    processor::RulePtr createRule() const;
    /// A missing result is made.
    void initOutputInitializers(processor::OutputInitializerMap& initializers) const;

    /// Keeps results that a next run of the same number of plans can use again, unless they are many.
    void clearIntermediateData() override;

protected:
    using BaseAsync1Processor::retrieveProvider;
    /// Sets an unset tolerance to none, and leaves it set.
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;
    /// Merges the results of the plans, z fastest, then c, then t.
    processor::StepResult postProcess() override;

private:
    /// A result at its start values for each plan.
    void initResults(const image::BaseImage& image);

    StaticDispatch<
        CompareImgLvl2,
        PlanIndexedSplit<CompareImgLvl2, boost::shared_ptr<attr::PlanIndexedCompareResult>, attr::OutCompareResult>,
        processor::StaticNoSplit<CompareImgLvl2, attr::InImgComparisonTolerance>,
        SubImageSplit<CompareImgLvl2, attr::InSubImg2d1>, SubImageSplit<CompareImgLvl2, attr::InSubImg2d2>>
        m_lower;
    boost::shared_ptr<attr::PlanIndexedCompareResult> m_results;
    PlanIndex m_resultSizes; ///< for which the results were made
    boost::shared_ptr<const attr::ImgComparisonTolerance> m_noTolerance; ///< made for the first run without one
};

} // namespace orlix::imaproc::util
