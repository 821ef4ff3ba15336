// randomImg: uniform random values into every pixel of an image.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Range.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class RandomImgLvl1; // to wait for an asynchronous run, include its header

/// Sets every pixel of `outImg` to a random value, each that its element type can hold about as often as any other;
/// what Real32 can hold lies from -FLT_MAX to FLT_MAX, evenly. See RandomRun.h for values that can be had again.
/// shapes   out (X, Y, Z, C, T), any element type
/// errors   a null image: ORLIXBaseProcessingException
/// threads  as many as core::accessExecutor() has; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void randomImg(const ImagePtr& outImg);

/// The same with values from `range`, both ends included. Integers take the ends without their fractions: 10.9 to 20.9
/// acts as 10 to 20. Ends in the wrong order are not refused; what comes then depends on the instruction set.
/// shapes, threads  as above
/// errors           null pointers, an end outside the element type: ORLIXBaseProcessingException; no pixel is written
ORLIXIPLUTILITY_API void randomImg(const boost::shared_ptr<const attr::Range>& range, const ImagePtr& outImg);

/// The same two where `outImg` is a part of a larger image. With a seed and the number of the run named by a
/// RandomRunScope, it gets what the whole would have there.
/// errors   as above; a part that doesn't lie within the whole, or has not its whole lines: ORLIXIPLUtilityException
ORLIXIPLUTILITY_API void randomImg(const ImagePtr& outImg, const ImagePart& part);
ORLIXIPLUTILITY_API void randomImg(const boost::shared_ptr<const attr::Range>& range, const ImagePtr& outImg,
                                   const ImagePart& part);

/// The first two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<RandomImgLvl1> randomImg_async(const ImagePtr& outImg);
ORLIXIPLUTILITY_API boost::shared_ptr<RandomImgLvl1> randomImg_async(const boost::shared_ptr<const attr::Range>& range,
                                                                     const ImagePtr& outImg);

/// The image of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<RandomImgLvl1> processor);

} // namespace orlix::imaproc::util
