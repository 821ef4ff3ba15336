// The rule that levels 1 and 2 share.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"

namespace orlix::imaproc::util {

/// Same element type, another image, the region within the input, the output of the region's size, and as many
/// channels and time steps.
template <class TInput, class TOutput>
using GetROI3dImgRule = processor::AllOf<MatchBufferType<TInput, TOutput>, NoInSitu<TInput, TOutput>,
                                         ContainsROI3d<TInput, attr::InInputImg3dOffset, attr::InOutputImg3dSize>,
                                         MatchROI3d<TOutput, attr::InOutputImg3dSize>,
                                         MatchSize<TInput, TOutput, eMatchImageSizeType::eColorAndTime>,
                                         RegionWithin3d<TInput, attr::InInputImg3dOffset, attr::InOutputImg3dSize>>;

} // namespace orlix::imaproc::util
