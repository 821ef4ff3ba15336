// Values from tiles, once for all element types; included by the files of the two tiled level-3 classes only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesTiledLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/Interpolation.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/TileReader.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

#include <algorithm>

namespace orlix::imaproc::util {

template <class TDerived, class TKind>
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool>
ExtractImgValuesTiledLvl3<TDerived, TKind>::genericProcessFunction(const processor::ProcessingInfo&)
{
    typename TKind::Pixels& pixels = this->template accessAttribute<typename TKind::InOutPixels>()->getDataItemNode();
    if (const auto* const block = dynamic_cast<const PointBlock<TKind>*>(&pixels)) {
        readAll<T>(BlockPixels<TKind>{*block});
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
    const auto& tiles = *this->template accessAttribute<typename TKind::InTiles>();
    if (tiles.getNbTiles() != points.getNbPoints()) {
        raiseCountMismatch(points.getNbPoints());
    }
    withInterpolation(this->template accessAttribute<attr::InInterpolationPolicy>()->getValue(),
                      [&](auto policy) { TileReader<TKind, T, decltype(policy)>(*tiles.getStorage()).read(points); });
}

} // namespace orlix::imaproc::util
