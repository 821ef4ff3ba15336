// extractImg2dValues: the values of an image at points between its pixels.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImageValueExtractionMethod.h"
#include "ORLIXIPL/ORLIXIPLAttributes/InterpolationPolicy.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

class ExtractImg2dValuesLvl1; // to wait for an asynchronous run, include its header

/// One value a point, in the order of the points, in double precision and not rounded to the element type.
/// shapes   in (X, Y, Z, C, T), which has one plan; coords n points (x, y)
/// returns  n values
/// units    pixels; the centre of the first pixel is (0, 0)
/// policy   nearest: a half goes up. linear, the default: weights 1 - t and t. cubic: Catmull-Rom along x, then across
/// y;
///          it may go beyond the range of the pixels. Any other number is taken as nearest. Pixels beyond the border
///          are those of the mirror image dcba|abcd|dcba
/// method   by tiles, the default, or by strips: see attr::ImageValueExtractionMethod. Same values at points within the
///          image, which are those from 0 to size - 1, and below size, on each axis
/// outside  by tiles the mirror image goes on for ever, and a coordinate that is infinite or no number gives none. By
///          strips only points from 0 up to, not including, the size have values. A point whose y is outside keeps the
///          value 0; one whose x is outside ends the call with a failure that names it
/// errors   null image, coordinates or method, or an image of another shape: ORLIXBaseProcessingException
/// threads  as many as core::accessExecutor() has; image and points are only read. Same values on any number of them
ORLIXIPLUTILITY_API boost::shared_ptr<attr::Doubles>
extractImg2dValues(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords);
ORLIXIPLUTILITY_API boost::shared_ptr<attr::Doubles>
extractImg2dValues(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords,
                   const attr::eInterpolationPolicy& policy);
ORLIXIPLUTILITY_API boost::shared_ptr<attr::Doubles>
extractImg2dValues(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords,
                   const attr::eInterpolationPolicy& policy,
                   const boost::shared_ptr<const attr::ImageValueExtractionMethod>& method);

/// The same for a collection for every plan, in one call. Values come by the same index.
/// shapes   in (X, Y, Z, C, T); coords and returns (Z, C, T) entries
ORLIXIPLUTILITY_API boost::shared_ptr<attr::PlanIndexedDoubles>
multiSlice_extractImg2dValues(const ImageConstPtr& inImg,
                              const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords);
ORLIXIPLUTILITY_API boost::shared_ptr<attr::PlanIndexedDoubles>
multiSlice_extractImg2dValues(const ImageConstPtr& inImg,
                              const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords,
                              const attr::eInterpolationPolicy& policy);
ORLIXIPLUTILITY_API boost::shared_ptr<attr::PlanIndexedDoubles> multiSlice_extractImg2dValues(
    const ImageConstPtr& inImg, const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords,
    const attr::eInterpolationPolicy& policy, const boost::shared_ptr<const attr::ImageValueExtractionMethod>& method);

/// The same six, started and left running. Errors of the run are what `wait()` returns; nothing is thrown.
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1>
extractImg2dValues_async(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords);
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1>
extractImg2dValues_async(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords,
                         const attr::eInterpolationPolicy& policy);
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1>
extractImg2dValues_async(const ImageConstPtr& inImg, const boost::shared_ptr<const attr::Coords2dColl>& coords,
                         const attr::eInterpolationPolicy& policy,
                         const boost::shared_ptr<const attr::ImageValueExtractionMethod>& method);
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1>
multiSlice_extractImg2dValues_async(const ImageConstPtr& inImg,
                                    const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords);
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1>
multiSlice_extractImg2dValues_async(const ImageConstPtr& inImg,
                                    const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords,
                                    const attr::eInterpolationPolicy& policy);
ORLIXIPLUTILITY_API boost::shared_ptr<ExtractImg2dValuesLvl1> multiSlice_extractImg2dValues_async(
    const ImageConstPtr& inImg, const boost::shared_ptr<const attr::PlanIndexedCoords2dColl>& coords,
    const attr::eInterpolationPolicy& policy, const boost::shared_ptr<const attr::ImageValueExtractionMethod>& method);

/// The values of plan (0, 0, 0) of a run that has succeeded; null before its end and after a failed one. Does not wait.
/// A null processor is refused: ORLIXBaseProcessingException.
ORLIXIPLUTILITY_API boost::shared_ptr<attr::Doubles>
getAsyncProcessorOutput(boost::shared_ptr<ExtractImg2dValuesLvl1> processor);
/// Those of all plans.
ORLIXIPLUTILITY_API boost::shared_ptr<attr::PlanIndexedDoubles>
getAsyncProcessorMultiSliceOutput(boost::shared_ptr<ExtractImg2dValuesLvl1> processor);

} // namespace orlix::imaproc::util
