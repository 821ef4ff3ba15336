// What a PNG file tells and keeps besides pixels: OME-XML as a text, pixel sizes as pHYs.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"

#include <png.h>

#include <string>

namespace orlix::image::io {

/// The text with the keyword "OME-XML" that stands before the pixels; empty where there is none.
std::string omeTextOf(png_structp png, png_infop info);
/// Pixels per metre; no unit where the file tells none.
Resolution resolutionOf(png_structp png, png_infop info);

/// Hand over to libpng what `omeTextOf` and `resolutionOf` give back; to be called inside `guarded`.
void setOmeText(png_structp png, png_infop info, const char* text, std::size_t length);
void setResolution(png_structp png, png_infop info, png_uint_32 perMetreX, png_uint_32 perMetreY);

/// Rounded pixels per metre along both axes; false where the calibration has no such unit or PNG can't hold them.
bool perMetreOf(const CalibrationPtr& calibration, png_uint_32& x, png_uint_32& y);

} // namespace orlix::image::io
