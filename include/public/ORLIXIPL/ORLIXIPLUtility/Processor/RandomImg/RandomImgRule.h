// When a range of random values may be used.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RandomAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc::util {

/// Both ends lie in the range of the element type; which of them is the larger is nobody's concern.
template <class TOutput, class TRange>
using RandomImgRule = processor::AllOf<MatchLeafRange<TOutput, TRange, attr::Range::Min>,
                                       MatchLeafRange<TOutput, TRange, attr::Range::Max>>;

} // namespace orlix::imaproc::util
