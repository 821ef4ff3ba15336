#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutSlice3dImgLvl2, eProcessorMessage> g_registration;

} // namespace

PutSlice3dImgLvl2::PutSlice3dImgLvl2() = default;
PutSlice3dImgLvl2::~PutSlice3dImgLvl2() = default;

ProcessingResult<bool> PutSlice3dImgLvl2::checkForCaller() const
{
    const attr::InSubImg3d& volume = *accessAttribute<attr::InSubImg3d>();
    const attr::InSubImg2d& slice = *accessAttribute<attr::InSubImg2d>();
    if (!volume.isHeld() || !slice.isHeld()) {
        return true;
    }
    return takesSlice(volume.getImage(), slice.getImage(), accessAttribute<attr::InAxis>()->getValue(),
                      accessAttribute<attr::InSliceIndex>()->getValue());
}

processor::ProviderResult PutSlice3dImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                              boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return isCutByLevel3(accessAttribute<attr::InAxis>()->getValue())
               ? DispatchLevel::retrieveProvider(priority, provider)
               : copyXY(priority, provider);
}

processor::ProviderResult PutSlice3dImgLvl2::copyXY(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider)
{
    // An index past the end leaves the view null, which the split of the copy then refuses.
    ImagePtr plan;
    static_cast<void>(image::SubImageExtractor::extractPlan(accessAttribute<attr::InSliceIndex>()->getValue(), 0, 0,
                                                            accessAttribute<attr::OutImg>()->getImage(), plan));
    return m_copy.dispatch(getDispatchPolicy(), priority, provider, planByPlan(plan),
                           planByPlan(accessAttribute<attr::InSubImg2d>()->getStorage()));
}

} // namespace orlix::imaproc::util
