// The exception of ORLIXBaseImageTools.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"

namespace orlix::image::tools {

/// Thrown by everything that raises a message of `eORLIXBaseImageToolsMessage`, whatever library it stands in.
class ORLIXBASEIMAGETOOLS_API ORLIXBaseImageToolsException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXBaseImageToolsException() override;
};

} // namespace orlix::image::tools
