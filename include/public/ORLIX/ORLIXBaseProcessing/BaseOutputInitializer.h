// Makes an output that the caller did not give.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix::processor {

/// Holds weak references to attributes; asked before each run, after the inputs have been found set.
class ORLIXBASEPROCESSING_API BaseOutputInitializer
{
public:
    virtual ~BaseOutputInitializer();
    /// False where the output has been given.
    virtual bool isOutputInitNeeded() const = 0;
    /// Makes the output and sets it. What cannot be made is a failure with the reason.
    virtual ProcessingResult<bool> initOutput() = 0;
};

} // namespace orlix::processor
