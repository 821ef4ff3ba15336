// copyImg: an image into a new one or into a given one.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class CopyImgLvl1; // to wait for an asynchronous run, include its header

/// A new image with the geometry, calibration and pixels of `inImg`.
/// shapes   in (X, Y, Z, C, T) -> out (X, Y, Z, C, T), same element type
/// errors   a null image, or memory that can't be had: an exception derived from BaseException
/// threads  as many as core::accessExecutor() has; `inImg` is only read
ORLIXIPLUTILITY_API ImagePtr copyImg(const ImageConstPtr& inImg);

/// Copies the pixels of `inImg` into `outImg`; nothing happens where both are the same pixels.
/// shapes   in (X, Y, Z, C, T), out the same sizes and element type
/// errors   null images, other sizes or type: ORLIXBaseProcessingException; no pixel is written
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void copyImg(const ImageConstPtr& inImg, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<CopyImgLvl1> copyImg_async(const ImageConstPtr& inImg);
ORLIXIPLUTILITY_API boost::shared_ptr<CopyImgLvl1> copyImg_async(const ImageConstPtr& inImg, const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<CopyImgLvl1> processor);

} // namespace orlix::imaproc::util
