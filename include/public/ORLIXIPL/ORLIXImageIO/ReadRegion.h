// Reading a part of an image from a file, without the rest.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"

#include <boost/filesystem/path.hpp>

#include <cstddef>
#include <optional>
#include <span>

namespace orlix::image::io {

/// The first pixel of a region on each axis.
struct RegionOffsets
{
    unsigned long x = 0, y = 0, z = 0, c = 0, t = 0;
};

/// Pixels of a region on each axis. One that is left out reaches from the offset to the end of the image.
struct RegionSizes
{
    std::optional<unsigned long> x = {}, y = {}, z = {}, c = {}, t = {};
};

/// Reads what `readImage` gives between `offsets` and `offsets + sizes`: the same elements, of the same type. A region
/// of a volume is a volume, one of a sequence a sequence. Sizes of 0 give an image without elements.
/// reads       TIFF: of the pixels, the strips or tiles that the region touches; rows alone where they lie in the file
///             uncompressed and without gaps, and no further than the last row where a strip is compressed row by row
///             (PackBits, LZW, Deflate, Zstd, LZMA); of subsampled YCbCr the pages. Of a set of files, the headers of
///             all. PNG: the rows up to the last of the region, the whole file where it is interlaced.
/// memory      The region's, and that of a strip or tile. `options.limits` holds for them, not for the whole image.
/// calibration As the region operators give it to what they cut out: pixel sizes and unit of the file, the origin moved
///             by offset times pixel size in single precision, no rotation. A file without calibration gives one of
///             1 "px" with the offsets as origin. It is one in 3d where the file's is or, without, for a volume.
/// errors      ORLIXImageIOException: a region that doesn't lie in the image, sums beyond 64 bits included; else as
///             `readImage`. What is damaged outside of what is read goes unnoticed.
/// progress    Counts the plans of the region.
/// threads     any number of files may be read at once.
ORLIXIMAGEIO_API ImagePtr readRegion(const boost::filesystem::path& file, const RegionOffsets& offsets,
                                     const RegionSizes& sizes);
ORLIXIMAGEIO_API ImagePtr readRegion(const boost::filesystem::path& file, const RegionOffsets& offsets,
                                     const RegionSizes& sizes, const ReadOptions& options);

/// As `readRegion`, for the bytes of a whole TIFF or PNG file in memory, as `readTiff` and `readPng` take them.
ORLIXIMAGEIO_API ImagePtr readTiffRegion(std::span<const std::byte> bytes, const RegionOffsets& offsets,
                                         const RegionSizes& sizes, const ReadOptions& options = {});
ORLIXIMAGEIO_API ImagePtr readPngRegion(std::span<const std::byte> bytes, const RegionOffsets& offsets,
                                        const RegionSizes& sizes, const ReadOptions& options = {});

} // namespace orlix::image::io
