// How the functions of both operators call their level 1; included by their files only.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLAttributes/PointAttributes.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

/// `TInImg` and `TInCoords` are the attributes of `TLvl1` that take the image and the points, `TCoordsColl` is what
/// holds the points of one plan.
template <class TLvl1, class TInImg, class TInCoords, class TCoordsColl>
class ExtractCalls
{
public:
    using CoordsPtr = boost::shared_ptr<const TCoordsColl>;
    using PlacedCoordsPtr = boost::shared_ptr<const PlanIndexedColl<TCoordsColl>>;
    using ValuesPtr = boost::shared_ptr<attr::Doubles>;
    using PlacedValuesPtr = boost::shared_ptr<attr::PlanIndexedDoubles>;
    using MethodPtr = boost::shared_ptr<const attr::ImageValueExtractionMethod>;
    using RunningPtr = boost::shared_ptr<TLvl1>;

    static ValuesPtr ofFirstPlan(const PlacedValuesPtr& values)
    {
        return values ? values->find(PlanIndex(0, 0, 0)) : ValuesPtr();
    }

    /// Points of the only plan, or of all; after them a policy, and a method, where they are given.
    template <class... TOptions>
    static ValuesPtr extract(const ImageConstPtr& inImg, const CoordsPtr& coords, const TOptions&... options)
    {
        return ofFirstPlan(extract(inImg, asFirstPlan(coords), options...));
    }
    template <class... TOptions>
    static PlacedValuesPtr extract(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords,
                                   const TOptions&... options)
    {
        return processor::runForOutput<TLvl1, attr::OutPIImgGreyValues>(
            processor::with<TInImg>(inImg), processor::with<TInCoords>(coords), option(options)...);
    }
    template <class... TOptions>
    static RunningPtr start(const ImageConstPtr& inImg, const CoordsPtr& coords, const TOptions&... options)
    {
        return start(inImg, asFirstPlan(coords), options...);
    }
    template <class... TOptions>
    static RunningPtr start(const ImageConstPtr& inImg, const PlacedCoordsPtr& coords, const TOptions&... options)
    {
        return processor::start<TLvl1>(processor::with<TInImg>(inImg), processor::with<TInCoords>(coords),
                                       option(options)...);
    }

private:
    /// Entries of a collection aren't const, but nobody changes those of an input.
    static PlacedCoordsPtr asFirstPlan(const CoordsPtr& coords)
    {
        const auto placed = boost::make_shared<PlanIndexedColl<TCoordsColl>>();
        placed->insert(PlanIndex(0, 0, 0), boost::const_pointer_cast<TCoordsColl>(coords));
        return placed;
    }

    static auto option(const attr::eInterpolationPolicy& policy)
    {
        return processor::with<attr::InOptInterpolationPolicy>(policy);
    }
    static auto option(const MethodPtr& method)
    {
        return processor::with<attr::InOptImageValueExtractionMethod>(method);
    }
};

} // namespace orlix::imaproc::util
