// Exception of ORLIXIPLUtility.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

namespace orlix::imaproc::util {

/// Thrown by everything that raises a message of ORLIXIPLUtility, whatever library it stands in.
class ORLIXIPLUTILITY_API ORLIXIPLUtilityException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXIPLUtilityException() override;
};

} // namespace orlix::imaproc::util
