// Exception of ORLIXUtil.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"

namespace orlix {

/// Thrown by everything that raises a message of `eORLIXUtilErrors`, whatever library it stands in.
class ORLIXUTIL_API ORLIXUtilException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXUtilException() override;
};

} // namespace orlix
