// buildLines2dImg: parallel straight lines, one pixel wide, as a binary image.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class BuildLines2dImgLvl1; // to wait for an asynchronous run, include its header

/// A new image in which pixels are 1 on lines that stand `offset` pixels apart, measured across them, at an angle of
/// `theta` radians, and 0 elsewhere. 0 gives lines along x, pi / 2 lines along y; a positive angle turns them from x
/// towards y. One line runs through the centre of the image, (sizeX / 2, sizeY / 2), which for odd sizes lies between
/// pixels. A pixel is on a line where its signed distance from it, (y - sizeY / 2) cos(theta) - (x - sizeX / 2)
/// sin(theta) less a multiple of `offset`, is above -0.5 and not above 0.5. All of it is computed in single precision,
/// with the sine and cosine of the C library: the same on every instruction set and for any number of threads.
///
/// An `offset` of 0, below 0, infinite or NaN sets no pixel; one between 0 and 1 sets all of them. An angle that is
/// infinite or NaN sets none.
/// shapes   out (sizeX, sizeY), binary
/// errors   more pixels than an image may have: ORLIXImageException
/// threads  as many as core::accessExecutor() has
[[nodiscard]] ORLIXIPLUTILITY_API ImagePtr buildLines2dImg(unsigned long sizeX, unsigned long sizeY, float theta,
                                                           float offset);

/// The same into every plan of an image of the caller's.
/// shapes   out (X, Y, Z, C, T), binary
/// errors   a null image: ORLIXIPLUtilityException; an image that is not binary: ORLIXBaseProcessingException
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void buildLines2dImg(float theta, float offset, const ImagePtr& outImg);

/// The same into an image that is a part of a larger one: pixel (0, 0) of each of its plans is pixel `first` of one of
/// size `whole`. Equal to that part cut out of the whole, which is made nowhere: so an image that no memory holds can
/// be made part by part.
///
///     buildLines2dImgPart({100'000, 100'000}, {0, 4096}, theta, offset, lines4096to8191);
/// shapes   out (X, Y, Z, C, T), binary
/// errors   as above; a part that reaches beyond the whole: ORLIXIPLUtilityException
/// threads  as above
ORLIXIPLUTILITY_API void buildLines2dImgPart(const attr::Img2dSizeRecord& whole, const attr::Img2dOffsetRecord& first,
                                             float theta, float offset, const ImagePtr& outImg);

/// The same for whole lines of a larger image, told as other generators take it.
/// errors   as above; a part that has not the whole's lines: ORLIXIPLUtilityException
ORLIXIPLUTILITY_API void buildLines2dImg(float theta, float offset, const ImagePtr& outImg, const ImagePart& part);

/// The forms for whole images, started and left running. A null image throws as above; errors of the run are what
/// `wait()` returns.
[[nodiscard]] ORLIXIPLUTILITY_API boost::shared_ptr<BuildLines2dImgLvl1>
buildLines2dImg_async(unsigned long sizeX, unsigned long sizeY, float theta, float offset);
ORLIXIPLUTILITY_API boost::shared_ptr<BuildLines2dImgLvl1> buildLines2dImg_async(float theta, float offset,
                                                                                 const ImagePtr& outImg);

/// The image of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<BuildLines2dImgLvl1> processor);

} // namespace orlix::imaproc::util
