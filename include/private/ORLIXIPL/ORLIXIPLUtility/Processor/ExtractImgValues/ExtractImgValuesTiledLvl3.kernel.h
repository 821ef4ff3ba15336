// Values from tiles, once for all element types; included by the files of the two tiled level-3 classes only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesTiledLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ImageRows.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/Interpolation.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <algorithm>

namespace orlix::imaproc::util {

/// Pixels that are objects, as PointBlock shows its own. None of them is null.
template <class TKind>
struct SharedPixels
{
    const std::vector<boost::shared_ptr<typename TKind::Pixel>>& pixels;

    unsigned long getNbPoints() const { return pixels.size(); }
    typename TKind::Place getPlace(unsigned long i) const { return TKind::placeOf(*pixels[i]); }
    double& accessValue(unsigned long i) const { return pixels[i]->template access<typename TKind::Pixel::Value>(); }
};

template <class TDerived, class TKind>
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool>
ExtractImgValuesTiledLvl3<TDerived, TKind>::genericProcessFunction(const processor::ProcessingInfo&)
{
    typename TKind::Pixels& pixels = this->template accessAttribute<typename TKind::InOutPixels>()->getDataItemNode();
    if (const auto* const block = dynamic_cast<const PointBlock<TKind>*>(&pixels)) {
        readAll<T>(*block);
    } else {
        const auto& shared = pixels.template get<typename TKind::Pixels::Coll>();
        if (const auto nbNull = std::count(shared.begin(), shared.end(), nullptr); nbNull > 0) {
            raiseCountMismatch(shared.size() - static_cast<unsigned long>(nbNull));
        }
        readAll<T>(SharedPixels<TKind>{shared});
    }
    return this->succeed();
}

template <class TDerived, class TKind>
void ExtractImgValuesTiledLvl3<TDerived, TKind>::raiseCountMismatch(unsigned long nbPixels) const
{
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eTileCountMismatch,
                             this->template accessAttribute<typename TKind::InTiles>()->getNbTiles(), nbPixels);
}

template <class TDerived, class TKind>
template <class T, class TPoints>
void ExtractImgValuesTiledLvl3<TDerived, TKind>::readAll(const TPoints& points)
{
    if (this->template accessAttribute<typename TKind::InTiles>()->getNbTiles() != points.getNbPoints()) {
        raiseCountMismatch(points.getNbPoints());
    }
    withInterpolation(this->template accessAttribute<attr::InInterpolationPolicy>()->getValue(),
                      [&](auto policy) { this->template readTiles<T, decltype(policy)>(points); });
}

/// Some tiles at a time: first all are asked for, so that they are on their way from memory together, then read.
template <class TDerived, class TKind>
template <class T, class TInterpolation, class TPoints>
void ExtractImgValuesTiledLvl3<TDerived, TKind>::readTiles(const TPoints& points)
{
    constexpr unsigned long nbAtOnce = 32;
    constexpr unsigned long side = TInterpolation::s_start + 1 + TInterpolation::s_end;
    constexpr unsigned long nbPlans = TKind::s_nbAxes == 3 ? side : 1;
    typename TKind::Tiles& tiles = *this->template accessAttribute<typename TKind::InTiles>()->getStorage();
    const ImageRows rows(tiles.getImage());
    typename TKind::Tiles::Coords places[nbAtOnce];
    const std::byte* boxes[nbAtOnce];
    const unsigned long nbPoints = points.getNbPoints();
    for (unsigned long first = 0; first < nbPoints; first += nbAtOnce) {
        const unsigned long count = std::min(nbAtOnce, nbPoints - first);
        tiles.tellPlaces(first, count, places);
        for (unsigned long i = 0; i < count; ++i) {
            boxes[i] = rows.find(TKind::originOf(places[i]), side);
            for (unsigned long row = 0; boxes[i] != nullptr && row < side * nbPlans; ++row) {
                __builtin_prefetch(rows.at(boxes[i], row % side, row / side));
            }
        }
        for (unsigned long i = 0; i < count; ++i) {
            const auto fraction = CutPlace<TKind::s_nbAxes>(points.getPlace(first + i)).fraction;
            if (boxes[i] != nullptr) {
                points.accessValue(first + i) = TInterpolation::template of<T>(
                    [&rows, box = boxes[i]](unsigned long line, unsigned long plan) {
                        return reinterpret_cast<const T*>(rows.at(box, line, plan));
                    },
                    fraction);
                continue;
            }
            const auto& tile = tiles.getTileAt(TKind::tileAt(TKind::originOf(places[i]), side));
            points.accessValue(first + i) = TInterpolation::template of<T>(
                [&tile](unsigned long line, [[maybe_unused]] unsigned long plan) {
                    if constexpr (TKind::s_nbAxes == 3) {
                        return static_cast<const T*>(tile.accessBuffer(line, plan));
                    } else {
                        return static_cast<const T*>(tile.accessBuffer(line));
                    }
                },
                fraction);
        }
    }
}

} // namespace orlix::imaproc::util
