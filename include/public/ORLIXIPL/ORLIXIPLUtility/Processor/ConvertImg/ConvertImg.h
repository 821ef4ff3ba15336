// convertImg: an image into one of another element type.
//
// Nothing is scaled: a value is converted as it stands, and every pair of the 11 types will do. What the target type
// can represent comes out the same on every processor; what it can't represent depends on the instruction set that
// runs.
//
//   from        to                 result
//   any         Binary             1 where the value is at least 1, else 0
//   integer     wider integer      sign extension of signed sources, then the bits; zero extension of unsigned ones
//   integer     same width         the bits
//   integer     Real32             the nearest float
//   Real32      integer            truncated towards zero
//   Real32      Real32             the bits
//
//   out of range       plain          SSE2                         AVX2                              AVX512
//   16 to 8 bits       low 8 bits     source as signed, clamped    as SSE2                           as SSE2
//   32 bits to Int16   low 16 bits    source as signed, clamped    as SSE2                           as SSE2
//   32 bits to Int8    low 8 bits     source as signed, clamped    as SSE2                           as SSE2
//   32 bits to UInt16  low 16 bits    low 16 bits                  source as signed, clamped         as AVX2
//   32 bits to UInt8   low 8 bits     low 16 bits as signed,       255 from 256 to 32767, 0 above    as AVX2
//                                     clamped                      and below the range
//   Real32 to Int32    -2^31          -2^31                        -2^31                             -2^31
//   Real32 to UInt32   low 32 of 64   0                            0                                 2^32 - 1, but
//                      bits, else 0                                                                  0 above -1
//
// Real32 goes to 8 and 16 bits by way of Int32. NaN is out of range of every integer; in Binary it is 0, with AVX512 1.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class ConvertImgLvl1; // to wait for an asynchronous run, include its header

/// A new image with the geometry, calibration and converted pixels of `inImg`, also where it has that type already.
/// shapes   in (X, Y, Z, C, T) -> out (X, Y, Z, C, T), element type `type` in every time step
/// errors   a null image, a type outside 1 to 11, or memory that can't be had: an exception derived from BaseException
/// threads  as many as core::accessExecutor() has; `inImg` is only read
ORLIXIPLUTILITY_API ImagePtr convertImg(const ImageConstPtr& inImg, const image::eImageBufferType& type);

/// Converts the pixels of `inImg` into `outImg`, whose element type is the target; nothing happens where both are the
/// same pixels.
/// shapes   in (X, Y, Z, C, T), out the same sizes and one element type in all time steps
/// errors   null images, other sizes: ORLIXBaseProcessingException; no pixel is written
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void convertImg(const ImageConstPtr& inImg, const ImagePtr& outImg);

/// The same two, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<ConvertImgLvl1> convertImg_async(const ImageConstPtr& inImg,
                                                                       const image::eImageBufferType& type);
ORLIXIPLUTILITY_API boost::shared_ptr<ConvertImgLvl1> convertImg_async(const ImageConstPtr& inImg,
                                                                       const ImagePtr& outImg);

/// The output of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<ConvertImgLvl1> processor);

} // namespace orlix::imaproc::util
