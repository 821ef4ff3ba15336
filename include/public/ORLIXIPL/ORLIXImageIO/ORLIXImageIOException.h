// The exception of ORLIXImageIO.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"

namespace orlix::image::io {

/// Every failure of reading or writing an image file. The message names the file, what was required, what was found
/// and what to do about it.
class ORLIXIMAGEIO_API ORLIXImageIOException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXImageIOException() override;
};

} // namespace orlix::image::io
