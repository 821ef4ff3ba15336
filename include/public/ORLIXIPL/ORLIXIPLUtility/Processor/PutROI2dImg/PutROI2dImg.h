// putROI2dImg: a smaller image into a rectangle of a larger one, or of a copy of it.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class PutROI2dImgLvl1; // to wait for an asynchronous run, include its header

/// Writes `roiImg` into `inOutImg` at the offset, every plan into the one of the same plan, channel and time step. No
/// other pixel is touched, and the calibration stays.
/// shapes   inOut (X, Y, Z, C, T), roi (x, y, Z, C, T), same element types
/// units    offsets in pixels; sizes of 0 are legal
/// errors   null images, another element type, other numbers of plans, channels or time steps, a region that ends
///          outside: ORLIXBaseProcessingException; no pixel is written. A negative number is a huge one here.
/// threads  as many as core::accessExecutor() has; `roiImg` is only read, and shares no pixel with `inOutImg`, which is
///          written and belongs to this call until it returns
ORLIXIPLUTILITY_API void putROI2dImg(const ImagePtr& inOutImg, const ImageConstPtr& roiImg, unsigned long offsetX,
                                     unsigned long offsetY);

/// `outImg` becomes a copy of the pixels of `inImg` with `roiImg` written into it; its calibration stays. Where both
/// are the same pixels, as above. shapes   out the sizes and element types of in errors   also other sizes or another
/// type of `outImg`
ORLIXIPLUTILITY_API void putROI2dImg(const ImageConstPtr& inImg, const ImageConstPtr& roiImg, unsigned long offsetX,
                                     unsigned long offsetY, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<PutROI2dImgLvl1>
putROI2dImg_async(const ImagePtr& inOutImg, const ImageConstPtr& roiImg, unsigned long offsetX, unsigned long offsetY);
ORLIXIPLUTILITY_API boost::shared_ptr<PutROI2dImgLvl1> putROI2dImg_async(const ImageConstPtr& inImg,
                                                                         const ImageConstPtr& roiImg,
                                                                         unsigned long offsetX, unsigned long offsetY,
                                                                         const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<PutROI2dImgLvl1> processor);

} // namespace orlix::imaproc::util
