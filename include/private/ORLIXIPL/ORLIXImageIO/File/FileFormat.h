// Which format a file has, by its content.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"

namespace orlix::image::io {

/// By the first bytes. Throws ORLIXImageIOException, telling them, where they belong to no known format.
eImageFileFormat formatByContent(ByteSource& source);

} // namespace orlix::image::io
