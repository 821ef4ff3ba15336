#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<GetSlice3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

GetSlice3dImgLvl1::GetSlice3dImgLvl1() = default;
GetSlice3dImgLvl1::~GetSlice3dImgLvl1() = default;

ProcessingResult<bool> GetSlice3dImgLvl1::checkForCaller() const
{
    const attr::InImg3d& volume = *accessAttribute<attr::InImg3d>();
    if (!volume.isHeld()) {
        return true;
    }
    return hasSlice(volume.getImage(), accessAttribute<attr::InAxis>()->getValue(),
                    accessAttribute<attr::InSliceIndex>()->getValue());
}

} // namespace orlix::imaproc::util
