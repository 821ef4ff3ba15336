// What a PNG file tells and keeps besides pixels: OME-XML as a text, pixel sizes as pHYs.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"

#include <png.h>

#include <string>

namespace orlix::image::io {

struct PngChunk
{
    unsigned long start = 0; ///< of its content in the file
    unsigned long bytes = 0;
    unsigned char type[4] = {};
};

/// Is it a text (tEXt, zTXt or iTXt) with the keyword "OME-XML"? Throws nothing.
bool holdsOme(ByteSource& source, const PngChunk& chunk) noexcept;
/// The text of such a chunk; empty for an empty chunk. Throws ORLIXImageIOException where it is damaged, or is a small
/// one that unfolds to much.
std::string omeTextOf(ByteSource& source, const PngChunk& chunk);
/// Pixels per metre; no unit where the file tells none.
Resolution resolutionOf(png_structp png, png_infop info);

/// Hand over to libpng what `omeTextOf` and `resolutionOf` find; to be called inside `guarded`.
void setOmeText(png_structp png, png_infop info, const char* text, std::size_t length);
void setResolution(png_structp png, png_infop info, png_uint_32 perMetreX, png_uint_32 perMetreY);

/// Rounded pixels per metre along both axes; false where the calibration has no such unit or PNG can't hold them.
bool perMetreOf(const CalibrationPtr& calibration, png_uint_32& x, png_uint_32& y);

} // namespace orlix::image::io
