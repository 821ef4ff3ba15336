// The rule that the levels of the threshold share.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc::util {

using BoundOrderRule = processor::RuleAttributeComparison<attr::InThresholdMin, attr::InThresholdMax,
                                                          processor::eValueComparisonRuleType::eLessOrEqual>;

/// The lower bound is not above the upper one, and both lie within the range of the image's element type.
inline processor::RulePtr matchImageBounds(const ImageAttributeRef& image,
                                           const processor::AttributeRef<const attr::InThresholdMin>& low,
                                           const processor::AttributeRef<const attr::InThresholdMax>& high)
{
    return boost::make_shared<BoundOrderRule>(low, high) && matchImageRange(image, low) && matchImageRange(image, high);
}
/// The same for a strip.
inline processor::RulePtr matchStripBounds(const StripAttributeRef& strip,
                                           const processor::AttributeRef<const attr::InThresholdMin>& low,
                                           const processor::AttributeRef<const attr::InThresholdMax>& high)
{
    return boost::make_shared<BoundOrderRule>(low, high) && matchStripRange(strip, low) && matchStripRange(strip, high);
}

} // namespace orlix::imaproc::util
