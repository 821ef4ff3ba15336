// Conditions on attributes that are checked before a processor runs.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

namespace orlix::processor {

/// Built once, in `initDerived`; reads the attributes when it is checked. A failure's text names the attributes, what
/// was required and what was found.
class ORLIXBASEPROCESSING_API BaseRule
{
public:
    virtual ~BaseRule();
    virtual ProcessingResult<bool> check() const = 0;
};

using RulePtr = boost::shared_ptr<BaseRule>;

/// Always true.
ORLIXBASEPROCESSING_API RulePtr none();
/// If `condition` holds then `then` decides, else `otherwise`. The condition's own failure text is dropped.
ORLIXBASEPROCESSING_API RulePtr If(const RulePtr& condition, const RulePtr& then, const RulePtr& otherwise);
/// Both: the second is looked at only where the first holds.
ORLIXBASEPROCESSING_API RulePtr operator&&(const RulePtr& first, const RulePtr& second);

} // namespace orlix::processor
