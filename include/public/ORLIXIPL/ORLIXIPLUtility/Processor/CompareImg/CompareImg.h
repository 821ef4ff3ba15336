// compareImg: how many pixels of two images differ, and where the first difference lies.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CompareResult.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class CompareImgLvl1; // to wait for an asynchronous run, include its header

/// Compares pixel by pixel; images that differ are a success whose result says so. Every pixel is visited, also after
/// the first difference. In floating images not-a-number differs from everything, itself included.
/// shapes   both (X, Y, Z, C, T), same element type
/// returns  counts; position (x, y, z, c, t) and both values of the first difference in the order x, y, z, c, t
/// errors   null images, other sizes or type: ORLIXBaseProcessingException; no pixel is read
/// threads  as many as core::accessExecutor() has; the images are only read
ORLIXIPLUTILITY_API boost::shared_ptr<attr::CompareResult> compareImg(const ImageConstPtr& inImg1,
                                                                      const ImageConstPtr& inImg2);

/// The same where differences up to `tolerance` pass: see attr::ImgComparisonTolerance. A null tolerance is refused. In
/// every mode but eNoTolerance a pair with not-a-number passes. The absolute difference of two Int32 pixels wraps at 32
/// bits, and a wrapped one passes.
ORLIXIPLUTILITY_API boost::shared_ptr<attr::CompareResult>
compareImg(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2,
           const boost::shared_ptr<const attr::ImgComparisonTolerance>& tolerance);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<CompareImgLvl1> compareImg_async(const ImageConstPtr& inImg1,
                                                                       const ImageConstPtr& inImg2);
ORLIXIPLUTILITY_API boost::shared_ptr<CompareImgLvl1>
compareImg_async(const ImageConstPtr& inImg1, const ImageConstPtr& inImg2,
                 const boost::shared_ptr<const attr::ImgComparisonTolerance>& tolerance);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API boost::shared_ptr<attr::CompareResult>
getAsyncProcessorOutput(boost::shared_ptr<CompareImgLvl1> processor);

} // namespace orlix::imaproc::util
