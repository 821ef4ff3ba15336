// What a caller may settle about writing a file.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIXIPL/ORLIXImageIO/ProgressFunction.h"

namespace orlix::image::io {

/// Lossless compressions of a TIFF file.
struct eTiffCompression
{
    enum domain { eNone = 0, ePackBits = 1, eLzw = 2, eDeflate = 3, eZstd = 4, eLzma = 5 };
    ORLIX_ENUMERATION(eTiffCompression, eNone);
};

/// 64-bit offsets: where the pixels and their directories could pass 4 GiB, or always.
struct eBigTiff
{
    enum domain { eAuto = 0, eAlways = 1 };
    ORLIX_ENUMERATION(eBigTiff, eAuto);
};

struct eByteOrder
{
    enum domain { eLittleEndian = 0, eBigEndian = 1 };
    ORLIX_ENUMERATION(eByteOrder, eLittleEndian);
};

/// Where the channels of a TIFF file go. `eAuto`: the samples of red, green, blue and alpha pixels where a UInt8 image
/// has 3 or 4 channels, a page for each channel otherwise.
struct eChannelLayout
{
    enum domain { eAuto = 0, ePages = 1, eRgbSamples = 2 };
    ORLIX_ENUMERATION(eChannelLayout, eAuto);
};

/// In which description a TIFF file tells axes and calibration. OME-XML holds all that an image knows. ImageJ's own is
/// for plain ImageJ, which takes a file with any other for a plain stack.
///
/// types       UInt8, UInt16 and Real32 stay as they are, Like types become their plain ones. Int16 becomes unsigned
///             samples that are higher by 32768, with the line through them that ImageJ takes for signed values, and
///             comes back. Binary becomes bytes of 0 and 255, which come back as UInt8. Other types are refused.
/// axes        Channels run fastest, then z, then t. That one plan is a volume, or one step a sequence, is lost.
/// calibration Pixel sizes from 2.5e-10 to 1e9 of the unit; others above 0 are refused. Origin and rotation are lost.
///             A calibration in 2d of several plans comes back in 3d, with a size of 1 along z.
/// options     Tiles, 64-bit offsets, Zstd, LZMA and samples of a pixel other than 3 of UInt8 are refused; predictors
///             are not used. Without compression a file may pass 4 GiB: it has one directory then, as ImageJ itself
///             writes it.
struct eTiffDescription
{
    enum domain { eOme = 0, eImageJ = 1 };
    ORLIX_ENUMERATION(eTiffDescription, eOme);
};

/// All but `bSync` and `progress` is for TIFF; PNG has no such choice.
struct WriteOptions
{
    eTiffCompression compression;
    bool bPredictor = true; ///< store differences of neighbours, under LZW, Deflate and Zstd
    bool bTiled = false;
    /// Pixels along each side of a tile, a multiple of 16 up to 65520. Along a side of the image that is shorter a tile
    /// has the image's pixels, rounded up to a multiple of 16.
    unsigned long tileSize = 256;
    eBigTiff bigTiff;
    eByteOrder byteOrder;
    eChannelLayout channelLayout;
    eTiffDescription description;
    /// Wait until the new file is on the disk before it takes the old one's place. Without, a power cut soon after can
    /// leave neither.
    bool bSync = true;
    ProgressFunction progress; ///< may be empty
};

} // namespace orlix::image::io
