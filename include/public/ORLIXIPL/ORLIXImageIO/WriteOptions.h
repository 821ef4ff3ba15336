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

/// All but `bSync` and `progress` is for TIFF; PNG has no such choice.
struct WriteOptions
{
    eTiffCompression compression;
    bool bPredictor = true; ///< store differences of neighbours, under LZW, Deflate and Zstd
    bool bTiled = false;
    unsigned long tileSize = 256; ///< pixels along each side of a tile; a multiple of 16
    eBigTiff bigTiff;
    eByteOrder byteOrder;
    eChannelLayout channelLayout;
    /// Wait until the new file is on the disk before it takes the old one's place. Without, a power cut soon after can
    /// leave neither.
    bool bSync = true;
    ProgressFunction progress; ///< may be empty
};

} // namespace orlix::image::io
