#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl2.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetSlice3dImgLvl2, eProcessorMessage> g_registration;

} // namespace

GetSlice3dImgLvl2::GetSlice3dImgLvl2() = default;
GetSlice3dImgLvl2::~GetSlice3dImgLvl2() = default;

ProcessingResult<bool> GetSlice3dImgLvl2::checkForCaller() const
{
    const attr::InSubImg3d& volume = *accessAttribute<attr::InSubImg3d>();
    if (!volume.isHeld()) {
        return true;
    }
    return hasSlice(volume.getImage(), accessAttribute<attr::InAxis>()->getValue(),
                    accessAttribute<attr::InSliceIndex>()->getValue());
}

processor::ProviderResult GetSlice3dImgLvl2::retrieveProvider(const core::BasePriority& priority,
                                                              boost::shared_ptr<core::BaseActionProvider>& provider)
{
    return isCutByLevel3(accessAttribute<attr::InAxis>()->getValue())
               ? DispatchLevel::retrieveProvider(priority, provider)
               : copyXY(priority, provider);
}

processor::ProviderResult GetSlice3dImgLvl2::copyXY(const core::BasePriority& priority,
                                                    boost::shared_ptr<core::BaseActionProvider>& provider)
{
    // An index past the end leaves the view null, which the split of the copy then refuses.
    ImageConstPtr plan;
    static_cast<void>(image::SubImageExtractor::extractPlan(accessAttribute<attr::InSliceIndex>()->getValue(), 0, 0,
                                                            accessAttribute<attr::InSubImg3d>()->getImage(), plan));
    return m_copy.dispatch(getDispatchPolicy(), priority, provider,
                           planByPlan(accessAttribute<attr::OutImg2d>()->getStorage()), planByPlan(plan));
}

} // namespace orlix::imaproc::util
