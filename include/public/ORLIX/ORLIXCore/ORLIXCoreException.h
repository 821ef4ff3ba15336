// Exception of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix::core {

/// Thrown by everything that raises a message of ORLIXCore, whatever library it stands in.
class ORLIXCORE_API ORLIXCoreException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXCoreException() override;
};

} // namespace orlix::core
