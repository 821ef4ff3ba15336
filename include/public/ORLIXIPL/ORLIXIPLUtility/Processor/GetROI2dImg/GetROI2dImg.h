// getROI2dImg: a rectangle of an image into a new image or into a given one.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class GetROI2dImgLvl1; // to wait for an asynchronous run, include its header

/// A new image of the rectangle at the offset, taken from every plan, channel and time step.
/// shapes   in (X, Y, Z, C, T) -> out (sizeX, sizeY, Z, C, T), same element types
/// units    offsets and sizes in pixels; sizes may be 0
/// output   its calibration has the pixel sizes and unit of the input's and the origin of the region, p * offset + o in
///          single precision, so a position stays the same; where the input has none, pixel size 1, unit "px" and the
///          offset as origin. Rotations are 0. In 2d also for a volume.
/// errors   a null image, a region that ends outside, memory that can't be had: an exception derived from
///          BaseException; a negative number is a huge one here
/// threads  as many as core::accessExecutor() has; `inImg` is only read
ORLIXIPLUTILITY_API ImagePtr getROI2dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY,
                                         unsigned long sizeX, unsigned long sizeY);

/// The same into `outImg`, which is calibrated too.
/// shapes   out as above
/// errors   also another size or element type of `outImg`, and the same pixels as `inImg`:
/// ORLIXBaseProcessingException;
///          no pixel is written. Pixels that both share in part come out in any order.
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void getROI2dImg(const ImageConstPtr& inImg, unsigned long offsetX, unsigned long offsetY,
                                     unsigned long sizeX, unsigned long sizeY, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<GetROI2dImgLvl1> getROI2dImg_async(const ImageConstPtr& inImg,
                                                                         unsigned long offsetX, unsigned long offsetY,
                                                                         unsigned long sizeX, unsigned long sizeY);
ORLIXIPLUTILITY_API boost::shared_ptr<GetROI2dImgLvl1> getROI2dImg_async(const ImageConstPtr& inImg,
                                                                         unsigned long offsetX, unsigned long offsetY,
                                                                         unsigned long sizeX, unsigned long sizeY,
                                                                         const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GetROI2dImgLvl1> processor);

} // namespace orlix::imaproc::util
