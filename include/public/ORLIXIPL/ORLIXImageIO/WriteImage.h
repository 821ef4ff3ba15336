// Writing images to files.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"
#include "ORLIXIPL/ORLIXImageIO/ImageFileInfo.h"
#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"

#include <boost/filesystem/path.hpp>

namespace orlix::image::io {

/// Writes a TIFF (.tif, .tiff) or PNG (.png) file. The pixels go to a temporary file in the same folder that replaces
/// `file` once it is complete and on the disk: on any failure `file` is what it was before, and the temporary file is
/// gone. Links, and what the new file keeps of the old one's permissions: see FileReplacement.
/// shapes   TIFF: any sizes above 0. PNG: one plan, one time step, 1 to 4 channels (grey, grey and alpha, RGB, RGB and
///          alpha) of UInt8, UInt16, their Like types or Binary, Binary with 1 channel only.
/// keeps    axes, element type (Like types and Binary too) and calibration, as OME-XML; Binary takes one bit a pixel
///          and counts every value but 0 as 1. What ImageJ's description keeps stands at `eTiffDescription`.
/// errors   ORLIXImageIOException: null image, an axis of size 0, several element types, pixels that are not in host
///          memory, an unknown ending, a shape that the format can't hold, the folder or `file` not writable, the disk
///          full, stopped by `progress`.
/// threads  the image is only read.
ORLIXIMAGEIO_API void writeImage(const boost::filesystem::path& file, const ImageConstPtr& image);
ORLIXIMAGEIO_API void writeImage(const boost::filesystem::path& file, const ImageConstPtr& image,
                                 const WriteOptions& options);

/// The format that `writeImage` gives to a file of this name, by its ending in lower or upper case. Throws
/// ORLIXImageIOException, naming the endings that are known, for any other.
ORLIXIMAGEIO_API eImageFileFormat formatByEnding(const boost::filesystem::path& file);

/// Can files of this format hold elements of this type? What shapes they can hold stands at `writeImage`.
ORLIXIMAGEIO_API bool canHold(const eImageFileFormat& format, const eImageBufferType& type);

/// Is this compression built into the TIFF library that this process has loaded? One that is not makes `writeImage`
/// fail.
ORLIXIMAGEIO_API bool isBuiltIn(const eTiffCompression& compression);

} // namespace orlix::image::io
