// Exception of ORLIXImageProcessing.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

namespace orlix::imaproc {

/// Thrown by everything that raises a message of ORLIXImageProcessing, whatever library it stands in.
class ORLIXIMAGEPROCESSING_API ORLIXImageProcessingException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXImageProcessingException() override;
};

} // namespace orlix::imaproc
