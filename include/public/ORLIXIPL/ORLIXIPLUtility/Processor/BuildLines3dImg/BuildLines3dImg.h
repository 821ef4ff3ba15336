// buildLines3dImg: parallel straight lines, one pixel wide, as a binary volume.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class BuildLines3dImgLvl1; // to wait for an asynchronous run, include its header

/// A new volume in which voxels are 1 on parallel lines and 0 elsewhere. With all angles 0 the lines run along z and
/// cross every plan in a square lattice, `offset` pixels from line to line. In radians, `theta` leans them from z
/// towards x, `phi` turns them about z, and `alpha` turns the lattice about the lines. One line runs through the
/// centre, voxel (sizeX >> 1, sizeY >> 1, sizeZ >> 1).
///
/// A voxel counted from the centre, (x, y, z), lies at u = (x cos(phi) + y sin(phi)) cos(theta) - z sin(theta) and
/// v = y cos(phi) - x sin(phi) across the lines. Turned by alpha, a = v cos(alpha) - u sin(alpha) and
/// b = -u cos(alpha) - v sin(alpha) become signed distances to the nearest multiple of `offset`, and those are turned
/// by alpha once more: e = b cos(alpha) - a sin(alpha), f = b sin(alpha) + a cos(alpha). The voxel is 1 where both are
/// above -0.5 and not above 0.5; so, unless alpha is a multiple of pi / 2, what a line leaves in a plan is no square
/// along the lattice. All of it is computed in single precision, with the sines and cosines of the C library: the same
/// on every instruction set and for any number of threads.
///
/// An `offset` of 0, below 0, infinite or NaN sets no voxel; one from 0 to 0.5 sets all of them, and so does one below
/// 1 where alpha is 0. An angle that is infinite or NaN sets none.
/// shapes   out (sizeX, sizeY, sizeZ), binary
/// errors   more voxels than an image may have: ORLIXImageException
/// threads  as many as core::accessExecutor() has
[[nodiscard]] ORLIXIPLUTILITY_API ImagePtr buildLines3dImg(unsigned long sizeX, unsigned long sizeY,
                                                           unsigned long sizeZ, float theta, float phi, float alpha,
                                                           float offset);

/// The same into every volume of an image of the caller's.
/// shapes   out (X, Y, Z, C, T), a volume, binary
/// errors   a null image: ORLIXIPLUtilityException; an image that is no volume, or not binary:
///          ORLIXBaseProcessingException
/// threads  as above; `outImg` is written and belongs to this call until it returns
ORLIXIPLUTILITY_API void buildLines3dImg(float theta, float phi, float alpha, float offset, const ImagePtr& outImg);

/// The same into a volume that is a part of a larger one: voxel (0, 0, 0) of each of its volumes is voxel `first` of
/// one of size `whole`. Equal to that part cut out of the whole, which is made nowhere: so a volume that no memory
/// holds can be made part by part.
///
///     buildLines3dImgPart({4000, 4000, 4000}, {0, 0, 64}, theta, phi, alpha, offset, plans64to127);
/// shapes   out (X, Y, Z, C, T), a volume, binary
/// errors   as above; a part that reaches beyond the whole: ORLIXIPLUtilityException
/// threads  as above
ORLIXIPLUTILITY_API void buildLines3dImgPart(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first,
                                             float theta, float phi, float alpha, float offset, const ImagePtr& outImg);

/// The same for whole lines of a larger volume, told as other generators take it.
/// errors   as above; a part that has not the whole's lines: ORLIXIPLUtilityException
ORLIXIPLUTILITY_API void buildLines3dImg(float theta, float phi, float alpha, float offset, const ImagePtr& outImg,
                                         const ImagePart& part);

/// The forms for whole images, started and left running. A null image throws as above; errors of the run are what
/// `wait()` returns.
[[nodiscard]] ORLIXIPLUTILITY_API boost::shared_ptr<BuildLines3dImgLvl1>
buildLines3dImg_async(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, float theta, float phi,
                      float alpha, float offset);
ORLIXIPLUTILITY_API boost::shared_ptr<BuildLines3dImgLvl1> buildLines3dImg_async(float theta, float phi, float alpha,
                                                                                 float offset, const ImagePtr& outImg);

/// The volume of a run that has succeeded; null before its end and after a failed one. Does not wait. A null processor
/// is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API ImagePtr getAsyncProcessorOutput(boost::shared_ptr<BuildLines3dImgLvl1> processor);

} // namespace orlix::imaproc::util
