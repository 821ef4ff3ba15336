#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValues.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractCalls.h"

namespace orlix::imaproc::util {

namespace {

using Calls = ExtractCalls<ExtractImg3dValuesLvl1, attr::InImg3d, attr::InPICoords3dColl, attr::Coords3dColl>;
using CoordsPtr = Calls::CoordsPtr;
using PlacedCoordsPtr = Calls::PlacedCoordsPtr;
using ValuesPtr = Calls::ValuesPtr;
using PlacedValuesPtr = Calls::PlacedValuesPtr;
using MethodPtr = Calls::MethodPtr;
using RunningPtr = Calls::RunningPtr;

} // namespace

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return Calls::extract(inImg, coords);
}

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy)
{
    return Calls::extract(inImg, coords, policy);
}

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::extract(inImg, coords, policy, method);
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return Calls::extract(inImg, coords);
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy)
{
    return Calls::extract(inImg, coords, policy);
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::extract(inImg, coords, policy, method);
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return Calls::start(inImg, coords);
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy)
{
    return Calls::start(inImg, coords, policy);
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return Calls::start(inImg, coords, policy, method);
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return Calls::start(inImg, coords);
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                               const attr::eInterpolationPolicy& policy)
{
    return Calls::start(inImg, coords, policy);
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
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
