// Reading images and their headers from files and from memory.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"

#include <boost/filesystem/path.hpp>

#include <cstddef>
#include <span>

namespace orlix::image::io {

/// Reads a TIFF or PNG file, told apart by content, into a new image. `readRegion` reads a part of it.
/// axes        OME-XML and ImageJ descriptions place the pages of a TIFF file on z, c and t; without them pages are z.
///             Samples of a pixel (red, green, blue, alpha) are channels. Reduced pages and masks are left out. Of
///             several images in OME-XML the first that lies in the file is read. Plans that it puts into other files
///             are read from there where these lie in the same folder, under the names and with the UUIDs that it
///             tells; a name with a folder in it is refused. Rows and columns come as they are stored, whatever TIFF's
///             orientation tag says; `readImageInfo` tells it, and what else is left alone.
/// types       TIFF: integers of 8, 16 and 32 bits and floats of 32 keep their type; 1 bit gives Binary; 2 and 4 bits
///             are spread over UInt8. PNG: 8 and 16 bits, 1 bit of grey gives Binary. Palettes become three channels
///             of UInt8, or one where every entry is grey. "Min is white" is turned round. Like types come back where
///             this library wrote them.
/// calibration OME-XML, ImageJ, the resolution tags of TIFF or the pHYs chunk of PNG, in the unit that the file names;
///             not from the 72 and 96 pixels per inch that programs write where nothing was measured. The unit is that
///             of x, into which sizes along y and z are converted. Where z's doesn't convert, the calibration is one in
///             2d; where y's doesn't, there is none.
/// errors      ORLIXImageIOException: unreadable, damaged or truncated file, a description that contradicts the pages,
///             a form that is not supported (64 bits, complex, half floats, CMYK, CIELab, colour filter arrays, pages
///             of different size, pages of several plans (the tags ImageDepth and TileDepth), and what libtiff 4.5
///             decodes wrongly: CCITT RLE/W, PixarLog other than colour), a file of an OME-XML set that is not there,
///             limits passed, stopped by `progress`.
/// threads     any number of files may be read at once.
ORLIXIMAGEIO_API ImagePtr readImage(const boost::filesystem::path& file);
ORLIXIMAGEIO_API ImagePtr readImage(const boost::filesystem::path& file, const ReadOptions& options);

/// The same from headers alone; no pixel is read.
ORLIXIMAGEIO_API ImageFileInfo readImageInfo(const boost::filesystem::path& file);

/// As `readImage`, for the bytes of a whole TIFF or PNG file in memory, beside which there are no other files. The
/// bytes are only read, and no longer needed afterwards; messages call them "memory".
ORLIXIMAGEIO_API ImagePtr readTiff(std::span<const std::byte> bytes, const ReadOptions& options = {});
ORLIXIMAGEIO_API ImagePtr readPng(std::span<const std::byte> bytes, const ReadOptions& options = {});

} // namespace orlix::image::io
