#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<PutSlice3dImgLvl1, eProcessorMessage> g_registration;

} // namespace

PutSlice3dImgLvl1::PutSlice3dImgLvl1() = default;
PutSlice3dImgLvl1::~PutSlice3dImgLvl1() = default;

ProcessingResult<bool> PutSlice3dImgLvl1::checkForCaller() const
{
    const attr::InImg3d& volume = *accessAttribute<attr::InImg3d>();
    const attr::InImg2d& slice = *accessAttribute<attr::InImg2d>();
    if (!volume.isHeld() || !slice.isHeld()) {
        return true;
    }
    return takesSlice(volume.getImage(), slice.getImage(), accessAttribute<attr::InAxis>()->getValue(),
                      accessAttribute<attr::InSliceIndex>()->getValue());
}

} // namespace orlix::imaproc::util
