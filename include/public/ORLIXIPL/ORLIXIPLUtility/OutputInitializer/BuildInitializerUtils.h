// What a missing output looks like that is generated from nothing but a size.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

namespace orlix::imaproc::util {

// For customOutput: a binary image, grey, of one time step, that follows from no other image and has no calibration.
// Nothing is kept but a weak reference. An attribute that is gone, was never there or holds no size:
// ORLIXIPLUtilityException, "Input attribute should not be null".

/// A single plan of X by Y.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputBuild2d(const boost::weak_ptr<const attr::InOutputImg2dSize>& size);

/// A volume of X by Y by Z.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputBuild3d(const boost::weak_ptr<const attr::InOutputImg3dSize>& size);

} // namespace orlix::imaproc::util
