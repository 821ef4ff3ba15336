// How the samples of a page become elements of an image.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPage.h"

namespace orlix::image::io {

struct eSampleConversion
{
    enum domain {
        eCopy = 0,     ///< the sample is the element
        eSpread = 1,   ///< 1, 2 or 4 bits; 2 and 4 are spread over 0 to 255
        ePalette = 2,  ///< an index into the colour map
        eByLibrary = 3 ///< libtiff makes 8-bit RGB out of it
    };
    ORLIX_ENUMERATION(eSampleConversion, eCopy);
};

struct PixelForm
{
    eImageBufferType type;
    unsigned long channels = 1;
    eSampleConversion conversion;
    unsigned inverted = 0; ///< so many channels, from the first on, have white as 0
};

/// Throws ORLIXImageIOException, telling what the page holds, where that is not supported.
PixelForm pixelFormOf(const TiffPage& page, unsigned long index, const std::string& file);

} // namespace orlix::image::io
