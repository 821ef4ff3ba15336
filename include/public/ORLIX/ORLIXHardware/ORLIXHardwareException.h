// Exception of ORLIXHardware.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix::hard {

/// Thrown by everything that raises a message of ORLIXHardware, whatever library it stands in.
class ORLIXHARDWARE_API ORLIXHardwareException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXHardwareException() override;
};

} // namespace orlix::hard
