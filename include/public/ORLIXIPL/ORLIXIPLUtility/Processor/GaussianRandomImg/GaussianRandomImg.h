// gaussianRandomImg: normal random values into every pixel of an image.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/GaussianParameter.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class GaussianRandomImgLvl1; // to wait for an asynchronous run, include its header

/// Sets every pixel of `outImg` to a value of the normal law that `parameter` tells, computed in single precision (G.
/// Box and M. Muller, "A Note on the Generation of Random Normal Deviates", 1958). Integers round half away from zero
/// and saturate. No mean or deviation is refused: a deviation of 0 gives the mean, one below 0 its mirror image. No
/// value lies further than 6.8 deviations from the mean. See RandomRun.h for values that can be had again.
/// shapes   out (X, Y, Z, C, T), any element type
/// errors   null pointers: ORLIXBaseProcessingException
/// threads  as many as core::accessExecutor() has; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void gaussianRandomImg(const boost::shared_ptr<const attr::GaussianParameter>& parameter,
                                           const ImagePtr& outImg);

/// The same where `outImg` is a part of a larger image. With a seed and the number of the run named by a
/// RandomRunScope, it gets what the whole would have there.
/// errors   as above; a part that doesn't lie within the whole, or has not its whole lines: ORLIXIPLUtilityException
ORLIXIPLUTILITY_API void gaussianRandomImg(const boost::shared_ptr<const attr::GaussianParameter>& parameter,
                                           const ImagePtr& outImg, const ImagePart& part);

/// The first, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<GaussianRandomImgLvl1>
gaussianRandomImg_async(const boost::shared_ptr<const attr::GaussianParameter>& parameter, const ImagePtr& outImg);

/// The image of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<GaussianRandomImgLvl1> processor);

} // namespace orlix::imaproc::util
