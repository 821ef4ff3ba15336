// What the rules of a processor leave to whoever calls it.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix::processor {

/// A second base of processor classes with values that no rule looks at although a wrong one does harm. A run doesn't
/// ask. A program that takes the values from people does, once all attributes are set.
class ORLIXBASEPROCESSING_API CallerCheck
{
public:
    virtual ~CallerCheck();
    /// A failure names what is wrong and what to choose. True where attributes are missing: the run tells these.
    virtual ProcessingResult<bool> checkForCaller() const = 0;
};

} // namespace orlix::processor
