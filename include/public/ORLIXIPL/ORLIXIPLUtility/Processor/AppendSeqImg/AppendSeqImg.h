// appendSeqImg: two sequences one after the other, in a new image, in a given one, or in the first of them.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class AppendSeqImgLvl1; // to wait for an asynchronous run, include its header

/// A new image with the time steps of `inImg1`, then those of `inImg2`, and the calibration of `inImg1`.
/// shapes   in (X, Y, Z, C, T1), (X, Y, Z, C, T2) -> out (X, Y, Z, C, T1 + T2). Both are of plans or both of volumes.
///          Element types may differ: each step keeps the type that it has.
/// errors   null images, other sizes: ORLIXBaseProcessingException; memory that can't be had: an exception derived
///          from BaseException
/// threads  as many as core::accessExecutor() has; the inputs are only read
ORLIXIPLUTILITY_API ImagePtr appendSeqImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2);

/// The same into `outImg`. Where that is `inImg1`, it grows in place: its time steps stay where they are and views of
/// it stay what they were; only `inImg2` is copied, into new memory behind them.
/// shapes   out (X, Y, Z, C, T1 + T2), each step of the element type of the input's; or `inImg1` itself
/// errors   as above. `outImg` must not be `inImg2`; an `inImg1` that grows owns its pixels, in host memory: it is
///          neither wrapped nor a view; an output of other sizes or element types. Nothing is changed then. Where the
///          copy fails after the growth, the image stays as large as it has become.
/// threads  as above; `outImg` is written and belongs to this call until it returns, also where it is `inImg1`
ORLIXIPLUTILITY_API void appendSeqImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<AppendSeqImgLvl1> appendSeqImg_async(const ImageConstPtr& inImg1,
                                                                           const ImageConstPtr& inImg2);
ORLIXIPLUTILITY_API boost::shared_ptr<AppendSeqImgLvl1>
appendSeqImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2, const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<AppendSeqImgLvl1> processor);

} // namespace orlix::imaproc::util
