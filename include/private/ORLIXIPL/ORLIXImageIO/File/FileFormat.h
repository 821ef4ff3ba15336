// Which format a file has, by its content or by its ending.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"

namespace orlix::image::io {

/// By the first bytes. Throws ORLIXImageIOException, telling them, where they belong to no known format.
eImageFileFormat formatByContent(ByteSource& source);

/// By the ending, in lower or upper case. Throws ORLIXImageIOException, naming those known, for any other.
eImageFileFormat formatByEnding(const boost::filesystem::path& file);

} // namespace orlix::image::io
