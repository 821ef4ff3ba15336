// putSlice3dImg: a volume with one slice, perpendicular to x, y or z, taken from another image.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class PutSlice3dImgLvl1; // to wait for an asynchronous run, include its header

/// A new image like `inImg`, in which slice number `index`, from 0, on `axis` is `slice`, in every channel and time
/// step.
/// shapes   in (X, Y, Z, C, T), slice along x (Y, Z, 1, C, T), along y (X, Z, 1, C, T), along z (X, Y, 1, C, T)
///          -> out (X, Y, Z, C, T), element types and calibration of `inImg`
/// errors   null images, a slice of other sizes: ORLIXBaseProcessingException; memory that can't be had: an exception
///          derived from BaseException. Neither `index` nor the slice's element type are looked at: an index beyond the
///          axis, or a type of more bytes, writes into memory of others along x and y, and fails along z. Ask
///          takesSlice where a person chose them
/// threads  as many as core::accessExecutor() has; `inImg` and `slice` are only read
ORLIXIPLUTILITY_API ImagePtr putSlice3dImg(const ImageConstPtr& inImg, const ImageConstPtr& slice, const eAxis& axis,
                                           unsigned long index);

/// Writes that image into `outImg`. Where that is `inImg`, or a view of the same pixels, only the slice is written.
/// shapes   as above, out the sizes and element types of in
/// errors   as above; after a failure of the shapes no pixel is written
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void putSlice3dImg(const ImageConstPtr& inImg, const ImageConstPtr& slice, const eAxis& axis,
                                       unsigned long index, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<PutSlice3dImgLvl1>
putSlice3dImg_async(const ImageConstPtr& inImg, const ImageConstPtr& slice, const eAxis& axis, unsigned long index);
ORLIXIPLUTILITY_API boost::shared_ptr<PutSlice3dImgLvl1> putSlice3dImg_async(const ImageConstPtr& inImg,
                                                                             const ImageConstPtr& slice,
                                                                             const eAxis& axis, unsigned long index,
                                                                             const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<PutSlice3dImgLvl1> processor);

} // namespace orlix::imaproc::util
