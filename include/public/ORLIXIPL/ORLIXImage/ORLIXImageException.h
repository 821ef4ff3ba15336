// The exception of ORLIXImage.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXImage/Export.h"

namespace orlix::image {

/// Thrown for misuse of an image, its geometry or its memory, and for memory that cannot be had. The message names
/// the image, what was required and what was found.
class ORLIXIMAGE_API ORLIXImageException : public BaseException
{
public:
    using BaseException::BaseException;
    ~ORLIXImageException() override;
};

} // namespace orlix::image
