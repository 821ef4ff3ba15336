// eraseImg: one value into every pixel of an image.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class EraseImgLvl1; // to wait for an asynchronous run, include its header

/// Sets every pixel of `outImg` to 0.
/// shapes   out (X, Y, Z, C, T), any element type
/// errors   a null image: ORLIXBaseProcessingException
/// threads  as many as core::accessExecutor() has; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void eraseImg(const ImagePtr& outImg);

/// Sets every pixel of `outImg` to `value`, as its element type takes it. Integers take the low bytes of the value
/// without its fraction, nothing saturates: 1.9 gives 1, and on UInt8 300 gives 44 and -1 gives 255. A value that a
/// signed integer of 32 bits can't hold (of 64 bits for UInt32 and UInt32Like), NaN and infinities included, gives 0,
/// and -2147483648 on Int32. Real32 takes the value in single precision.
/// shapes, errors, threads  as above
ORLIXIPLUTILITY_API void eraseImg(const ImagePtr& outImg, double value);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<EraseImgLvl1> eraseImg_async(const ImagePtr& outImg);
ORLIXIPLUTILITY_API boost::shared_ptr<EraseImgLvl1> eraseImg_async(const ImagePtr& outImg, double value);

/// The image of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<EraseImgLvl1> processor);

} // namespace orlix::imaproc::util
