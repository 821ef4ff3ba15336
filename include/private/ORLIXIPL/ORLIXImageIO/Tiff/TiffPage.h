// What the directory of one page of a TIFF file says.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffHandle.h"

#include <string>
#include <vector>

namespace orlix::image::io {

/// Values as libtiff gives them, after its decoders were asked for RGB out of JPEG and floats out of LogLuv.
struct TiffPage
{
    unsigned long width = 0;
    unsigned long height = 0;
    unsigned samples = 1;
    unsigned extraSamples = 0;
    unsigned bits = 1;
    unsigned sampleFormat = SAMPLEFORMAT_UINT;
    unsigned photometric = PHOTOMETRIC_MINISBLACK;
    unsigned compression = COMPRESSION_NONE;
    bool bSeparate = false; ///< each sample has strips or tiles of its own
    bool bTiled = false;
    bool bGreyPalette = false;
    bool bLeftOut = false;        ///< a reduced copy of another page, or a mask
    unsigned long blockWidth = 0; ///< of a strip or tile
    unsigned long blockHeight = 0;
    /// Where the pixels begin that lie in the file row by row, as they are but for byte order; 0 where they don't.
    unsigned long rawOffset = 0;

    unsigned long depth = 1; ///< plans of the page; `blockDepth` of a tile
    unsigned long blockDepth = 1;
    unsigned long subPages = 0; ///< in directories of their own, most often reduced copies
    unsigned orientation = ORIENTATION_TOPLEFT;
    unsigned long directory = 0; ///< where it lies in the file

    friend bool operator==(const TiffPage&, const TiffPage&) = default;
    std::string toString() const; ///< "512x256 pixels of 3 RGB samples, unsigned, 8 bits"
};

/// What only the first page tells.
struct TiffFileFacts
{
    std::string description; ///< empty where there is none
    Resolution resolution;
};

/// Asks the decoders of the current page for RGB and floats. To be called whenever a page was chosen.
void prepareDecoders(TIFF* tiff);

/// The current page. Throws ORLIXImageIOException where it has no pixels.
TiffPage describePage(TiffHandle& tiff, unsigned long index);
TiffFileFacts describeFile(TIFF* tiff);

/// All pages, from the first on, leaving libtiff at the last. Throws ORLIXImageIOException where one can't be read,
/// which includes chains that run in a circle.
std::vector<TiffPage> describePages(TiffHandle& tiff);

/// "LZW", or "compression 12345" where this libtiff doesn't know it.
std::string compressionName(unsigned compression);

} // namespace orlix::image::io
