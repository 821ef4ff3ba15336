// How an image will lie in a TIFF file.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"
#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"

#include <cstdint>
#include <string>

namespace orlix::image::io {

struct TiffLayout
{
    unsigned long samples = 1;    ///< channels of a page
    unsigned long blockWidth = 0; ///< of a strip or tile
    unsigned long blockHeight = 0;
    bool bTiled = false;
    bool bBigTiff = false;
    bool bBigEndian = false;
    bool bImageJ = false;       ///< with ImageJ's description, pages in its order
    bool bForeignOrder = false; ///< not this computer's byte order
    std::uint16_t compression = 0;
    std::uint16_t predictor = 0;
    std::uint16_t sampleFormat = 0;
    std::uint16_t bits = 0;
    eSamplePacking packing;
};

/// The resolution tags' word for the unit.
std::uint16_t resolutionUnitOf(const Resolution& resolution);

/// Throws ORLIXImageIOException, naming `file`, where the options don't suit the image or the installed libtiff.
TiffLayout tiffLayoutOf(const BaseImage& image, const WriteOptions& options, const std::string& file);

} // namespace orlix::image::io
