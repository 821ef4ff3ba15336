// Reading directories.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPage.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

// libtiff takes a pointer to the tag's own type; a tag without default that is missing gives `fallback`.
template <class T>
T fieldOf(TIFF* tiff, std::uint32_t tag, T fallback)
{
    T value = fallback;
    return TIFFGetFieldDefaulted(tiff, tag, &value) == 1 ? value : fallback;
}

bool hasGreyPalette(TIFF* tiff, unsigned bits)
{
    std::uint16_t* map[3] = {};
    if (bits > 16 || TIFFGetField(tiff, TIFFTAG_COLORMAP, &map[0], &map[1], &map[2]) != 1) {
        return false;
    }
    for (unsigned i = 0; i < 1u << bits; ++i) {
        if (map[0][i] != map[1][i] || map[0][i] != map[2][i]) {
            return false;
        }
    }
    return true;
}

// Uncompressed strips of whole bytes that follow one another without a gap.
unsigned long rawOffsetOf(TIFF* tiff, const TiffPage& page)
{
    if (page.compression != COMPRESSION_NONE || page.bTiled || page.bSeparate || page.bits % 8 != 0 ||
        page.photometric == PHOTOMETRIC_YCBCR ||
        fieldOf<std::uint16_t>(tiff, TIFFTAG_FILLORDER, FILLORDER_MSB2LSB) != FILLORDER_MSB2LSB) {
        return 0;
    }
    const unsigned long rowBytes = page.width * page.samples * (page.bits / 8);
    const unsigned long start = TIFFGetStrileOffset(tiff, 0);
    unsigned long expected = start;
    std::uint32_t strip = 0;
    for (unsigned long y = 0; y < page.height; y += page.blockHeight, ++strip) {
        const unsigned long rows = std::min(page.blockHeight, page.height - y);
        unsigned long bytes = 0;
        if (TIFFGetStrileOffset(tiff, strip) != expected || __builtin_mul_overflow(rows, rowBytes, &bytes) ||
            TIFFGetStrileByteCount(tiff, strip) < bytes || __builtin_add_overflow(expected, bytes, &expected)) {
            return 0;
        }
    }
    return start;
}

const char* photometricName(unsigned photometric)
{
    switch (photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK: return "grey";
    case PHOTOMETRIC_RGB: return "RGB";
    case PHOTOMETRIC_PALETTE: return "palette";
    case PHOTOMETRIC_MASK: return "mask";
    case PHOTOMETRIC_SEPARATED: return "ink (CMYK)";
    case PHOTOMETRIC_YCBCR: return "YCbCr";
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
    case PHOTOMETRIC_ITULAB: return "CIELab";
    case PHOTOMETRIC_CFA: return "colour filter array";
    case PHOTOMETRIC_LOGL:
    case PHOTOMETRIC_LOGLUV: return "LogLuv";
    default: return "unknown colour";
    }
}

const char* sampleFormatName(unsigned format)
{
    switch (format) {
    case SAMPLEFORMAT_UINT:
    case SAMPLEFORMAT_VOID: return "unsigned";
    case SAMPLEFORMAT_INT: return "signed";
    case SAMPLEFORMAT_IEEEFP: return "floating";
    case SAMPLEFORMAT_COMPLEXINT:
    case SAMPLEFORMAT_COMPLEXIEEEFP: return "complex";
    default: return "of unknown form";
    }
}

} // namespace

std::string TiffPage::toString() const
{
    return std::to_string(width) + "x" + std::to_string(height) + " pixels of " + std::to_string(samples) + " " +
           photometricName(photometric) + (samples == 1 ? " sample, " : " samples, ") + sampleFormatName(sampleFormat) +
           ", " + std::to_string(bits) + (bits == 1 ? " bit" : " bits");
}

void prepareDecoders(TIFF* tiff)
{
    const auto compression = fieldOf<std::uint16_t>(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    const auto photometric = fieldOf<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    if (!TIFFIsCODECConfigured(compression)) {
        return;
    }
    if (compression == COMPRESSION_JPEG && photometric == PHOTOMETRIC_YCBCR) {
        TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    }
    if (compression == COMPRESSION_SGILOG || compression == COMPRESSION_SGILOG24) {
        TIFFSetField(tiff, TIFFTAG_SGILOGDATAFMT, SGILOGDATAFMT_FLOAT);
    }
}

TiffPage describePage(TiffHandle& tiff, unsigned long index)
{
    TiffPage page;
    page.width = fieldOf<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH, 0);
    page.height = fieldOf<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH, 0);
    page.samples = fieldOf<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    page.bits = fieldOf<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    page.sampleFormat = fieldOf<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    page.compression = fieldOf<std::uint16_t>(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    page.photometric =
        fieldOf<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC, page.samples < 3 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
    std::uint16_t extraCount = 0;
    std::uint16_t* extraTypes = nullptr;
    if (TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &extraCount, &extraTypes) == 1) {
        page.extraSamples = extraCount;
    }
    page.bSeparate = page.samples > 1 &&
                     fieldOf<std::uint16_t>(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) == PLANARCONFIG_SEPARATE;
    const auto kind = fieldOf<std::uint32_t>(tiff, TIFFTAG_SUBFILETYPE, 0);
    page.bLeftOut = (kind & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) != 0;
    page.bTiled = TIFFIsTiled(tiff) != 0;
    if (page.bTiled) {
        page.blockWidth = fieldOf<std::uint32_t>(tiff, TIFFTAG_TILEWIDTH, 0);
        page.blockHeight = fieldOf<std::uint32_t>(tiff, TIFFTAG_TILELENGTH, 0);
    } else {
        page.blockWidth = page.width;
        page.blockHeight = fieldOf<std::uint32_t>(tiff, TIFFTAG_ROWSPERSTRIP, 0xffffffffu);
        page.blockHeight = std::min(page.blockHeight, page.height);
    }
    page.depth = fieldOf<std::uint32_t>(tiff, TIFFTAG_IMAGEDEPTH, 1);
    page.blockDepth = fieldOf<std::uint32_t>(tiff, TIFFTAG_TILEDEPTH, 1);
    page.directory = TIFFCurrentDirOffset(tiff);
    page.orientation = fieldOf<std::uint16_t>(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    std::uint16_t subPages = 0;
    std::uint64_t* offsets = nullptr;
    if (TIFFGetField(tiff, TIFFTAG_SUBIFD, &subPages, &offsets) == 1) {
        page.subPages = subPages;
    }
    page.bGreyPalette = page.photometric == PHOTOMETRIC_PALETTE && hasGreyPalette(tiff, page.bits);
    if (page.width == 0 || page.height == 0 || page.samples == 0 || page.blockWidth == 0 || page.blockHeight == 0) {
        tiff.messages().error = "it has " + page.toString();
        tiff.raiseDamaged(index);
    }
    page.rawOffset = rawOffsetOf(tiff, page);
    return page;
}

TiffFileFacts describeFile(TIFF* tiff)
{
    TiffFileFacts facts;
    char* text = nullptr;
    if (TIFFGetField(tiff, TIFFTAG_IMAGEDESCRIPTION, &text) == 1 && text) {
        facts.description = text;
    }
    facts.resolution.perUnitX = fieldOf<float>(tiff, TIFFTAG_XRESOLUTION, 0);
    facts.resolution.perUnitY = fieldOf<float>(tiff, TIFFTAG_YRESOLUTION, 0);
    if (!(facts.resolution.perUnitX > 0) || !(facts.resolution.perUnitY > 0)) {
        return facts; // inches are the default also of a resolution that is not there
    }
    switch (fieldOf<std::uint16_t>(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_NONE)) {
    case RESUNIT_INCH: facts.resolution.unit = "inch"; break;
    case RESUNIT_CENTIMETER: facts.resolution.unit = "cm"; break;
    default: break;
    }
    return facts;
}

std::vector<TiffPage> describePages(TiffHandle& tiff)
{
    std::vector<TiffPage> pages;
    for (;;) {
        tiff.checkDirectory(pages.size());
        prepareDecoders(tiff);
        pages.push_back(describePage(tiff, pages.size()));
        if (TIFFLastDirectory(tiff)) {
            break;
        }
        tiff.messages().clear();
        tiff.checkNextDirectory(pages.size());
        if (TIFFReadDirectory(tiff) != 1) {
            tiff.raiseDamaged(pages.size());
        }
    }
    tiff.messages().clear();
    return pages;
}

std::string compressionName(unsigned compression)
{
    const TIFFCodec* const codec = TIFFFindCODEC(static_cast<std::uint16_t>(compression));
    return codec && codec->name ? codec->name : "compression " + std::to_string(compression);
}

} // namespace orlix::image::io
