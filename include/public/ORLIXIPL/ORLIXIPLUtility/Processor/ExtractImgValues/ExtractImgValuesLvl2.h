// The frame of the level that reads the values of one plan or volume: by tiles, or by strips.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/CollSizeRule.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/PointBlock.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/LevelDispatch.h"

#include <algorithm>

namespace orlix::imaproc::util {

/// `TKind` is PlanPoints or VolumePoints, `TTiled` and `TStriped` are the two classes of level 3.
template <class TDerived, class TKind, class TTiled, class TStriped>
class ExtractImgValuesLvl2
    : public processor::Scaffold<TDerived, processor::BaseAsync1Processor, UtilityLibrary, typename TKind::InSubImage,
                                 typename TKind::InCoordsColl, attr::InInterpolationPolicy,
                                 attr::InImageValueExtractionMethod, attr::OutImgGreyValues>
{
    using InCoordsColl = typename TKind::InCoordsColl;
    using InOutPixels = typename TKind::InOutPixels;
    using Pixels = typename TKind::Pixels;
    using Tile = typename TKind::Tiles::Coords;

public:
    using Rule = processor::MatchCollSize<InCoordsColl, typename TKind::CoordsColl::Coll, attr::OutImgGreyValues,
                                          attr::Doubles::Coll>;
    processor::RulePtr createRule() const { return Rule::make(this->accessOwnAttributes()); }
    /// Level 1 gives the output.
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    void clearIntermediateData() override
    {
        m_tiledResults.clear();
        m_points.reset();
    }

protected:
    using processor::BaseAsync1Processor::retrieveProvider;
    /// Values of points that nothing will be found for are 0.
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        const auto& points = this->template accessAttribute<InCoordsColl>()
                                 ->getDataItemNode()
                                 .template get<typename TKind::CoordsColl::Coll>();
        std::vector<double>& values = this->template accessAttribute<attr::OutImgGreyValues>()
                                          ->getDataItemNode()
                                          .template access<attr::Doubles::Coll>();
        if (points.empty()) {
            return processor::ProviderResult::none();
        }
        m_points = boost::make_shared<PointBlock<TKind>>(points.data(), values.data(), points.size());
        const unsigned int nbCoords = static_cast<unsigned int>(points.size());
        const ImageConstPtr& image = this->template accessAttribute<typename TKind::InSubImage>()->getStorage();
        const attr::ImageValueExtractionMethod& method =
            this->template accessAttribute<attr::InImageValueExtractionMethod>()->getDataItemNode();
        const unsigned long nbPixels = image->getGeometry().getNbPixels();
        const bool bTiled = method.checkTiledMethod(nbCoords, nbPixels);
        if (!bTiled || nbPixels == 0) { // tiles of an image that has pixels find something for every point
            std::fill(values.begin(), values.end(), 0.0);
        }
        return bTiled ? dispatchTiles(image, priority, provider) : dispatchStrips(image, priority, provider);
    }

private:
    attr::eInterpolationPolicy getPolicy() const
    {
        return this->template accessAttribute<attr::InInterpolationPolicy>()->getValue();
    }

    processor::ProviderResult dispatchTiles(const ImageConstPtr& image, const core::BasePriority& priority,
                                            boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        const attr::eInterpolationPolicy policy = getPolicy();
        const unsigned long start = attr::getStartingKernelSize(policy);
        m_wanted = {m_points->getPoints(), start, start + attr::getEndingKernelSize(policy) + 1};
        const processor::CreationFunction<Pixels> create = [this](unsigned long begin, unsigned long count) {
            return boost::shared_ptr<Pixels>(extractTiledPoints(*m_points, begin, count));
        };
        return m_tiled.dispatch(
            this->getDispatchPolicy(), priority, provider, resultByRange(create, m_tiledResults), sameForAll(policy),
            tilesByGroup(image, image::TilePlaces<Tile>(&m_wanted, &tellTiles), m_points->getNbPoints(),
                         TKind::getBorder(), 1, NumericLimits<unsigned long>::s_max));
    }
    processor::ProviderResult dispatchStrips(const ImageConstPtr& image, const core::BasePriority& priority,
                                             boost::shared_ptr<core::BaseActionProvider>& provider)
    {
        const attr::eInterpolationPolicy policy = getPolicy();
        const image::Margin margin{attr::getStartingKernelSize(policy), attr::getEndingKernelSize(policy)};
        const boost::shared_ptr<const Pixels> points = m_points;
        return m_striped.dispatch(this->getDispatchPolicy(), priority, provider, dataByRange(points),
                                  sameForAll(policy), marginStripByStrip(image, margin, margin));
    }

    /// What the places of tiles follow from.
    struct Wanted
    {
        const typename TKind::Coords* points;
        unsigned long start; ///< pixels before the one that a point lies on or behind
        unsigned long side;
    };
    static void tellTiles(const void* source, unsigned long first, unsigned long count, Tile* places)
    {
        const Wanted& wanted = *static_cast<const Wanted*>(source);
        for (unsigned long i = 0; i < count; ++i) {
            CutPlace<TKind::s_nbAxes> cut(TKind::placeOf(wanted.points[first + i]));
            for (unsigned long& origin : cut.whole) {
                origin -= wanted.start; // wraps below 0, as border functions expect
            }
            places[i] = TKind::tileAt(cut.whole, wanted.side);
        }
    }

    DynamicDispatch<TTiled, processor::DynamicByCreationResultSplit<TTiled, InOutPixels>,
                    processor::DynamicNoSplit<TTiled, attr::InInterpolationPolicy>,
                    typename TKind::template TileSplit<TTiled>>
        m_tiled;
    DynamicDispatch<
        TStriped,
        processor::DynamicByRangeDataSplit<TStriped, InOutPixels, PointBlock<TKind>, typename TKind::StripKey>,
        processor::DynamicNoSplit<TStriped, attr::InInterpolationPolicy>, typename TKind::template StripSplit<TStriped>>
        m_striped;
    Wanted m_wanted{};
    processor::CreationResultMap<Pixels> m_tiledResults;
    boost::shared_ptr<PointBlock<TKind>> m_points;
};

} // namespace orlix::imaproc::util
