// The frame of the level that reads the values of a group of points, each from the tile around it.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/PointBlock.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc::util {

/// Tile i belongs to pixel i, and begins as many pixels before its whole position as the policy reads there. The sizes
/// of tiles don't count: as much is read as the policy needs. Rows within the image are read where they lie.
template <class TDerived, class TKind>
class ExtractImgValuesTiledLvl3
    : public KernelLevel<TDerived, UtilityLibrary, TypedBy<typename TKind::InTiles>, Plain<typename TKind::InTiles>,
                         Plain<attr::InInterpolationPolicy>, Plain<typename TKind::InOutPixels>>
{
public:
    using Kind = TKind;
    using Rule = processor::NoRule;

    /// All points of the group. Throws ORLIXIPLUtilityException where there are not as many tiles as pixels.
    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

private:
    [[noreturn]] void raiseCountMismatch(unsigned long nbPixels) const;
    template <class T, class TPoints>
    void readAll(const TPoints& points);
};

} // namespace orlix::imaproc::util
