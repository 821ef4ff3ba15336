// getSlice3dImg: one slice of a volume, perpendicular to x, y or z, into a new image or into a given one.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class GetSlice3dImgLvl1; // to wait for an asynchronous run, include its header

/// A new image: of every volume of `inImg` the slice number `index`, from 0, on `axis`. The axes that remain keep their
/// order, so a slice along x has y across and z down.
/// shapes   in (X, Y, Z, C, T) -> out along x (Y, Z, 1, C, T), along y (X, Z, 1, C, T), along z (X, Y, 1, C, T); same
///          element types; the calibration of the slice, see sliceCalibration
/// errors   a null image, or memory that can't be had: an exception derived from BaseException. `index` is not looked
///          at: one beyond the axis reads memory of others along x and y, and fails along z. Ask hasSlice where a
///          person chose it
/// threads  as many as core::accessExecutor() has; `inImg` is only read
ORLIXIPLUTILITY_API ImagePtr getSlice3dImg(const ImageConstPtr& inImg, const eAxis& axis, unsigned long index);

/// Writes the slice into `outImg`, whose calibration stays as it is.
/// shapes   in (X, Y, Z, C, T), out as above
/// errors   null images, other sizes or types: ORLIXBaseProcessingException; no pixel is written. `index` as above
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void getSlice3dImg(const ImageConstPtr& inImg, const eAxis& axis, unsigned long index,
                                       const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<GetSlice3dImgLvl1> getSlice3dImg_async(const ImageConstPtr& inImg,
                                                                             const eAxis& axis, unsigned long index);
ORLIXIPLUTILITY_API boost::shared_ptr<GetSlice3dImgLvl1>
getSlice3dImg_async(const ImageConstPtr& inImg, const eAxis& axis, unsigned long index, const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GetSlice3dImgLvl1> processor);

} // namespace orlix::imaproc::util
