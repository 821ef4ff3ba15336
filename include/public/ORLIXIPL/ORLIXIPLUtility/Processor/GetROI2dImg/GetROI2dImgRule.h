// The rule that levels 1 and 2 share.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"

namespace orlix::imaproc::util {

/// Same element type, another image, the region within the input, the output of the region's size, and as many
/// plans, channels and time steps.
template <class TInput, class TOutput>
using GetROI2dImgRule = processor::AllOf<MatchBufferType<TInput, TOutput>, NoInSitu<TInput, TOutput>,
                                         ContainsROI2d<TInput, attr::InInputImg2dOffset, attr::InOutputImg2dSize>,
                                         MatchROI2d<TOutput, attr::InOutputImg2dSize>,
                                         MatchSize<TInput, TOutput, eMatchImageSizeType::eVolumeColorAndTime>,
                                         RegionWithin2d<TInput, attr::InInputImg2dOffset, attr::InOutputImg2dSize>>;

} // namespace orlix::imaproc::util
