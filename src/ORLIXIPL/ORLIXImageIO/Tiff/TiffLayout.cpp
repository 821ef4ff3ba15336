// Choosing the layout of a TIFF file.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffLayout.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/ImageJLayout.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <algorithm>
#include <bit>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_stripBytes = 1ul << 20;
constexpr unsigned long g_largestSide = 0x7fffffff;
constexpr unsigned long g_tileUnit = 16; // what the sides of tiles are multiples of

std::uint16_t schemeOf(const eTiffCompression& compression)
{
    switch (static_cast<eTiffCompression::domain>(compression)) {
    case eTiffCompression::ePackBits: return COMPRESSION_PACKBITS;
    case eTiffCompression::eLzw: return COMPRESSION_LZW;
    case eTiffCompression::eDeflate: return COMPRESSION_ADOBE_DEFLATE;
    case eTiffCompression::eZstd: return COMPRESSION_ZSTD;
    case eTiffCompression::eLzma: return COMPRESSION_LZMA;
    default: return COMPRESSION_NONE;
    }
}

std::uint16_t sampleFormatOf(const eImageBufferType& type)
{
    if (type == eImageBufferType::Real32) {
        return SAMPLEFORMAT_IEEEFP;
    }
    return getMinValue(type) < 0 ? SAMPLEFORMAT_INT : SAMPLEFORMAT_UINT;
}

// Differences of bits would mean nothing, and libtiff 4.5 takes those of floats wrongly in a foreign byte order.
std::uint16_t predictorOf(const WriteOptions& options, const eImageBufferType& type, bool bForeignOrder)
{
    const bool bOffered = options.compression == eTiffCompression::eLzw ||
                          options.compression == eTiffCompression::eDeflate ||
                          options.compression == eTiffCompression::eZstd;
    if (!bOffered || !options.bPredictor || type == eImageBufferType::eBufferBinary) {
        return PREDICTOR_NONE;
    }
    if (type == eImageBufferType::Real32) {
        return bForeignOrder ? PREDICTOR_NONE : PREDICTOR_FLOATINGPOINT;
    }
    return PREDICTOR_HORIZONTAL;
}

unsigned long samplesOf(const BaseImage& image, const eChannelLayout& layout, bool bImageJ, const std::string& file)
{
    const unsigned long channels = image.getSizeC();
    const bool bColour = channels == 3 || channels == 4;
    if (layout == eChannelLayout::eAuto) {
        const bool bHeld = bColour && (!bImageJ || channels == 3);
        return bHeld && image.getBufferType() == eImageBufferType::UInt8 ? channels : 1;
    }
    if (layout == eChannelLayout::ePages) {
        return 1;
    }
    if (!bColour || image.getBufferType() == eImageBufferType::eBufferBinary) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eUnsuitableForRgb, file,
                                    image.getGeometry().toString());
    }
    return channels;
}

unsigned long blocksAlong(unsigned long size, unsigned long block)
{
    return (size + block - 1) / block;
}

// The pixels, at the worst that a compression makes of them, and the directories against 32-bit offsets.
bool needsBigTiff(const BaseImage& image, const TiffLayout& layout)
{
    const WideSize pages = WideSize(image.getSizeZ()) * image.getSizeT() * (image.getSizeC() / layout.samples);
    const WideSize blocks =
        WideSize(blocksAlong(image.getSizeX(), layout.blockWidth)) * blocksAlong(image.getSizeY(), layout.blockHeight);
    const WideSize blockBytes =
        WideSize(packedRowBytes(image.getBufferType(), layout.blockWidth, layout.samples, layout.packing)) *
        layout.blockHeight;
    const WideSize worst = layout.compression == COMPRESSION_NONE ? blockBytes : blockBytes + blockBytes / 2;
    return pages * (blocks * (worst + 16) + 1024) + (1ul << 20) > 0xffffffffu;
}

unsigned long roundedUpToTiles(unsigned long size)
{
    return blocksAlong(size, g_tileUnit) * g_tileUnit;
}

void chooseBlocks(const BaseImage& image, const WriteOptions& options, TiffLayout& layout)
{
    layout.bTiled = options.bTiled;
    if (layout.bTiled) {
        layout.blockWidth = std::min(options.tileSize, roundedUpToTiles(image.getSizeX()));
        layout.blockHeight = std::min(options.tileSize, roundedUpToTiles(image.getSizeY()));
        return;
    }
    const unsigned long rowBytes =
        packedRowBytes(image.getBufferType(), image.getSizeX(), layout.samples, layout.packing);
    layout.blockWidth = image.getSizeX();
    layout.blockHeight = std::clamp(g_stripBytes / rowBytes, 1ul, image.getSizeY());
}

void checkSizes(const BaseImage& image, const WriteOptions& options, const std::string& file)
{
    const BaseImageGeometry& geometry = image.getGeometry();
    if (geometry.getSizeX() > g_largestSide || geometry.getSizeY() > g_largestSide ||
        geometry.getNbPlans() > g_largestSide) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eTooLongForTiff, file, geometry.toString());
    }
    if (options.bTiled && (options.tileSize % g_tileUnit != 0 || options.tileSize == 0 || options.tileSize > 65520)) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eBadTileSize, file, options.tileSize);
    }
}

} // namespace

bool isBuiltIn(const eTiffCompression& compression)
{
    return TIFFIsCODECConfigured(schemeOf(compression)) != 0;
}

std::uint16_t resolutionUnitOf(const Resolution& resolution)
{
    return resolution.unit == "inch" ? RESUNIT_INCH : resolution.unit == "cm" ? RESUNIT_CENTIMETER : RESUNIT_NONE;
}

TiffLayout tiffLayoutOf(const BaseImage& image, const WriteOptions& options, const std::string& file)
{
    checkSizes(image, options, file);
    const eImageBufferType type = image.getBufferType();
    TiffLayout layout;
    layout.compression = schemeOf(options.compression);
    if (!isBuiltIn(options.compression)) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNoCompression, file,
                                    compressionName(layout.compression));
    }
    layout.bImageJ = options.description == eTiffDescription::eImageJ;
    layout.packing = layout.bImageJ ? eSamplePacking::eForImageJ : eSamplePacking::eAsTheyAre;
    layout.samples = samplesOf(image, options.channelLayout, layout.bImageJ, file);
    const bool bUnsigned = layout.bImageJ && type == eImageBufferType::Int16;
    layout.sampleFormat = bUnsigned ? std::uint16_t(SAMPLEFORMAT_UINT) : sampleFormatOf(type);
    const bool bBits = type == eImageBufferType::eBufferBinary && !layout.bImageJ;
    layout.bits = static_cast<std::uint16_t>(bBits ? 1 : 8 * elementSize(type));
    layout.bBigEndian = options.byteOrder == eByteOrder::eBigEndian;
    layout.bForeignOrder = layout.bBigEndian != (std::endian::native == std::endian::big);
    // ImageJ undoes differences under LZW alone.
    layout.predictor =
        layout.bImageJ ? std::uint16_t(PREDICTOR_NONE) : predictorOf(options, type, layout.bForeignOrder);
    chooseBlocks(image, options, layout);
    const bool bOneDirectory = layout.bImageJ && layout.compression == COMPRESSION_NONE;
    layout.bBigTiff = options.bigTiff == eBigTiff::eAlways || (!bOneDirectory && needsBigTiff(image, layout));
    if (layout.bImageJ) {
        checkForImageJ(image, options, layout, file);
    }
    return layout;
}

} // namespace orlix::image::io
