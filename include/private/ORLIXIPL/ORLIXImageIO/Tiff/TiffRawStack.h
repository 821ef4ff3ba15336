// The stacks that ImageJ writes with a single directory: plans without directories behind the first page's pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/PixelForm.h"

namespace orlix::image::io {

/// Throws ORLIXImageIOException where such a stack can't begin with this page, or the file is too short for all plans
/// of the geometry.
void checkRawStack(TiffHandle& tiff, const TiffPage& page, const PixelForm& form, const BaseImageGeometry& geometry,
                   const ByteSource& source);

/// Reads the plans, c fastest, then z, then t. Throws ORLIXImageIOException where reading fails or was stopped.
void readRawStack(TiffHandle& tiff, const TiffPage& page, const PixelForm& form, ByteSource& source, BaseImage& image,
                  Progress& progress);

} // namespace orlix::image::io
