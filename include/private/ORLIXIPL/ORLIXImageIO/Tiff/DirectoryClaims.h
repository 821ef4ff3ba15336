// What a directory of a TIFF file claims, read before libtiff believes it.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"

namespace orlix::image::io {

/// How numbers lie in a TIFF file.
struct TiffNumbers
{
    bool bBigTiff = false;
    bool bBigEndian = false;

    unsigned long countBytes() const { return bBigTiff ? 8 : 2; } ///< of the number of entries of a directory
    unsigned long entryBytes() const { return bBigTiff ? 20 : 12; }
    unsigned long offsetBytes() const { return bBigTiff ? 8 : 4; }
    /// The number in `bytes` bytes, 8 at most, at `offset`; 0 where the file ends before.
    unsigned long read(ByteSource& source, unsigned long offset, unsigned long bytes) const noexcept;
};

/// As the header tells; meaningless where the file is no TIFF.
TiffNumbers tiffNumbersOf(ByteSource& source);
/// Where the first directory lies.
unsigned long firstDirectoryOf(ByteSource& source);
/// Where the directory behind the one at `directory` lies; 0 for none.
unsigned long nextDirectoryOf(ByteSource& source, const TiffNumbers& numbers, unsigned long directory);

/// Throws ORLIXImageIOException about page `page` where the directory at `directory` tells of more strips or tiles than
/// the file has room to list, and so many that it matters: libtiff takes memory for all of them.
void checkNumberOfBlocks(ByteSource& source, const TiffNumbers& numbers, unsigned long directory, unsigned long page);

} // namespace orlix::image::io
