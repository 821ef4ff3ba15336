#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/AllocateInitializer.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CompareImgLvl1, eProcessorMessage> g_registration;

constexpr unsigned long g_maxKeptResults = 1024;

} // namespace

processor::RulePtr CompareImgLvl1::createRule() const
{
    return matchSizeAndType(accessAttribute<attr::InImg1>(), accessAttribute<attr::InImg2>());
}

void CompareImgLvl1::initOutputInitializers(processor::OutputInitializerMap& initializers) const
{
    initializers[attr::OutCompareResult::getObjectNameStr()] =
        processor::allocate<attr::OutCompareResult>(accessAttribute<attr::OutCompareResult>());
}

void CompareImgLvl1::clearIntermediateData()
{
    if (m_results && m_results->size() > g_maxKeptResults) {
        m_results.reset();
    }
}

void CompareImgLvl1::initResults(const image::BaseImage& image)
{
    const PlanIndex sizes(image.getSizeZ(), image.getSizeC(), image.getSizeT());
    if (!m_results || m_resultSizes != sizes) {
        m_results = boost::make_shared<attr::PlanIndexedCompareResult>();
        m_results->initPlanIndexed(sizes.z, sizes.c, sizes.t);
        m_resultSizes = sizes;
        return;
    }
    for (unsigned long i = 0; i < m_results->size(); ++i) {
        m_results->getItem(i)->reset();
    }
}

processor::ProviderResult CompareImgLvl1::retrieveProvider(const core::BasePriority& priority,
                                                           boost::shared_ptr<core::BaseActionProvider>& provider)
{
    const attr::InImg1& first = *accessAttribute<attr::InImg1>();
    const attr::InImg2& second = *accessAttribute<attr::InImg2>();
    attr::InOptImgComparisonTolerance& tolerance = *accessAttribute<attr::InOptImgComparisonTolerance>();
    if (!tolerance.isSet()) {
        if (!m_noTolerance) {
            m_noTolerance = attr::createImgComparisonNoTolerance();
        }
        tolerance.init(m_noTolerance);
    }
    const image::BaseImage& image = first.getImage();
    initResults(image);
    return m_lower.dispatch(getDispatchPolicy(), priority, provider, entryByPlan(m_results, image),
                            sameForAll(tolerance.getStorage()), planByPlan(first.getStorage()),
                            planByPlan(second.getStorage()));
}

processor::StepResult CompareImgLvl1::postProcess()
{
    attr::CompareResult& whole = accessAttribute<attr::OutCompareResult>()->getDataItemNode();
    whole.reset();
    for (unsigned long i = 0; i < m_results->size(); ++i) {
        if (whole.merge(*m_results->getItem(i))) {
            const PlanIndex& plan = m_results->getPlanIndex(i); // below, a plan is all there is
            whole.firstDifference.z = plan.z;
            whole.firstDifference.c = plan.c;
            whole.firstDifference.t = plan.t;
        }
    }
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
