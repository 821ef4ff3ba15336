#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValues.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl1.h"

namespace orlix::imaproc::util {

namespace {

using attr::InImg3d;
using attr::InOptImageValueExtractionMethod;
using attr::InOptInterpolationPolicy;
using attr::InPICoords3dColl;
using attr::OutPIImgGreyValues;
using CoordsPtr = boost::shared_ptr<const attr::Coords3dColl>;
using PlacedCoordsPtr = boost::shared_ptr<const attr::PlanIndexedCoords3dColl>;
using ValuesPtr = boost::shared_ptr<attr::Doubles>;
using PlacedValuesPtr = boost::shared_ptr<attr::PlanIndexedDoubles>;
using MethodPtr = boost::shared_ptr<const attr::ImageValueExtractionMethod>;
using RunningPtr = boost::shared_ptr<ExtractImg3dValuesLvl1>;
using processor::with;

/// As the only plan's. Entries of a collection aren't const, but nobody changes those of an input.
PlacedCoordsPtr asFirstPlan(const CoordsPtr& coords)
{
    const auto placed = boost::make_shared<attr::PlanIndexedCoords3dColl>();
    placed->insert(PlanIndex(0, 0, 0), boost::const_pointer_cast<attr::Coords3dColl>(coords));
    return placed;
}

ValuesPtr ofFirstPlan(const PlacedValuesPtr& values)
{
    return values ? values->find(PlanIndex(0, 0, 0)) : ValuesPtr();
}

template <class... TValues>
PlacedValuesPtr extract(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords, const TValues&... values)
{
    return processor::runForOutput<ExtractImg3dValuesLvl1, OutPIImgGreyValues>(
        with<InImg3d>(inImg), with<InPICoords3dColl>(coords), values...);
}

template <class... TValues>
RunningPtr startExtraction(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords, const TValues&... values)
{
    return processor::start<ExtractImg3dValuesLvl1>(with<InImg3d>(inImg), with<InPICoords3dColl>(coords), values...);
}

} // namespace

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return ofFirstPlan(extract(inImg, asFirstPlan(coords)));
}

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy)
{
    return ofFirstPlan(extract(inImg, asFirstPlan(coords), with<InOptInterpolationPolicy>(policy)));
}

ValuesPtr extractImg3dValues(const ImageConstPtr& inImg, const CoordsPtr& coords,
                             const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return ofFirstPlan(extract(inImg, asFirstPlan(coords), with<InOptInterpolationPolicy>(policy),
                               with<InOptImageValueExtractionMethod>(method)));
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return extract(inImg, coords);
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy)
{
    return extract(inImg, coords, with<InOptInterpolationPolicy>(policy));
}

PlacedValuesPtr multiSlice_extractImg3dValues(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                              const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return extract(inImg, coords, with<InOptInterpolationPolicy>(policy),
                   with<InOptImageValueExtractionMethod>(method));
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords)
{
    return startExtraction(inImg, asFirstPlan(coords));
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy)
{
    return startExtraction(inImg, asFirstPlan(coords), with<InOptInterpolationPolicy>(policy));
}

RunningPtr extractImg3dValues_async(const ImageConstPtr& inImg, const CoordsPtr& coords,
                                    const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return startExtraction(inImg, asFirstPlan(coords), with<InOptInterpolationPolicy>(policy),
                           with<InOptImageValueExtractionMethod>(method));
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords)
{
    return startExtraction(inImg, coords);
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                               const attr::eInterpolationPolicy& policy)
{
    return startExtraction(inImg, coords, with<InOptInterpolationPolicy>(policy));
}

RunningPtr multiSlice_extractImg3dValues_async(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                               const attr::eInterpolationPolicy& policy, const MethodPtr& method)
{
    return startExtraction(inImg, coords, with<InOptInterpolationPolicy>(policy),
                           with<InOptImageValueExtractionMethod>(method));
}

ValuesPtr getAsyncProcessorOutput(RunningPtr processor)
{
    return ofFirstPlan(processor::outputOf<OutPIImgGreyValues>(processor));
}

PlacedValuesPtr getAsyncProcessorMultiSliceOutput(RunningPtr processor)
{
    return processor::outputOf<OutPIImgGreyValues>(processor);
}

} // namespace orlix::imaproc::util
