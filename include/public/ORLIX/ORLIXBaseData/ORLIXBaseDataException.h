// Exception of ORLIXBaseData.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix {

/// Thrown by everything that raises a message of `eORLIXBaseDataMessage`.
class ORLIXBASEDATA_API ORLIXBaseDataException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXBaseDataException() override;
};

} // namespace orlix
