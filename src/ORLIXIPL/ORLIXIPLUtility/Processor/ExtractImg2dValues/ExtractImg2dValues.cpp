#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValues.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractCalls.h"

namespace orlix::imaproc::util {

namespace {

using Calls = ExtractCalls<ExtractImg2dValuesLvl1, attr::InImg, attr::InPICoords2dColl, attr::Coords2dColl>;
using CoordsPtr = Calls::CoordsPtr;
using PlacedCoordsPtr = Calls::PlacedCoordsPtr;
using ValuesPtr = Calls::ValuesPtr;
using PlacedValuesPtr = Calls::PlacedValuesPtr;
using MethodPtr = Calls::MethodPtr;
using RunningPtr = Calls::RunningPtr;

} // namespace

ValuesPtr extractImg2dValues(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return Calls::extract(inImg, coords);
}

ValuesPtr extractImg2dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy)
{
    return Calls::extract(inImg, coords, policy);
}

ValuesPtr extractImg2dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::extract(inImg, coords, policy, method);
}

PlacedValuesPtr multiSlice_extractImg2dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return Calls::extract(inImg, coords);
}

PlacedValuesPtr multiSlice_extractImg2dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy)
{
    return Calls::extract(inImg, coords, policy);
}

PlacedValuesPtr multiSlice_extractImg2dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::extract(inImg, coords, policy, method);
}

RunningPtr extractImg2dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return Calls::start(inImg, coords);
}

RunningPtr extractImg2dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy)
{
    return Calls::start(inImg, coords, policy);
}

RunningPtr extractImg2dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::start(inImg, coords, policy, method);
}

RunningPtr multiSlice_extractImg2dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return Calls::start(inImg, coords);
}

RunningPtr multiSlice_extractImg2dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                               const attr::eInterpolationPolicy& policy)
{
    return Calls::start(inImg, coords, policy);
}

RunningPtr multiSlice_extractImg2dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                               const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::start(inImg, coords, policy, method);
}

ValuesPtr getAsyncProcessorOutput(RunningPtr processor)
{
    return Calls::ofFirstPlan(processor::outputOf<attr::OutPIImgGreyValues>(processor));
}

PlacedValuesPtr getAsyncProcessorMultiSliceOutput(RunningPtr processor)
{
    return processor::outputOf<attr::OutPIImgGreyValues>(processor);
}

} // namespace orlix::imaproc::util
