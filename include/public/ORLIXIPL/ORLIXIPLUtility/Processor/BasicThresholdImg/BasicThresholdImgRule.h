// The rule that the levels of the threshold share.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc::util {

/// Same sizes, the lower bound not above the upper one, both within the range of the input, a binary output. For images
/// and for strips.
template <class TInput, class TOutput>
using BasicThresholdImgRule = processor::AllOf<
    MatchSize<TInput, TOutput>,
    processor::Compared<attr::InThresholdMin, processor::eValueComparisonRuleType::eLessOrEqual, attr::InThresholdMax>,
    MatchRange<TInput, attr::InThresholdMin>, MatchRange<TInput, attr::InThresholdMax>, HasFixedType<TOutput>>;

} // namespace orlix::imaproc::util
