#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CompareImgLvl2, eProcessorMessage> g_registration;

} // namespace

processor::RulePtr CompareImgLvl2::createRule() const
{
    return matchSizeAndType(accessAttribute<attr::InSubImg2d1>(), accessAttribute<attr::InSubImg2d2>());
}

void CompareImgLvl2::clearIntermediateData()
{
    m_results.clear();
}

processor::ProviderResult CompareImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                           boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return m_lower.dispatch(getDispatchPolicy(), priority, provider, resultByRange(m_results),
                            sameForAll(accessAttribute<attr::InImgComparisonTolerance>()->getStorage()),
                            stripByStrip(accessAttribute<attr::InSubImg2d1>()->getStorage()),
                            stripByStrip(accessAttribute<attr::InSubImg2d2>()->getStorage()));
}

processor::StepResult CompareImgLvl2::postProcess()
{
    attr::CompareResult& plan = accessAttribute<attr::OutCompareResult>()->getDataItemNode();
    plan.reset();
    for (const auto& [range, strip] : m_results) {
        plan.merge(*strip);
    }
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
