// Exception of ORLIXBaseProcessing.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix::processor {

/// Thrown by everything that raises a message of ORLIXBaseProcessing, whatever library it stands in.
class ORLIXBASEPROCESSING_API ORLIXBaseProcessingException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXBaseProcessingException() override;
};

} // namespace orlix::processor
